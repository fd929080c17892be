name: LiteStep Default Profile
case-sensitive: no
code-order: yes

# The shell's configuration files (step.rc and the theme files it includes).

[keywords 1] directives and core settings
Include
If
ElseIf
Else
EndIf
LoadModule
LSPath
LSImageFolder
Theme
ThemeDir
ModulesDir
LSNoShellWarning
LSSetAsShell
LSAutoHideModules

[keywords 2] configuration lines of the modules
*Wharf
*WharfEnd
*Popup
*PopupEnd
*Shortcut
*Hotkey
*Run
*Desktop
*Tasks
*TrayIcon

[keywords 3] bang commands
!About
!Alert
!Confirm
!Execute
!Gather
!Logoff
!Popup
!Quit
!Recycle
!Refresh
!Reload
!Run
!ShutDown
!ToggleWharf
!HideModules
!ShowModules
!ToggleModules
!VWMLeft
!VWMRight
!VWMUp
!VWMDown

[delimiters]
delimiter1  "    "
delimiter2  $    $
comment     ;    \n

#pragma once
// The one table of the main window's commands: every menu item in menu order with its
// caption, shortcut and handler, and the tool bar buttons that call the same commands.
#include <span>

class frmMain;

struct MenuEntry {
    const char* name;     // "mnuFileSave"
    const char* caption;  // "&Save"
    const char* shortcut; // "Ctrl+S", or ""
    int level;            // 0 a menu of the bar (or a popup), 1 its item, 2 an item of a submenu
    void (frmMain::*handler)(); // null: a submenu heading, or a command that does nothing yet
    bool separatorBefore = false;
    bool checkable = false;
};

// Popup menus that are not on the menu bar: the file browser's. (The tray icon builds its
// own menu.)
bool IsPopupOnly(const char* menuName);

std::span<const MenuEntry> MenuTable();

struct ToolButtonEntry {
    const char* toolbar; // "tbFile", "tbAdvanced", "tbEdit", "tbSearch"
    const char* key;
    const char* toolTip;
    const char* image;   // key of the image list
    const char* command; // the menu item pressed, or the submenu popped up
};

std::span<const ToolButtonEntry> ToolbarTable();

// Shortcuts that users of other editors expect besides the table's own.
struct ExtraShortcut {
    const char* command;
    const char* shortcut;
};
std::span<const ExtraShortcut> ExtraShortcuts();

name: Windows INI Default Profile
case-sensitive: no
code-order: yes

# Section headers are a pair in brackets; switch values and the keys of the system's own
# files are keywords.

[keywords 1] switch values
true
false
yes
no
on
off
enabled
disabled

[keywords 2] keys of the system files
load
run
device
shell
wallpaper
TileWallpaper
drivers
programs
Documents
DefaultQueueSize

[delimiters]
delimiter1  [    ]
comment     ;    \n

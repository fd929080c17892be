name: YAML Default Profile
case-sensitive: yes
code-order: yes

# Plain scalars and comments are prose, whose apostrophes would pair across the file: single
# quotes get no pair. Template braces stand out; comments come last.

[keywords 1] literals
true
false
null
yes
no
True
False
Null

[keywords 2] document markers
---
...

[keywords 3] tags
!!str
!!int
!!float
!!bool
!!null
!!map
!!seq
!!binary
!!timestamp

[delimiters]
delimiter1  "    "
delimiter2  {{   }}
comment     #    \n

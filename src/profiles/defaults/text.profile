# Plain text: nothing is coloured.
name: Text Files - No Syntax
case-sensitive: no
code-order: yes

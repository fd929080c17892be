name: JSON Default Profile
case-sensitive: yes
code-order: yes

# JSON has no comments; keys and values in double quotes share one colour.

[keywords 1] literals
true
false
null

[delimiters]
delimiter1  "    "

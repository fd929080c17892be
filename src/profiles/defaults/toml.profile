name: TOML Default Profile
case-sensitive: yes
code-order: yes

# Literal strings in single quotes get no pair, as an apostrophe in a comment would pair across
# the file; the triple form is kept. Table headers go first so that strings inside arrays keep
# their own colour; comments come last.

[keywords 1] literals
true
false
inf
nan

[delimiters]
delimiter2  [    ]
delimiter1  """  """
delimiter1  '''  '''
delimiter1  "    "
comment     #    \n

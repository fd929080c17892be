name: Diff Default Profile
case-sensitive: yes
code-order: yes

# A pair cannot be tied to the start of a line, so a minus or plus sign inside a context line
# colours the rest of that line. Removed lines go first and added lines over them; the lines
# that start a file or a hunk last.

[keywords 1] file headers
index
new file mode
deleted file mode
similarity index
rename from
rename to
Binary files
\ No newline at end of file

[delimiters]
delimiter2  -    \n
delimiter1  +    \n
comment     diff\s \n
comment     @@   \n

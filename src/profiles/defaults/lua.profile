name: Lua Default Profile
case-sensitive: yes
code-order: yes

# Single-quoted strings get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. Long strings go after short ones; comments
# come last, the block form after the line form.

[keywords 1] keywords
and
break
do
else
elseif
end
for
function
goto
if
in
local
not
or
repeat
return
then
until
while

[keywords 2] constants
nil
true
false
self

[keywords 3] standard library
print
pairs
ipairs
require
type
tostring
tonumber
error
assert
pcall
xpcall
setmetatable
getmetatable
select
next
rawget
rawset
string
table
math
io
os
coroutine
unpack

[delimiters]
delimiter1  "    "
delimiter2  [[   ]]
comment     --   \n
comment     --[[ ]]

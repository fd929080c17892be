name: BLUE Default Profile
case-sensitive: yes
code-order: yes

# Blue, the object-oriented teaching language.

[keywords 1] reserved words
class
is
uses
internal
interface
creation
routines
enumeration
manifest
var
pre
post
invariant
do
end
if
then
else
elsif
loop
exit
on
case
of
return
assert
print
create
result

[keywords 2] predefined classes and values
Integer
Real
Boolean
Character
String
Array
List
Enumeration
true
false
nil
self

[keywords 3] operators
and
or
not
xor
div
mod
implies

[delimiters]
delimiter1  "    "
comment     {    }
comment     --   \n

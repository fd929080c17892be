name: Ada Default Profile
case-sensitive: no
code-order: yes

# The apostrophe both quotes a character and starts an attribute (X'First), so character
# literals get no pair of their own; the attributes are keywords instead.

[keywords 1] reserved words
abort
abstract
accept
access
aliased
all
array
at
begin
body
case
constant
declare
delay
delta
digits
do
else
elsif
end
entry
exception
exit
for
function
generic
goto
if
interface
is
limited
loop
new
null
of
others
out
overriding
package
pragma
private
procedure
protected
raise
range
record
renames
requeue
return
reverse
select
separate
subtype
synchronized
tagged
task
terminate
then
type
until
use
when
while
with

[keywords 2] predefined types, packages and attributes
Integer
Natural
Positive
Float
Long_Float
Boolean
Character
String
Duration
True
False
Constraint_Error
Program_Error
Storage_Error
Tasking_Error
Ada
Text_IO
Integer_Text_IO
Put
Put_Line
Get
Get_Line
New_Line
'First
'Last
'Length
'Range
'Image
'Value
'Pos
'Val
'Succ
'Pred
'Access
'Address
'Size

[keywords 3] operators
and
or
xor
not
mod
rem
abs
in

[delimiters]
delimiter1  "    "
comment     --   \n

name: DataFlex Default Profile
case-sensitive: no
code-order: yes

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Strings in double quotes keep theirs.

[keywords 1] commands and control flow
if
else
begin
end
while
loop
repeat
until
for
from
to
case
break
gosub
return
abort
procedure
end_procedure
function
end_function
object
end_object
class
end_class
send
get
set
move
indicate
as
true
false
clear
find
save
saverecord
delete
reread
unlock
lock
attach
relate
open
close
showln
show
input
enter
entergroup
entry
start_ui
on_key
debug

[keywords 2] types and data declarations
string
integer
number
date
real
local
property
indicator
global_variable
field
file
buffer
handle
boolean
public
private

[keywords 3] compiler directives
#include
#command
#replace
#ifdef
#ifndef
#else
#endif
#error
use
define

[delimiters]
delimiter1  "    "
comment     //   \n

name: Limbo Default Profile
case-sensitive: yes
code-order: yes

# Character literals get no pair: an apostrophe in a comment ("don't") would pair with
# the next quote further down and colour all the code between as a string.

[keywords 1] statements and declarations
alt
break
case
con
continue
cyclic
do
else
exit
for
fn
if
implement
import
include
load
module
of
or
pick
return
spawn
to
type
while

[keywords 2] types and built-in operators
adt
array
big
byte
chan
int
list
real
ref
string
nil
hd
tl
len
tagof
self

[keywords 3] standard modules
Sys
Draw
Bufio
Math
Tk
sys
draw
bufio
print
fprint
sprint
open
read
write
init
PATH

[delimiters]
delimiter1  "    "
delimiter2  `    `
comment     #    \n

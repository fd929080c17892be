name: REBOL Default Profile
case-sensitive: no
code-order: yes

[keywords 1] control functions
REBOL
if
either
unless
while
until
loop
repeat
foreach
forall
forever
for
switch
break
return
exit
func
function
does
has
make
context
use
catch
throw
try
attempt
do
reduce
compose
halt
quit

[keywords 2] series and I/O functions, datatypes
print
prin
probe
input
ask
read
write
load
save
append
insert
remove
clear
copy
change
first
second
third
last
next
back
head
tail
find
select
pick
poke
length?
empty?
join
rejoin
form
mold
parse
now
to-integer
to-string
string!
integer!
decimal!
logic!
block!
word!
file!
url!
object!
none!

[keywords 3] logic values and operators
true
false
none
on
off
yes
no
and
or
not
xor
any
all
self
system

[delimiters]
delimiter1  "    "
delimiter2  {    }
comment     ;    \n

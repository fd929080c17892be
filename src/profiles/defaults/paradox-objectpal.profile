name: Paradox ObjectPal Default Profile
case-sensitive: no
code-order: yes

[keywords 1] statements and blocks
method
endMethod
proc
endProc
var
endVar
const
endConst
type
endType
uses
endUses
if
then
else
endIf
switch
case
otherwise
endSwitch
while
endWhile
for
from
to
step
endFor
forEach
endForEach
scan
endScan
loop
quitLoop
try
onFail
endTry
fail
return
doDefault
disableDefault
enableDefault
not
and
or

[keywords 2] types
AnyType
Array
Binary
Currency
Date
DateTime
DynArray
Graphic
Logical
LongInt
Memo
Number
Point
Record
SmallInt
String
Time
TCursor
Table
Query
Form
Report
UIObject
Database
Session
TextStream
Library
Menu
PopUpMenu
OLE

[keywords 3] built-ins and frequent methods
self
container
active
subject
lastMouseClicked
msgInfo
msgStop
msgQuestion
msgYesNoCancel
view
isBlank
isAssigned
open
close
attach
moveTo
action
postAction
setTitle
blank
True
False

[delimiters]
delimiter1  "    "
comment     {    }
comment     ;    \n

name: Object Pascal Default Profile
case-sensitive: no
code-order: yes

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. So strings are not coloured.

[keywords 1] reserved words
and
array
as
asm
begin
case
class
const
constructor
destructor
div
do
downto
else
end
except
exports
file
finally
for
function
goto
if
implementation
in
inherited
initialization
finalization
inline
interface
is
label
library
mod
nil
not
object
of
or
packed
procedure
program
property
raise
record
repeat
set
shl
shr
string
then
threadvar
to
try
type
unit
until
uses
var
while
with
xor

[keywords 2] types and standard routines
Integer
Cardinal
ShortInt
SmallInt
LongInt
Int64
Byte
Word
LongWord
Real
Single
Double
Extended
Currency
Boolean
Char
WideChar
AnsiString
WideString
ShortString
Pointer
PChar
Variant
TObject
TClass
Exception
True
False
Self
Result
Write
WriteLn
Read
ReadLn
Assign
AssignFile
Reset
Rewrite
Append
CloseFile
Eof
Length
SetLength
Copy
Pos
Delete
Insert
Inc
Dec
Ord
Chr
High
Low
SizeOf
New
Dispose
GetMem
FreeMem
Exit
Halt
Assigned
FreeAndNil
IntToStr
StrToInt
Format

[keywords 3] directives
absolute
abstract
assembler
cdecl
default
dynamic
export
external
far
forward
index
message
name
near
override
overload
pascal
private
protected
public
published
register
reintroduce
resident
safecall
stdcall
stored
virtual

[delimiters]
comment     {    }
comment     (*   *)
comment     //   \n
delimiter2  {$   }

name: C Sharp Default Profile
case-sensitive: yes
code-order: yes

# Character literals get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. Comments come last; a line comment opens with
# two slashes and a blank, so that a URL in a string is not taken for one.

[keywords 1] keywords
abstract
as
base
break
case
catch
checked
class
const
continue
default
delegate
do
else
enum
event
explicit
extern
finally
fixed
for
foreach
goto
if
implicit
in
interface
internal
is
lock
namespace
new
operator
out
override
params
private
protected
public
readonly
record
ref
return
sealed
sizeof
stackalloc
static
struct
switch
this
throw
try
typeof
unchecked
unsafe
using
virtual
volatile
while
async
await
var
yield
get
set
init
where

[keywords 2] types and constants
bool
byte
char
decimal
double
float
int
long
object
sbyte
short
string
uint
ulong
ushort
void
dynamic
true
false
null
String
Console
List
Dictionary
Task
Exception
Math

[keywords 3] preprocessor
#region
#endregion
#if
#elif
#else
#endif
#define
#undef
#pragma
#nullable

[delimiters]
delimiter1  "    "
comment     /*   */
comment     //\s  \n

name: TypeScript Default Profile
case-sensitive: yes
code-order: yes

# Single-quoted strings get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. Double quotes and template strings are
# coloured; comments come last; a line comment opens with two slashes and a blank, so that a URL
# in a string is not taken for one.

[keywords 1] statements and reserved words
break
case
catch
class
const
continue
debugger
default
delete
do
else
export
extends
finally
for
function
if
import
in
instanceof
let
new
of
return
super
switch
this
throw
try
typeof
var
void
while
with
yield
async
await
static
from
interface
type
enum
implements
namespace
declare
abstract
readonly
private
public
protected
keyof
infer
is
satisfies
as

[keywords 2] types, constants and global objects
string
number
boolean
any
unknown
never
object
bigint
symbol
true
false
null
undefined
NaN
Infinity
console
document
window
globalThis
Math
JSON
Object
Array
String
Number
Boolean
BigInt
Symbol
Promise
Map
Set
WeakMap
Error
TypeError
RegExp
Date
parseInt
parseFloat
require
module
exports
process
setTimeout
clearTimeout
setInterval
fetch
Record
Partial
Readonly

[keywords 3] operators
=>
===
!==
&&
||
??

[delimiters]
delimiter1  "    "
delimiter2  `    `
comment     /*   */
comment     //\s  \n

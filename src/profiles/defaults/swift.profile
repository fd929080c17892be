name: Swift Default Profile
case-sensitive: yes
code-order: yes

# Multi-line strings go after plain ones; comments come last; a line comment opens with two
# slashes and a blank, so that a URL in a string is not taken for one.

[keywords 1] keywords
associatedtype
class
deinit
enum
extension
fileprivate
func
import
init
inout
internal
let
open
operator
private
protocol
public
rethrows
static
struct
subscript
typealias
var
break
case
continue
default
defer
do
else
fallthrough
for
guard
if
in
repeat
return
switch
where
while
as
catch
is
throw
throws
try
async
await
some
any
self
Self
super

[keywords 2] types, constants and library
Int
Double
Float
Bool
String
Character
Array
Dictionary
Set
Optional
Void
Error
nil
true
false
print

[keywords 3] attributes and conditions
@escaping
@objc
@MainActor
@available
@discardableResult
@State
@Published
#if
#else
#endif
#available

[delimiters]
delimiter1  "    "
delimiter2  """  """
comment     /*   */
comment     //\s  \n

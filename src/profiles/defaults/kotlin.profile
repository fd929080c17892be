name: Kotlin Default Profile
case-sensitive: yes
code-order: yes

# Character literals get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. Raw strings go after plain ones; comments
# come last; a line comment opens with two slashes and a blank, so that a URL in a string is not
# taken for one.

[keywords 1] keywords
as
break
class
continue
do
else
for
fun
if
in
interface
is
object
package
return
super
this
throw
try
typealias
val
var
when
while
by
catch
constructor
finally
import
init
where
abstract
annotation
companion
data
enum
final
inline
internal
lateinit
open
operator
out
override
private
protected
public
sealed
suspend
vararg

[keywords 2] types, constants and library
Int
Long
Short
Byte
Double
Float
Boolean
Char
String
Unit
Any
Nothing
List
MutableList
Map
Set
Array
true
false
null
println
listOf
mapOf
setOf
mutableListOf
mutableMapOf
arrayOf

[keywords 3] annotations
@JvmStatic
@JvmOverloads
@Test
@Suppress
@Deprecated
@Composable

[delimiters]
delimiter1  "    "
delimiter2  """  """
comment     /*   */
comment     //\s  \n

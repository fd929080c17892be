name: Java Default Profile
case-sensitive: yes
code-order: yes

# Character literals get no pair: an apostrophe in a comment ("don't") would pair with
# the next quote further down and colour all the code between as a string.

[keywords 1] reserved words
abstract
assert
break
case
catch
class
const
continue
default
do
else
enum
extends
final
finally
for
goto
if
implements
import
instanceof
interface
native
new
package
private
protected
public
return
static
strictfp
super
switch
synchronized
this
throw
throws
transient
try
volatile
while

[keywords 2] primitive types, literals and core classes
boolean
byte
char
double
float
int
long
short
void
true
false
null
Object
String
StringBuffer
StringBuilder
System
Math
Integer
Long
Double
Float
Boolean
Character
Byte
Short
Number
Class
Thread
Runnable
Exception
RuntimeException
Error
Throwable
List
ArrayList
Map
HashMap
Vector
Hashtable

[keywords 3] annotations and members used everywhere
@Override
@Deprecated
@SuppressWarnings
@FunctionalInterface
main
length
println
print
toString
equals
hashCode

[delimiters]
delimiter1  "    "
comment     /*   */
comment     //   \n

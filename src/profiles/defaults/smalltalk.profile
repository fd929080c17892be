name: Smalltalk Default Profile
case-sensitive: yes
code-order: yes

# Comments stand in double quotes, strings in single ones.

[keywords 1] pseudo-variables and reserved identifiers
self
super
nil
true
false
thisContext
Smalltalk
Transcript

[keywords 2] classes
Object
Boolean
True
False
UndefinedObject
Number
Integer
SmallInteger
LargePositiveInteger
Float
Fraction
Character
String
Symbol
Array
ByteArray
Interval
OrderedCollection
SortedCollection
Set
Bag
Dictionary
Association
Collection
Stream
ReadStream
WriteStream
Point
Rectangle
Date
Time
Class
Metaclass
Exception
Error

[keywords 3] messages used everywhere
new
new:
ifTrue:
ifFalse:
ifNil:
ifNotNil:
whileTrue:
whileFalse:
timesRepeat:
to:do:
do:
collect:
select:
reject:
detect:
inject:into:
value
value:
printString
printOn:
show:
cr
yourself
subclass:
instanceVariableNames:
classVariableNames:
category:
at:
at:put:
add:
size
isNil
notNil

[delimiters]
delimiter1  '    '
comment     "    "

name: Smalltalk Default Profile
case-sensitive: yes
code-order: yes

# Comments stand in double quotes, strings in single ones.

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. So only the comments are coloured.

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
comment     "    "

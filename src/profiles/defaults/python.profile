name: Python Default Profile
case-sensitive: yes
code-order: yes

# Single-quoted strings get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. Comments come last so that a quote inside one
# looks like comment.

[keywords 1] statements and reserved words
and
as
assert
async
await
break
class
continue
def
del
elif
else
except
finally
for
from
global
if
import
in
is
lambda
match
nonlocal
not
or
pass
raise
return
try
while
with
yield

[keywords 2] constants and built-in functions
True
False
None
self
cls
print
len
range
open
int
float
str
bytes
bool
list
dict
set
tuple
object
type
isinstance
issubclass
enumerate
zip
map
filter
sorted
reversed
sum
min
max
abs
any
all
super
iter
next
repr
hash
getattr
setattr
hasattr
input
format
Exception
ValueError
TypeError
KeyError
IndexError
RuntimeError
OSError
StopIteration
NotImplementedError

[keywords 3] special names and decorators
__init__
__name__
__main__
__file__
__repr__
__str__
__enter__
__exit__
__all__
@property
@staticmethod
@classmethod
@dataclass

[delimiters]
delimiter1  "    "
delimiter2  """  """
delimiter2  '''  '''
comment     #    \n

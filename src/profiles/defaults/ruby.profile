name: Ruby Default Profile
case-sensitive: yes
code-order: yes

# Single-quoted strings get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. A comment opens with a hash and a blank, so
# that interpolation in a string is not taken for one.

[keywords 1] keywords
BEGIN
END
alias
and
begin
break
case
class
def
defined?
do
else
elsif
end
ensure
false
for
if
in
module
next
nil
not
or
redo
rescue
retry
return
self
super
then
true
undef
unless
until
when
while
yield
__FILE__
__LINE__

[keywords 2] common methods
puts
print
require
require_relative
attr_accessor
attr_reader
attr_writer
include
extend
raise
lambda
proc
private
protected
public
loop
each
map

[keywords 3] core classes
String
Integer
Float
Array
Hash
Symbol
Struct
Kernel
File
IO
Dir
Time
Comparable
Enumerable
StandardError
ArgumentError

[delimiters]
delimiter1  "    "
delimiter2  #{   }
comment     #\s  \n
comment     =begin =end

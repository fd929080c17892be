name: Eiffel Default Profile
case-sensitive: no
code-order: yes

# Character literals get no pair: an apostrophe in a comment ("don't") would pair with
# the next quote further down and colour all the code between as a string.

[keywords 1] reserved words
across
agent
alias
all
as
assign
attribute
check
class
convert
create
debug
deferred
do
else
elseif
end
ensure
expanded
export
external
feature
from
frozen
if
indexing
inherit
inspect
invariant
like
local
loop
note
obsolete
old
once
redefine
rename
require
rescue
retry
select
separate
then
undefine
until
variant
when

[keywords 2] basic classes and predefined entities
ANY
NONE
INTEGER
REAL
DOUBLE
BOOLEAN
CHARACTER
STRING
ARRAY
LIST
LINKED_LIST
HASH_TABLE
Current
Result
Precursor
Void
True
False
print
io
put_string
put_integer
new_line

[keywords 3] operators
and
or
xor
not
implies
and then
or else

[delimiters]
delimiter1  "    "
comment     --   \n

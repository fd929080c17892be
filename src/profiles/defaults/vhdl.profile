name: VHDL Default Profile
case-sensitive: no
code-order: yes

# The apostrophe both quotes a bit ('1') and starts an attribute (clk'event), so it gets no
# pair; bit and bit-string literals in double quotes are coloured.

[keywords 1] reserved words
access
after
alias
all
architecture
array
assert
attribute
begin
block
body
buffer
bus
case
component
configuration
constant
disconnect
downto
else
elsif
end
entity
exit
file
for
function
generate
generic
group
guarded
if
impure
in
inertial
inout
is
label
library
linkage
literal
loop
map
new
next
null
of
on
open
others
out
package
port
postponed
procedure
process
pure
range
record
register
reject
report
return
select
severity
signal
shared
subtype
then
to
transport
type
unaffected
units
until
use
variable
wait
when
while
with

[keywords 2] types and library
bit
bit_vector
boolean
character
integer
natural
positive
real
string
time
std_logic
std_logic_vector
std_ulogic
std_ulogic_vector
signed
unsigned
ieee
std_logic_1164
numeric_std
std_logic_arith
std_logic_unsigned
work
rising_edge
falling_edge
to_integer
to_unsigned
to_signed
resize
'event
'length
'range
'high
'low
true
false
note
warning
error
failure

[keywords 3] operators
and
or
nand
nor
xor
xnor
not
mod
rem
abs
sll
srl
sla
sra
rol
ror

[delimiters]
delimiter1  "    "
comment     --   \n

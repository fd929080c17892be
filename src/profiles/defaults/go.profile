name: Go Default Profile
case-sensitive: yes
code-order: yes

# Character literals get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. Raw strings in back quotes have a pair of
# their own; comments come last; a line comment opens with two slashes and a blank, so that a
# URL in a string is not taken for one.

[keywords 1] keywords
break
case
chan
const
continue
default
defer
else
fallthrough
for
func
go
goto
if
import
interface
map
package
range
return
select
struct
switch
type
var

[keywords 2] types and constants
bool
byte
complex64
complex128
error
float32
float64
int
int8
int16
int32
int64
rune
string
uint
uint8
uint16
uint32
uint64
uintptr
any
comparable
true
false
iota
nil

[keywords 3] built-in functions
append
cap
clear
close
complex
copy
delete
imag
len
make
max
min
new
panic
print
println
real
recover

[delimiters]
delimiter1  "    "
delimiter2  `    `
comment     /*   */
comment     //\s  \n

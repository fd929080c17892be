name: C and C++ Default Profile
case-sensitive: yes
code-order: yes

# Character literals get no pair: an apostrophe in a comment ("don't") would pair with
# the next quote further down and colour all the code between as a string.

[keywords 1] statements and reserved words of C and C++
auto
break
case
catch
class
const
const_cast
constexpr
continue
default
delete
do
dynamic_cast
else
enum
explicit
extern
for
friend
goto
if
inline
mutable
namespace
new
noexcept
operator
private
protected
public
register
reinterpret_cast
return
sizeof
static
static_assert
static_cast
struct
switch
template
this
throw
try
typedef
typeid
typename
union
using
virtual
volatile
while

[keywords 2] types, constants and the standard library
bool
char
double
float
int
long
short
signed
unsigned
void
wchar_t
size_t
ptrdiff_t
int8_t
int16_t
int32_t
int64_t
uint8_t
uint16_t
uint32_t
uint64_t
FILE
NULL
EOF
true
false
nullptr
std
string
vector
map
cin
cout
cerr
endl
printf
fprintf
sprintf
scanf
puts
gets
fopen
fclose
fread
fwrite
fgets
fputs
malloc
calloc
realloc
free
memcpy
memmove
memset
memcmp
strcpy
strncpy
strcat
strcmp
strncmp
strlen
strchr
strstr
atoi
atof
exit
abort

[keywords 3] preprocessor
#include
#define
#undef
#if
#ifdef
#ifndef
#elif
#else
#endif
#error
#pragma
#line
defined

[delimiters]
delimiter1  "    "
comment     /*   */
comment     //   \n

name: Rust Default Profile
case-sensitive: yes
code-order: yes

# Lifetimes and character literals get no pair: a lone apostrophe would pair with the next one
# further down and shift every string of the file. Raw strings go after plain ones; comments
# come last; a line comment opens with two slashes and a blank, so that a URL in a string is not
# taken for one.

[keywords 1] keywords
as
async
await
break
const
continue
crate
dyn
else
enum
extern
fn
for
if
impl
in
let
loop
match
mod
move
mut
pub
ref
return
self
Self
static
struct
super
trait
type
unsafe
use
where
while

[keywords 2] types and constants
bool
char
i8
i16
i32
i64
i128
isize
u8
u16
u32
u64
u128
usize
f32
f64
str
String
Vec
Option
Some
None
Result
Ok
Err
Box
Rc
Arc
HashMap
true
false

[keywords 3] macros and attributes
println!
print!
eprintln!
format!
vec!
panic!
assert!
assert_eq!
assert_ne!
write!
writeln!
todo!
unimplemented!
unreachable!
matches!
#[derive
#[test]
#[cfg
#[allow

[delimiters]
delimiter1  "    "
delimiter2  r#"  "#
comment     /*   */
comment     //\s  \n

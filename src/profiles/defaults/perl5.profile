name: Perl 5 Default Profile
case-sensitive: yes
code-order: yes

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Strings in double quotes keep theirs.

[keywords 1] statements and declarations
if
elsif
else
unless
while
until
for
foreach
do
last
next
redo
goto
return
sub
my
our
local
use
no
require
package
BEGIN
END
__END__
__DATA__
__FILE__
__LINE__
__PACKAGE__

[keywords 2] built-in functions
print
printf
sprintf
open
close
binmode
eof
readline
chomp
chop
chr
ord
lc
uc
lcfirst
ucfirst
length
substr
index
rindex
join
split
reverse
sort
keys
values
each
exists
delete
defined
undef
push
pop
shift
unshift
splice
grep
map
wantarray
die
warn
eval
exit
bless
ref
scalar
time
localtime
sleep
system
exec
chdir
mkdir
rmdir
unlink
opendir
readdir
closedir
STDIN
STDOUT
STDERR
ARGV
ENV

[keywords 3] word operators
eq
ne
lt
gt
le
ge
cmp
and
or
not
xor

[delimiters]
delimiter1  "        "
comment     =pod     =cut
comment     =head1   =cut
comment     =begin   =cut
comment     #        \n

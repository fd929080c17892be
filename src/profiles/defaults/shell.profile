name: Shell Default Profile
case-sensitive: yes
code-order: yes

# Single-quoted words get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file. Expansions stand out inside double quotes;
# comments come last.

[keywords 1] reserved words
if
then
else
elif
fi
case
esac
for
while
until
do
done
in
function
select
time
return
exit
break
continue

[keywords 2] built-in commands
echo
printf
read
cd
pwd
pushd
popd
test
local
export
readonly
declare
typeset
set
unset
shift
source
eval
exec
trap
wait
kill
true
false
getopts
alias
command
type
umask
ulimit

[keywords 3] common tools
cat
grep
sed
awk
find
xargs
sort
uniq
cut
tr
head
tail
mkdir
rm
cp
mv
ln
chmod
chown
tar
curl
git
make
basename
dirname
mktemp
tee

[delimiters]
delimiter1  "    "
delimiter2  ${   }
delimiter2  $(   )
comment     #    \n

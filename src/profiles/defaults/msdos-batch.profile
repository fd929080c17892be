name: MS-DOS Batch Default Profile
case-sensitive: no
code-order: yes

# The remark is a delimiter pair, and pairs compare with case: REM is listed in the usual
# spellings. A blank follows it so that words like REMOVE are not taken for remarks.

[keywords 1] batch control
@echo off
@echo on
echo
set
if
not
exist
errorlevel
goto
call
for
in
do
shift
pause
choice
%0
%1
%2
%3
%4
%5
%6
%7
%8
%9

[keywords 2] commands
cd
chdir
md
mkdir
rd
rmdir
dir
copy
xcopy
move
del
erase
ren
rename
type
cls
path
prompt
ver
vol
date
time
mem
format
attrib
deltree
edit
find
more
sort
subst
label

[keywords 3] devices and redirection targets
nul
con
prn
aux
lpt1
com1

[delimiters]
delimiter1  "       "
comment     REM\s   \n
comment     rem\s   \n
comment     Rem\s   \n
comment     ::      \n

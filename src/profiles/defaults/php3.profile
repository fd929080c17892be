name: PHP3 Default Profile
case-sensitive: yes
code-order: yes

# PHP inside HTML. The shell-style comment mark is left out: in the HTML around the script
# it starts colour values and anchors ("#ff0000", "#top").

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Strings in double quotes keep theirs.

[keywords 1] language keywords
if
else
elseif
endif
while
endwhile
do
for
endfor
foreach
endforeach
as
switch
endswitch
case
default
break
continue
return
function
class
extends
new
var
global
static
echo
print
include
include_once
require
require_once
list
array
unset
isset
empty
exit
die
and
or
xor
true
false
TRUE
FALSE
NULL
__FILE__
__LINE__

[keywords 2] library functions
strlen
substr
strpos
str_replace
strtolower
strtoupper
trim
ltrim
rtrim
explode
implode
sprintf
printf
number_format
htmlspecialchars
addslashes
stripslashes
nl2br
ereg
ereg_replace
preg_match
preg_replace
count
sizeof
in_array
array_push
array_pop
array_keys
array_merge
sort
ksort
reset
next
each
is_array
is_numeric
intval
date
time
mktime
fopen
fclose
fgets
fputs
file
file_exists
header
setcookie
mail
mysql_connect
mysql_select_db
mysql_query
mysql_fetch_array
mysql_fetch_row
mysql_num_rows
mysql_close
$HTTP_GET_VARS
$HTTP_POST_VARS
$PHP_SELF

[keywords 3] script markers and HTML tags
<?php
<?
?>
<html
</html
<head
</head
<title
</title
<body
</body
<form
</form
<input
<select
</select
<option
<table
</table
<tr
</tr
<td
</td
<a
</a
<br
<p
</p
<div
</div

[delimiters]
delimiter1  "      "
comment     <!--   -->
comment     /*     */
comment     //     \n

name: LISP Default Profile
case-sensitive: no
code-order: yes

[keywords 1] special forms and defining macros
defun
defmacro
defvar
defparameter
defconstant
defstruct
defclass
defmethod
defgeneric
defpackage
in-package
lambda
let
let*
flet
labels
progn
prog1
block
return
return-from
if
cond
when
unless
case
typecase
and
or
not
loop
do
dolist
dotimes
setq
setf
quote
function
catch
throw
unwind-protect
handler-case

[keywords 2] functions
car
cdr
cons
list
append
reverse
length
nth
first
rest
last
member
assoc
mapcar
mapc
apply
funcall
eq
eql
equal
null
atom
listp
numberp
symbolp
format
print
princ
terpri
read
eval
make-hash-table
gethash
push
pop
incf
decf

[keywords 3] constants and lambda-list keywords
nil
t
&optional
&rest
&key
&aux
&body

[delimiters]
delimiter1  "    "
comment     #|   |#
comment     ;    \n

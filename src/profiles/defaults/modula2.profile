name: Modula2 Default Profile
case-sensitive: yes
code-order: yes

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Strings in double quotes keep theirs.

[keywords 1] reserved words
AND
ARRAY
BEGIN
BY
CASE
CONST
DEFINITION
DIV
DO
ELSE
ELSIF
END
EXIT
EXPORT
FOR
FROM
IF
IMPLEMENTATION
IMPORT
IN
LOOP
MOD
MODULE
NOT
OF
OR
POINTER
PROCEDURE
QUALIFIED
RECORD
REPEAT
RETURN
SET
THEN
TO
TYPE
UNTIL
VAR
WHILE
WITH

[keywords 2] pervasive types, constants and procedures
BOOLEAN
CARDINAL
CHAR
INTEGER
LONGINT
LONGCARD
REAL
LONGREAL
BITSET
PROC
TRUE
FALSE
NIL
ABS
CAP
CHR
DEC
EXCL
FLOAT
HALT
HIGH
INC
INCL
MAX
MIN
ODD
ORD
SIZE
TRUNC
VAL

[keywords 3] standard library modules and procedures
SYSTEM
ADDRESS
WORD
BYTE
ADR
TSIZE
InOut
Terminal
Storage
Strings
WriteString
WriteLn
WriteInt
WriteCard
Write
ReadString
ReadInt
ReadCard
Read
ALLOCATE
DEALLOCATE

[delimiters]
delimiter1  "    "
comment     (*   *)

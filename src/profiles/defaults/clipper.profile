name: Clipper Default Profile
case-sensitive: no
code-order: yes

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Strings in double quotes keep theirs.

[keywords 1] statements and commands
FUNCTION
PROCEDURE
RETURN
LOCAL
STATIC
PRIVATE
PUBLIC
MEMVAR
FIELD
PARAMETERS
DECLARE
IF
ELSE
ELSEIF
ENDIF
DO CASE
CASE
OTHERWISE
ENDCASE
DO WHILE
ENDDO
EXIT
LOOP
FOR
TO
STEP
NEXT
BEGIN SEQUENCE
RECOVER
BREAK
END
USE
SELECT
INDEX ON
SET
SEEK
SKIP
GO TOP
GO BOTTOM
APPEND BLANK
REPLACE
DELETE
PACK
ZAP
CLOSE
CLEAR
SAY
GET
READ
QUIT

[keywords 2] functions
ALLTRIM
TRIM
LTRIM
RTRIM
SUBSTR
LEFT
RIGHT
UPPER
LOWER
LEN
STR
VAL
DTOC
CTOD
DATE
TIME
EMPTY
IIF
AT
SPACE
REPLICATE
PADL
PADR
PADC
EOF
BOF
FOUND
RECNO
RECCOUNT
DBUSEAREA
DBSKIP
DBGOTOP
DBSEEK
ALIAS
TYPE
VALTYPE
AADD
ASIZE
ASCAN
AEVAL
INKEY
SETCOLOR
SETPOS
QOUT
QQOUT
MEMOEDIT
ACHOICE

[keywords 3] preprocessor and logical operators
#include
#define
#undef
#ifdef
#ifndef
#else
#endif
#command
#xcommand
#translate
#xtranslate
.AND.
.OR.
.NOT.
.T.
.F.
NIL

[delimiters]
delimiter1  "    "
comment     /*   */
comment     //   \n
comment     &&   \n

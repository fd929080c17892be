name: QBASIC Default Profile
case-sensitive: no
code-order: yes

# The apostrophe starts a remark, and it also stands in text such as "don't": the strings
# are painted after the remarks so that a quoted apostrophe is shown as string.

[keywords 1] statements
DIM
REDIM
SHARED
STATIC
CONST
COMMON
DECLARE
SUB
FUNCTION
DEF
END
EXIT
IF
THEN
ELSE
ELSEIF
END IF
SELECT CASE
CASE
END SELECT
FOR
TO
STEP
NEXT
DO
LOOP
WHILE
WEND
UNTIL
GOTO
GOSUB
RETURN
ON
ERROR
RESUME
CALL
PRINT
LPRINT
INPUT
LINE INPUT
OPEN
CLOSE
WRITE
GET
PUT
DATA
READ
RESTORE
LET
SWAP
RANDOMIZE
CLS
LOCATE
COLOR
SCREEN
BEEP
SOUND
PLAY
SLEEP
STOP
SYSTEM
TYPE
AS
OUTPUT
APPEND
BINARY
RANDOM

[keywords 2] types and functions
INTEGER
LONG
SINGLE
DOUBLE
STRING
ABS
ASC
ATN
CHR$
COS
CSRLIN
CINT
CLNG
EOF
EXP
FIX
FREEFILE
INKEY$
INSTR
INT
LBOUND
UBOUND
LCASE$
UCASE$
LEFT$
RIGHT$
MID$
LEN
LOF
LOG
LTRIM$
RTRIM$
RND
SGN
SIN
SPACE$
SQR
STR$
STRING$
TAN
TIME$
DATE$
TIMER
VAL

[keywords 3] operators
AND
OR
NOT
XOR
EQV
IMP
MOD

[delimiters]
comment     '      \n
comment     REM\s  \n
comment     rem\s  \n
comment     Rem\s  \n
delimiter1  "      "

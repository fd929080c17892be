name: FORTRAN Default Profile
case-sensitive: no
code-order: yes

# The fixed-form comment, a C or an asterisk in column 1, has no opener a plain search can
# find; the "!" comment of FORTRAN 90 is coloured.

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Strings in double quotes keep theirs.

[keywords 1] statements
PROGRAM
END
SUBROUTINE
FUNCTION
MODULE
CONTAINS
USE
IMPLICIT NONE
CALL
RETURN
IF
THEN
ELSE
ELSE IF
END IF
DO
END DO
WHILE
CONTINUE
CYCLE
EXIT
GOTO
GO TO
STOP
SELECT CASE
CASE
DEFAULT
PARAMETER
DIMENSION
COMMON
DATA
EQUIVALENCE
EXTERNAL
INTRINSIC
SAVE
ALLOCATE
DEALLOCATE
ALLOCATABLE
INTENT
IN
OUT
INOUT
READ
WRITE
PRINT
OPEN
CLOSE
FORMAT
REWIND
INCLUDE

[keywords 2] types and intrinsic functions
INTEGER
REAL
DOUBLE PRECISION
COMPLEX
LOGICAL
CHARACTER
TYPE
ABS
SQRT
EXP
LOG
LOG10
SIN
COS
TAN
ASIN
ACOS
ATAN
ATAN2
MOD
MAX
MIN
INT
NINT
FLOAT
DBLE
LEN
INDEX
TRIM
SIZE
SUM
SHAPE

[keywords 3] operators and logical constants
.AND.
.OR.
.NOT.
.EQV.
.NEQV.
.EQ.
.NE.
.LT.
.LE.
.GT.
.GE.
.TRUE.
.FALSE.

[delimiters]
delimiter1  "    "
comment     !    \n

name: CICODE Default Profile
case-sensitive: no
code-order: yes

[keywords 1] statements and declarations
FUNCTION
END
RETURN
IF
THEN
ELSE
WHILE
DO
FOR
TO
SELECT CASE
CASE
END SELECT
PUBLIC
PRIVATE
GLOBAL
MODULE
INT
REAL
STRING
OBJECT
QUALITY
TIMESTAMP

[keywords 2] built-in functions
Message
Prompt
Beep
Sleep
SleepMS
TaskNew
TaskKill
TaskHnd
DspStr
DspText
DspGetAnCur
PageDisplay
PageGoto
PageLast
PageNext
PagePrev
StrToInt
IntToStr
StrToReal
RealToStr
StrLeft
StrRight
StrMid
StrLength
StrSearch
StrTrim
StrUpper
StrLower
TimeCurrent
TimeToStr
Date
Time
ErrSet
IsError
TagRead
TagWrite
FileOpen
FileClose
FileReadLn
FileWriteLn
FileSeek
FileSize
Login
Logout
Shutdown
AlarmAck
AlarmDisable
AlarmEnable

[keywords 3] operators
AND
OR
NOT
MOD
BITAND
BITOR
BITXOR

[delimiters]
delimiter1  "    "
comment     /*   */
comment     //   \n
comment     !    \n

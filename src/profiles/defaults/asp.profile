name: ASP Default Profile
case-sensitive: no
code-order: yes

# Active Server Pages: VBScript inside HTML. The script's own comment mark, the apostrophe,
# is left out: in the HTML around it an apostrophe is ordinary text.

[keywords 1] VBScript statements
Dim
ReDim
Preserve
Const
Set
Let
Call
Sub
Function
Property
Get
End
Exit
If
Then
Else
ElseIf
Select
Case
For
Each
In
To
Step
Next
Do
Loop
While
Wend
Until
With
Class
Public
Private
On Error Resume Next
Option Explicit
Rem
Nothing
Null
Empty
True
False
And
Or
Not
Xor
Mod
Is

[keywords 2] ASP objects, their members and VBScript functions
Response
Request
Server
Session
Application
ObjectContext
Write
Redirect
Buffer
Flush
Clear
ContentType
Cookies
Form
QueryString
ServerVariables
CreateObject
MapPath
HTMLEncode
URLEncode
Abandon
SessionID
Timeout
Lock
Unlock
CInt
CLng
CStr
CDbl
CBool
CDate
Len
Left
Right
Mid
InStr
Replace
Trim
UCase
LCase
Split
Join
IsNull
IsEmpty
IsNumeric
IsArray
Now
Date
Time
Year
Month
Day

[keywords 3] script markers and HTML tags
<%
<%=
%>
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

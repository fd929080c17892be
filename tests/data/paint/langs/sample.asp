<%@ Language="VBScript" %>
<!-- The guest book's front page: it doesn't need a login. -->
<html>
<head><title>Guest book</title></head>
<body bgcolor="#ffffff">
<%
Dim conn, rs
Set conn = Server.CreateObject("ADODB.Connection")
conn.Open "guests"
Set rs = conn.Execute("SELECT name, said FROM entries")
Do While Not rs.EOF
    Response.Write "<p class=""entry"">" & rs("name") & ": " & rs("said") & "</p>"
    rs.MoveNext
Loop
rs.Close
conn.Close
%>
<form method="post" action="sign.asp">
<input type="text" name="name" size="30">
<input type="submit" value="Sign">
</form>
</body>
</html>

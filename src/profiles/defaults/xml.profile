name: XML Default Profile
case-sensitive: yes
code-order: no

# Text between tags is prose: apostrophes get no pair. Tags go first, their attribute values
# over them, comments last; the keywords are painted after the pairs, as they stand inside tags.

[keywords 1] declarations and sections
<?xml
?>
<!DOCTYPE
<![CDATA[
]]>

[keywords 2] declaration attributes and namespaces
version
encoding
standalone
xmlns
xmlns:xsi
xsi:schemaLocation

[keywords 3] entities
&amp;
&lt;
&gt;
&quot;
&apos;

[delimiters]
delimiter2  <    >
delimiter1  "    "
comment     <!-- -->

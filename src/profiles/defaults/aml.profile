name: AML Default Profile
case-sensitive: no
code-order: yes

# The ARC Macro Language. Functions stand in square brackets; the entries keep the opening
# bracket, because a bracket is no word boundary to the painter.

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Strings in double quotes keep theirs.

[keywords 1] directives
&args
&call
&routine
&return
&if
&then
&else
&end
&do
&while
&until
&to
&by
&list
&repeat
&select
&when
&otherwise
&goto
&label
&sv
&setvar
&s
&dv
&type
&ty
&echo
&messages
&severity
&error
&warning
&run
&r
&stop
&pause
&tty
&watch
&data
&system
&sys
&workspace
&ws
&station
&terminal
&menu
&thread

[keywords 2] functions
[after
[before
[calc
[close
[date
[delete
[dir
[entryname
[exists
[extract
[filelist
[format
[getchoice
[getfile
[getitem
[getstring
[index
[joinfile
[keyword
[length
[listfile
[listitem
[locase
[null
[open
[query
[quote
[read
[response
[search
[show
[sort
[subst
[substr
[token
[translate
[trim
[type
[unquote
[upcase
[value
[variable
[verify
[write

[keywords 3] operators
and
or
not
xor
eq
ne
lt
le
gt
ge
in
cn
nc
.true.
.false.

[delimiters]
delimiter1  "    "
delimiter2  %    %
comment     /*   \n

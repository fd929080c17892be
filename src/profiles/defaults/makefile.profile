name: Makefile Default Profile
case-sensitive: yes
code-order: yes

# Recipes are shell lines, whose apostrophes would pair across the file: single quotes get no
# pair. Variable references stand out, comments come last.

[keywords 1] directives and special targets
ifeq
ifneq
ifdef
ifndef
else
endif
include
-include
sinclude
define
endef
export
unexport
override
vpath
.PHONY
.SUFFIXES
.DEFAULT
.PRECIOUS
.INTERMEDIATE
.SECONDARY
.DELETE_ON_ERROR
.ONESHELL

[keywords 2] functions
subst
patsubst
strip
findstring
filter
filter-out
firstword
lastword
wordlist
words
notdir
suffix
basename
addsuffix
addprefix
wildcard
realpath
abspath
foreach
call
origin
flavor
shell
error
warning

[keywords 3] automatic and conventional variables
$@
$<
$^
$?
$*
$+
CC
CXX
CFLAGS
CXXFLAGS
CPPFLAGS
LDFLAGS
LDLIBS
MAKE
MAKEFLAGS
RM
AR
PREFIX
DESTDIR

[delimiters]
delimiter1  "    "
delimiter2  $(   )
delimiter2  ${   }
comment     #    \n

#!/bin/bash
# kestrum-do compare end to end: the rows of the results window as lines, the exit status, and
# no message on stderr but a usage error.
source "$(dirname "$0")/../support/do_cases.sh"
W="$(mktemp -d /tmp/kestrum-do-compare-XXXXXX)"
trap 'rm -rf "$W"' EXIT
printf 'a\n  b\n' >"$W/one"
printf 'A\nb\nc\n' >"$W/two"
: >"$W/empty1"
: >"$W/empty2"
printf 'x\r\n\r\n  \r\ny  \r\n\r\n' >"$W/blanks"
printf 'x\ny\nz' >"$W/plain"
printf 'b\0in\xff\n' >"$W/bin"

# check STATUS OUT ERR INPUT ARG... (see do_cases.sh); the files compared are those above.
check 0 '1 1 1 1 a A\n2 2 1 1 b b\n' '' '' compare --case-sensitive "$W/two" "$W/one"
check 0 '1 2 1 1 a A\n2 2 1 1 b b\n' '' '' compare "$W/two" "$W/one"
check 0 '1 1 1 1 a A\n' '' '' compare --show-different --case-sensitive "$W/two" "$W/one"
check 0 '1 2 0 0  \n' '' '' compare "$W/empty1" "$W/empty2"
check 0 '' '' '' compare --show-different "$W/empty1" "$W/empty2"
check 0 '1 2 0 0  \n' '' '' --select 1 2 compare "$W/empty1" "$W/empty2"
check 0 '1 2 1 1 x x\n2 1 0 1  y\n3 1 0 1  z\n' '' '' compare "$W/plain" "$W/blanks"
check 0 '1 2 1 1 x x\n2 2 1 1 y y\n3 1 0 1  z\n' '' '' \
    compare --ignore-blanks "$W/plain" "$W/blanks"
check 0 '1 2 1 1 x x\n2 2 1 1 y y\n3 2 1 1 z z\n' '' '' compare "$W/plain" "$W/plain"
check 0 '1 1 5 1 b\0in\xff x\n' '' '' compare "$W/plain" "$W/bin"
check 0 '1 1 1 0 x \n' '' '' compare "$W/missing" "$W/plain"
check 0 '1 1 0 1  x\n' '' '' compare "$W/plain" "$W/missing"
check 0 '1 1 1 0 a \n' '' '' compare "$W" "$W/one"
check 2 '' '' '' compare --bogus "$W/two" "$W/one"
check 2 '' '' '' compare "$W/one"
check 2 '' '' '' compare "$W/one" "$W/two" "$W/one"
finish

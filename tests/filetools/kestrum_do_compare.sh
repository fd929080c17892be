#!/bin/bash
# kestrum-do compare end to end: the rows of the results window as lines, the exit status and
# nothing on stderr but a usage error.
set -uo pipefail
DO="$1"
WORK="$(mktemp -d /tmp/kestrum-do-compare-XXXXXX)"
trap 'rm -rf "$WORK"' EXIT
export XDG_CONFIG_HOME="$WORK/config" HOME="$WORK/home" XDG_RUNTIME_DIR="$WORK/run"
export QT_QPA_PLATFORM=offscreen ASAN_OPTIONS="${ASAN_OPTIONS:-}:detect_leaks=0"
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
cd "$WORK" || exit 1
printf 'a\n  b\n' >one
printf 'A\nb\nc\n' >two
: >empty1
: >empty2
printf 'x\r\n\r\n  \r\ny  \r\n\r\n' >blanks
printf 'x\ny\nz' >plain
printf 'b\0in\xff\n' >bin
failures=0

# check NAME EXPECTED_STDOUT EXPECTED_STATUS ARGS... (the expectation is a printf format)
check() {
    local name="$1" out="$2" status="$3"
    shift 3
    "$DO" "$@" >"$WORK/out" 2>"$WORK/err"
    local got=$?
    if [ "$got" != "$status" ]; then
        echo "FAIL $name: status $got, wanted $status ($(head -c 300 "$WORK/err"))"
        failures=$((failures + 1)); return
    fi
    if ! cmp -s "$WORK/out" <(printf "$out"); then
        echo "FAIL $name: stdout"; od -c "$WORK/out" | head -5
        failures=$((failures + 1)); return
    fi
    local errLines; errLines=$(wc -l <"$WORK/err")
    if [ "$status" = 0 ] && [ -s "$WORK/err" ]; then
        echo "FAIL $name: stderr"; cat "$WORK/err"; failures=$((failures + 1))
    elif [ "$status" != 0 ] && [ "$errLines" != 1 ]; then
        echo "FAIL $name: wanted one error line"; cat "$WORK/err"; failures=$((failures + 1))
    fi
}

check case-sensitive '1 1 1 1 a A\n2 2 1 1 b b\n' 0 compare --case-sensitive two one
check case-blind '1 2 1 1 a A\n2 2 1 1 b b\n' 0 compare two one
check only-different '1 1 1 1 a A\n' 0 compare --show-different --case-sensitive two one
check two-empty '1 2 0 0  \n' 0 compare empty1 empty2
check two-empty-only-different '' 0 compare --show-different empty1 empty2
check select-changes-nothing '1 2 0 0  \n' 0 --select 1 2 compare empty1 empty2
check blank-lines-kept '1 2 1 1 x x\n2 1 0 1  y\n3 1 0 1  z\n' 0 compare plain blanks
check blank-lines-skipped '1 2 1 1 x x\n2 2 1 1 y y\n3 1 0 1  z\n' 0 \
    compare --ignore-blanks plain blanks
check itself '1 2 1 1 x x\n2 2 1 1 y y\n3 2 1 1 z z\n' 0 compare plain plain
check binary '1 1 5 1 b\0in\xff x\n' 0 compare plain bin
check missing-file '1 1 1 0 x \n' 0 compare "$WORK/missing" plain
check missing-first '1 1 0 1  x\n' 0 compare plain "$WORK/missing"
check folder-as-file '1 1 1 0 a \n' 0 compare "$WORK" one
check unknown-option '' 2 compare --bogus two one
check missing-argument '' 2 compare one
check extra-argument '' 2 compare one two one

if [ "$failures" != 0 ]; then echo "$failures case(s) failed"; exit 1; fi
echo "all cases passed"

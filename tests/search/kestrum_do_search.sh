#!/bin/bash
# kestrum-do's search subcommands end to end: each case runs the program on a file and
# compares its standard output, its message lines and its exit status.
set -uo pipefail
DO="$1"
WORK="$(mktemp -d /tmp/kestrum-do-search-XXXXXX)"
trap 'rm -rf "$WORK"' EXIT
export XDG_CONFIG_HOME="$WORK/config" HOME="$WORK/home" XDG_RUNTIME_DIR="$WORK/run"
export QT_QPA_PLATFORM=offscreen ASAN_OPTIONS="${ASAN_OPTIONS:-}:detect_leaks=0"
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
failures=0

# check NAME INPUT EXPECTED_STDOUT EXPECTED_STDERR EXPECTED_STATUS ARGS...
# INPUT and the expectations are printf formats; "*" as EXPECTED_STDERR takes any.
check() {
    local name="$1" input="$2" out="$3" err="$4" status="$5"
    shift 5
    printf "$input" >"$WORK/in.txt"
    local args=()
    for a in "$@"; do args+=("${a//@FILE@/$WORK/in.txt}"); done
    "$DO" "${args[@]}" >"$WORK/out" 2>"$WORK/err"
    local got=$?
    if [ "$got" != "$status" ]; then
        echo "FAIL $name: status $got, wanted $status ($(head -c 300 "$WORK/err"))"
        failures=$((failures + 1)); return
    fi
    if ! cmp -s "$WORK/out" <(printf "$out"); then
        echo "FAIL $name: stdout"; od -c "$WORK/out" | head -5
        failures=$((failures + 1)); return
    fi
    if [ "$err" != "*" ] && ! cmp -s "$WORK/err" <(printf "$err"); then
        echo "FAIL $name: stderr"; cat "$WORK/err"
        failures=$((failures + 1))
    fi
}

NF='message: Search Text not found.\n'
check find-overlapping 'aaaa' '0 2\n1 2\n2 2\n2 2\n0 2\n' "$NF" 0 \
    find --press FNNNN aa @FILE@
check find-whole-word-case 'Abc xAbcx abc ABC' '10 3\n' '' 0 \
    find --whole-word --case-sensitive abc @FILE@
check find-ex-lines 'foo\nbar foo\nBAR' '0 8\n9 8\n9 8\n9 8\n' "$NF$NF" 0 \
    find-ex --press fnnn $'Foo\r\nBar' @FILE@
check find-next-menu 'Abc xAbcx ABC' '10 3\n10 3\n' 'message: No more occurrences after cursor.\n' 0 \
    --select 0 3 find-next-menu --last abc --times 2 @FILE@
check replace-all 'ABC abc\n' 'x x\r\n' 'message: All occurrences replaced.\n' 0 \
    replace-all abc x @FILE@
check replace-all-case 'ABC abc' 'ABC x' 'message: All occurrences replaced.\n' 0 \
    replace-all --case-sensitive abc x @FILE@
check replace-all-selection 'a.a.a' 'a.b.a' 'message: All occurrences replaced.\n' 0 \
    --select 1 3 replace-all --in-selection a b @FILE@
P='message: Do you wish to replace this occurrence?\n'
check replace-active-stays 'xa' 'xaaa' "$P$P$P" 0 replace --answers yy a aa @FILE@
check replace-all-files-moves 'xa' 'xaa' "$P" 0 replace --all-open-files --answers Y a aa @FILE@
check pattern 'xa1b a2b' '1 1\n5 1\n5 1\n' 'message: Search Text not found.\n' 0 \
    find-pattern --press FNN 'a#b' @FILE@
check goto-line 'one\ntwo\n' '5 3\n' '' 0 goto-line 2abc @FILE@
check goto-line-missing 'one\n' '0 0\n' 'message: That line does not exist in the current file.\n' 0 \
    goto-line '' @FILE@
check goto-line-last 'one\ntwo\n' '10 0\n' '' 0 goto-line 3 @FILE@
check goto-line-past 'one\ntwo\n' '0 0\n' 'message: That line does not exist in the current file.\n' 0 \
    goto-line 4 @FILE@
check goto-char 'abc' '2 1\n' '' 0 goto-char 3 @FILE@
check goto-char-past 'one\ntwo\n' '0 0\n' 'message: That character does not exist in the current file.\n' 0 \
    goto-char 11 @FILE@
check goto-char-zero 'abc' '0 0\n' 'message: That character does not exist in the current file.\n' 0 \
    goto-char 0 @FILE@
check bad-press 'a' '' '*' 2 find --press X a @FILE@
check bad-answers 'a' '' '*' 2 replace --answers Q a b @FILE@
check bad-times 'a' '' '*' 2 find-next-menu --times 0 @FILE@
check extra-arg 'a' '' '*' 2 goto-char 1 2 @FILE@

mkdir -p "$WORK/tree/sub" && printf 'int foo;\n' >"$WORK/tree/b.c" &&
    printf 'foo\nx foo\n' >"$WORK/tree/sub/a.h" && printf 'foo' >"$WORK/tree/c.txt"
check find-in-files '' "$WORK/tree/b.c:1:5\n$WORK/tree/sub/a.h:1:1\n$WORK/tree/sub/a.h:2:3\n" '' 0 \
    find-in-files --filter '*.c;*.h' foo "$WORK/tree"
check find-in-files-missing '' '' '*' 2 find-in-files foo "$WORK/none"

[ "$failures" = 0 ] || { echo "$failures failures"; exit 1; }
echo "all cases passed"

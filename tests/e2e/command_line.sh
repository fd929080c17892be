#!/usr/bin/env bash
# Starts the editor with a file on its command line, checks that it loaded the file (its
# backup copy appears), and that closing writes the window keys.
source "$(dirname "$0")/lib.sh"

printf 'int main() {\n  return 0;\n}\n' > "$WORK/hello world.c"
"$KESTRUM" "$WORK/hello world.c" &
PIDS+=($!)
main_pid=$!
win=$(wait_for_window "Kestrum$") || fail "no main window"
[ -f "$XDG_CONFIG_HOME/Kestrum.ini" ] || fail "no settings written at start"

# The end of the session (TERM) closes the editor as the user would.
kill -TERM "$main_pid"
wait_gone "$main_pid" || fail "editor did not close"
[ -n "$(settings_value MainWidth)" ] || fail "MainWidth not written at close"

# Backups on: the command-line load then writes "name~" at once.
sed -i 's/^\[Settings\]/[Settings]\nBackup = True/' "$XDG_CONFIG_HOME/Kestrum.ini"
"$KESTRUM" "\"$WORK/hello world.c\"" &
PIDS+=($!)
main_pid=$!
wait_for_window "Kestrum$" >/dev/null || fail "no main window on the second start"
for _ in $(seq 1 50); do [ -f "$WORK/hello world.c~" ] && break; sleep 0.2; done
[ -f "$WORK/hello world.c~" ] || fail "the file named on the command line was not loaded"
cmp -s "$WORK/hello world.c~" "$WORK/hello world.c" ||
    fail "backup does not hold the loaded text"
kill -TERM "$main_pid"
wait_gone "$main_pid" || fail "editor did not end on TERM"

# A name that is not UTF-8 (Latin-1 "café") is loaded, shown readably, and kept as its bytes
# in the recent files.
latin1="$WORK/caf"$'\xe9'".txt"
printf 'latin\n' >"$latin1"
"$KESTRUM" "$latin1" &
PIDS+=($!)
main_pid=$!
wait_for_window "^café\.txt - Kestrum$" >/dev/null || fail "no window showing café.txt"
[ -f "$latin1~" ] || fail "the file with a Latin-1 name was not loaded"
kill -TERM "$main_pid"
wait_gone "$main_pid" || fail "editor did not end on TERM"
[ "$(settings_value RecentFile1)" = "$latin1" ] || fail "the recent file lost its bytes"

# start_then_term FILE TITLE WHEN: starts the editor on FILE, sends TERM as soon as a window
# titled TITLE shows, and checks that the editor ends and its close still writes the window keys.
start_then_term() {
    sed -i '/^MainWidth/d' "$XDG_CONFIG_HOME/Kestrum.ini"
    "$KESTRUM" "$1" &
    PIDS+=($!)
    main_pid=$!
    wait_for_window "$2" >/dev/null || fail "no window $3"
    kill -TERM "$main_pid"
    wait_gone "$main_pid" || fail "editor did not end on TERM $3"
    [ -n "$(settings_value MainWidth)" ] || fail "MainWidth not written at a TERM $3"
}

# A TERM while a start-up message box waits for its answer (a missing file) ends the program.
start_then_term "$WORK/missing/x.c" "^Kestrum$" "during a start-up message box"

# A TERM that comes while a large file is still being loaded and coloured is served once
# the editor can close.
{ yes 'int f(int x) { /* comment */ return x + 1; } // line' || true; } | head -c 10000000 > "$WORK/big.c"
start_then_term "$WORK/big.c" "Kestrum$" "while colouring"
echo "1 passed, 0 failed"

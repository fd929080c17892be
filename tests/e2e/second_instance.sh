#!/usr/bin/env bash
# Later starts and kestrum-send hand their requests to the running editor: the second process
# ends without a window, the file opens in the first one (its backup copy appears), piped text
# makes a document, and a socket left behind by a killed editor does not stop the next start.
source "$(dirname "$0")/lib.sh"
KESTRUM="$(realpath "$KESTRUM")" SEND="$(realpath "$2")"

count_windows() { xdotool search --onlyvisible --name 'Kestrum$' 2>/dev/null | wc -l; }

# start_editor [ARGS...]: starts a first instance and waits for its window.
start_editor() {
    "$KESTRUM" "$@" &
    PIDS+=($!)
    main_pid=$!
    wait_for_window "Kestrum$" >/dev/null || fail "no main window"
}

# later_start ARGS...: a later start must end by itself, with status 0.
later_start() {
    local status=0
    timeout 30 "$KESTRUM" "$@" || status=$?
    [ "$status" -eq 0 ] || fail "a later start ended with status $status"
}

# With no editor, kestrum-send says so and fails.
status=0
"$SEND" ABORTCMD </dev/null 2>"$WORK/err" || status=$?
[ "$status" -eq 1 ] || fail "kestrum-send without an editor: status $status"
grep -q 'no Kestrum editor is running' "$WORK/err" || fail "no message: $(cat "$WORK/err")"

# A first start writes the settings; backups on make every load visible as "name~".
start_editor
kill -TERM "$main_pid"
wait_gone "$main_pid" || fail "editor did not close"
sed -i 's/^\[Settings\]/[Settings]\nBackup = True/' "$XDG_CONFIG_HOME/Kestrum.ini"
start_editor

# A later start with a file: it ends, the first instance opens the file.
printf 'first line\nsecond line\n' >"$WORK/second start.txt"
later_start "$WORK/second start.txt"
cmp -s "$WORK/second start.txt~" "$WORK/second start.txt" ||
    fail "the file of the later start was not opened by the first instance"
[ "$(count_windows)" -eq 1 ] || fail "expected one main window, found $(count_windows)"
kill -0 "$main_pid" || fail "the first instance is gone"

# A relative name is the later start's, not the first instance's working folder.
mkdir -p "$WORK/sub"
printf 'relative\n' >"$WORK/sub/rel.txt"
(cd "$WORK/sub" && later_start rel.txt)
[ -f "$WORK/sub/rel.txt~" ] || fail "a relative name was not taken from the later start's folder"

# A later start without arguments is taken too, and opens no window of its own. (Whether the
# window comes forward needs a window manager; the request tests check it in-process.)
later_start
[ "$(count_windows)" -eq 1 ] || fail "a later start without arguments made a window"
kill -0 "$main_pid" || fail "the first instance is gone"

# kestrum-send: a file, piped text, and words the editor ignores.
printf 'sent\n' >"$WORK/sent.txt"
(cd "$WORK" && "$SEND" LOADFILE sent.txt) || fail "kestrum-send LOADFILE failed"
[ -f "$WORK/sent.txt~" ] || fail "kestrum-send LOADFILE did not open the file"
latin1="caf"$'\xe9'".txt" # a name that is not UTF-8 goes over as its bytes
printf 'latin\n' >"$WORK/$latin1"
(cd "$WORK" && "$SEND" LOADFILE "$latin1") || fail "kestrum-send LOADFILE (Latin-1 name) failed"
[ -f "$WORK/$latin1~" ] || fail "kestrum-send LOADFILE did not open a file named in Latin-1"
echo "piped text" | "$SEND" MAKEFILE || fail "kestrum-send MAKEFILE failed"
"$SEND" NOTAWORD </dev/null || fail "an ignored word is still taken"

# Only the piped document is unsaved: closing the editor asks about it.
kill -TERM "$main_pid"
wait_for_window "^Save Changes\?" >/dev/null || fail "the piped text made no document"

# A killed editor leaves its socket; the next start takes the name over.
kill -KILL "$main_pid"
wait_gone "$main_pid" || fail "editor did not die"
[ -S "$XDG_RUNTIME_DIR/Kestrum-$(id -u).sock" ] || fail "no socket was left behind"
status=0
"$SEND" ABORTCMD </dev/null 2>/dev/null || status=$?
[ "$status" -eq 1 ] || fail "kestrum-send to a dead editor: status $status"
start_editor
"$SEND" ABORTCMD </dev/null || fail "the new first instance does not take requests"
kill -TERM "$main_pid"
wait_gone "$main_pid" || fail "editor did not end on TERM"
echo "1 passed, 0 failed"

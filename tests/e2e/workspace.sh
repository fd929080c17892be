#!/usr/bin/env bash
# Starts the editor with a workspace file on its command line. A workspace whose second entry
# is missing loads the first and then shows the load error in a box of its own. (What a whole
# one loads, with no box, is the workspace commands' test.)
source "$(dirname "$0")/lib.sh"

# The load step runs before the main window shows, so a load error's box is the first window;
# it is told from the main window (nine tenths of the screen, or maximised) by its width.
width_of() { xdotool getwindowgeometry "$1" | sed -n 's/.*Geometry: \([0-9]*\)x.*/\1/p'; }
wide_window() { # the id of a visible "... Kestrum" window at least 800 pixels wide
    for _ in $(seq 1 50); do
        for w in $(xdotool search --onlyvisible --name 'Kestrum$' 2>/dev/null); do
            [ "$(width_of "$w")" -ge 800 ] && { echo "$w"; return 0; }
        done
        sleep 0.2
    done
    return 1
}

printf 'int main() {\n  return 0;\n}\n' > "$WORK/a.c"
printf 'a.c\r\n%s\r\nb.c\r\n%s\r\n' "$WORK/a.c" "$WORK/missing.c" > "$WORK/broken.KWS"
"$KESTRUM" "$WORK/broken.KWS" &
PIDS+=($!)
main_pid=$!
box=$(wait_for_window 'Kestrum$') || fail "no window at all"
[ "$(width_of "$box")" -lt 800 ] || fail "no error box for the missing workspace entry"
xdotool windowfocus --sync "$box" && xdotool key Return
wide_window >/dev/null || fail "no main window after the error box"
kill -0 "$main_pid" || fail "the editor ended after the failed workspace"
kill -TERM "$main_pid"
wait_gone "$main_pid" || fail "editor did not close"
echo "1 passed, 0 failed"

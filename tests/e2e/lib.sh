# Helpers for end-to-end runs: a private home for settings, and waiting for windows.
set -euo pipefail
KESTRUM="$1"
WORK="$(mktemp -d /tmp/kestrum-e2e-XXXXXX)"
export HOME="$WORK/home" XDG_CONFIG_HOME="$WORK/config" XDG_RUNTIME_DIR="$WORK/run"
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
# No start-up tip: the runs drive the main window itself.
printf '[Options]\nShow Tips at Startup = 0\n' >"$XDG_CONFIG_HOME/Kestrum.ini"
unset QT_QPA_PLATFORM # a real window on the virtual X server
export ASAN_OPTIONS="${ASAN_OPTIONS:-}:detect_leaks=0"
cleanup() { kill "${PIDS[@]}" 2>/dev/null || true; rm -rf "$WORK"; }
PIDS=()
trap cleanup EXIT

fail() { echo "FAIL: $*" >&2; exit 1; }

# wait_for_window TITLE: the id of a visible top-level window whose title matches.
wait_for_window() {
    local id=""
    # Generous limits: a loaded machine running the sanitizer build is slow to start.
    for _ in $(seq 1 300); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n1 || true)
        [ -n "$id" ] && { echo "$id"; return 0; }
        sleep 0.2
    done
    return 1
}

# wait_gone PID: waits until the process has ended.
wait_gone() {
    for _ in $(seq 1 300); do
        kill -0 "$1" 2>/dev/null || return 0
        sleep 0.2
    done
    return 1
}

settings_value() { # KEY: the stored value of a key in section Settings
    sed -n "s/^$1 *= *//p" "$XDG_CONFIG_HOME/Kestrum.ini" | head -n1
}

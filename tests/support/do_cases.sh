# Runs kestrum-do cases against the built binary, each in a fresh folder with a first-start
# home. Sourced by the per-subsystem scripts, which call `check` once per row and `finish`.
#   check STATUS OUT ERR INPUT ARG...
# OUT and INPUT are printf formats; ERR is a printf format of a line stderr must contain
# (empty: stderr holds no "message: " or "selection " line). In ARGs, "@" stands for FILE.
DO_BIN=$1
failures=0
cases=0

check() {
    local status=$1 out=$2 err=$3 input=$4
    shift 4
    cases=$((cases + 1))
    local dir
    dir=$(mktemp -d)
    mkdir -p "$dir/home" "$dir/work"
    printf "$input" > "$dir/work/file.txt"
    local args=()
    for a in "$@"; do [[ $a == @ ]] && args+=("$dir/work/file.txt") || args+=("$a"); done
    (cd "$dir/work" && HOME="$dir/home" XDG_CONFIG_HOME="$dir/home/.config" \
        XDG_DATA_HOME="$dir/home/.local/share" XDG_CACHE_HOME="$dir/home/.cache" \
        QT_QPA_PLATFORM=offscreen DISPLAY= timeout 30 "$DO_BIN" "${args[@]}" \
        > "$dir/out" 2> "$dir/err" < /dev/null)
    local got=$?
    printf "$out" > "$dir/want"
    local ok=1
    [[ $got == "$status" ]] || ok=0
    cmp -s "$dir/out" "$dir/want" || ok=0
    if [[ -n $err ]]; then
        grep -qxF -- "$(printf "$err")" "$dir/err" || ok=0
    else
        grep -qE '^(message: |selection )' "$dir/err" && ok=0
    fi
    if [[ $status == 2 && $(wc -l < "$dir/err") != 1 ]]; then ok=0; fi
    if ((!ok)); then
        failures=$((failures + 1))
        echo "FAIL: $* (status $got, want $status)"
        echo "  stdout: $(od -c "$dir/out" | head -5)"
        echo "  want:   $(od -c "$dir/want" | head -5)"
        echo "  stderr: $(cat "$dir/err")"
    fi
    rm -rf "$dir"
}

finish() {
    echo "$cases cases, $failures failed"
    ((failures == 0))
}

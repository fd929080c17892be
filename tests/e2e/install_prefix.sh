#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks the layout: the programs on bin/, the
# shipped data under share/kestrum, a valid desktop entry, the icons; then the installed
# kestrum-paint colours a C file by its extension from the installed profiles, as the build's
# own one does.
set -euo pipefail
build="$1"
sample="$2"
work=$(mktemp -d /tmp/kestrum-install-XXXXXX)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$work/prefix" >"$work/install.log" || {
    cat "$work/install.log" >&2
    fail "cmake --install failed"
}
p="$work/prefix"
for f in bin/kestrum bin/kestrum-paint bin/kestrum-send; do
    [ -x "$p/$f" ] || fail "$f missing"
done
for f in share/kestrum/Kestrum.dat share/kestrum/Help/index.htm "share/kestrum/PROFILES/C and C++ Default Profile" \
         share/applications/kestrum.desktop share/icons/hicolor/scalable/apps/kestrum.svg; do
    [ -f "$p/$f" ] || fail "$f missing"
done
for size in 16 22 24 32 48 64 128 256; do
    png="$p/share/icons/hicolor/${size}x${size}/apps/kestrum.png"
    [ -f "$png" ] || fail "$size px icon missing"
    # The PNG header holds the width and height at bytes 16 to 23.
    [ "$(od -An -tx1 -j16 -N8 "$png" | tr -d ' \n')" = "$(printf '%08x%08x' "$size" "$size")" ] ||
        fail "$size px icon has another size"
done
[ -e "$p/share/kestrum/Help/help.htm" ] && fail "the generated help page was installed"
if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$p/share/applications/kestrum.desktop" | grep -v ': hint: ' && \
        fail "desktop entry not valid" || true
fi

# A home of its own, so that no profile of the user's shadows the shipped one.
mkdir -p "$work/home"
cp "$sample" "$work/sample.c"
run() { env -i PATH=/usr/bin:/bin HOME="$work/home" XDG_CONFIG_HOME="$work/home/config" \
            XDG_DATA_HOME="$work/home/data" ASAN_OPTIONS=detect_leaks=0 "$@"; }
run "$p/bin/kestrum-paint" "$work/sample.c" >"$work/installed.runs" || fail "installed kestrum-paint failed"
run "$build/kestrum-paint" "$work/sample.c" >"$work/built.runs" || fail "kestrum-paint of the build failed"
cmp -s "$work/installed.runs" "$work/built.runs" || fail "installed kestrum-paint colours otherwise"
# Keywords, comments and plain text at least: the profile was found, not the defaults.
[ "$(awk '{print $3}' "$work/installed.runs" | sort -u | wc -l)" -ge 3 ] ||
    fail "the C file was not coloured by its profile"
# A profile the user saved shadows the shipped one of the same name.
mkdir -p "$work/home/data/kestrum/PROFILES"
cp "$p/share/kestrum/PROFILES/Text Files - No Syntax" "$work/home/data/kestrum/PROFILES/C and C++ Default Profile"
run "$p/bin/kestrum-paint" "$work/sample.c" >"$work/shadowed.runs" || fail "shadowed run failed"
cmp -s "$work/installed.runs" "$work/shadowed.runs" && fail "the user's profile was not read first"
echo "install layout: 1 passed, 0 failed"

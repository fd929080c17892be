#!/usr/bin/env bash
# Sets up the machine, builds Kestrum (release) and starts it, passing the arguments on.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/setup.sh"
cmake -S "$root" -B "$root/build/release" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$root/build/release" --target kestrum -j "$(nproc)"
exec "$root/build/release/kestrum" "$@"

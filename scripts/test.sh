#!/usr/bin/env bash
# Sets up the machine, builds everything with AddressSanitizer and UndefinedBehaviorSanitizer,
# and runs every test through CTest (GUI tests headless, end-to-end ones under xvfb-run).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/setup.sh"
build="$root/build/test"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DKESTRUM_SANITIZE=ON -DKESTRUM_WERROR=ON >/dev/null
cmake --build "$build" -j "$(nproc)"
export ASAN_OPTIONS="detect_leaks=0:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
cd "$build"
ctest --output-on-failure -j "$(nproc)" "$@"

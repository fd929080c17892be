#!/usr/bin/env bash
# Installs from Debian's packages whatever this machine lacks to build, run and test Kestrum.
# Does nothing when everything is already there.
set -euo pipefail

packages=(cmake g++ make ccache qt6-base-dev libqt6svg6 libqscintilla2-qt6-dev libsimpleini-dev libgtest-dev
          xvfb xauth xdotool desktop-file-utils dpkg-dev libx11-dev)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"

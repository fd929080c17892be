#!/bin/sh
# Backs up the user's config folder; it won't overwrite an existing archive.
set -eu

src="${HOME}/.config"
dest="${1:-/tmp}/config-$(date +%Y%m%d).tar.gz"

if [ -e "$dest" ]; then
    echo "already there: $dest" >&2
    exit 1
fi

for dir in "$src"/*; do
    case "$dir" in
        *cache*) continue ;;
    esac
    echo 'adding' "$dir"
done
tar -czf "$dest" -C "$src" . && echo "wrote $dest"

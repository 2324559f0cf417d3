#!/usr/bin/env bash
# Compiles docs/ktl.ksy with the compiler of Kaitai Struct, reads an export of each sample, of each real ESI file where
# their folder is there, and of odd and broken files, and compares every field with what `ktl show` tells.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/common.sh"
no_arguments "$@"

ktl=$PWD/build/dev/bin/ktl # the one that ./test builds
tools=build/kaitai
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The packages, of the versions that the list beside the scripts pins, go where everything goes that is built.
install_tools()
{
    mkdir -p "$tools"
    cp scripts/kaitai/package{,-lock}.json "$tools"
    (cd "$tools" && npm ci --ignore-scripts --no-audit --no-fund --loglevel=error)
}

# A file that is not well formed gives no export.
export_files()
{
    local file exported=0
    for file in samples/*.xml "${KINETRA_ESI_DIR:-../shared/esi}"/*.xml; do
        [[ -e $file && $file != *_bad* ]] || continue
        "$ktl" convert "$file" -o "$work/$(basename "$file" .xml).ktl" 2>"$work/messages" || fail "$(<"$work/messages")"
        rm "$work/$(basename "$file" .xml).ktl.txt"
        exported=$((exported + 1))
    done
    ((exported >= 5)) || fail "Only $exported files were exported."
}

[[ -x $ktl ]] || build dev
install_tools
export_files
NODE_PATH=$PWD/$tools/node_modules node scripts/kaitai/compare.js "$ktl" "$work"

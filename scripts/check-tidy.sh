#!/usr/bin/env bash
# Runs clang-tidy over the C++ files of src, with the compile commands of the dev build; any warning fails. It takes
# no arguments.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/common.sh"
no_arguments "$@"

build dev # the headers that Qt's tools generate have to be there
stage 'clang-tidy'
mapfile -d '' files < <(sources src | grep -z '\.cpp$')
[[ ${#files[@]} -gt 0 ]] || fail 'No C++ files to check.'
# One file per call keeps all cores busy to the end. How many warnings were passed over in Qt's headers is of no use.
printf '%s\0' "${files[@]}" \
    | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/dev --quiet 2> >(grep -v 'generated\.$' >&2)
printf '%d files looked at.\n' "${#files[@]}"

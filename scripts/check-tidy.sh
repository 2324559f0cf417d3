#!/usr/bin/env bash
# Runs clang-tidy over the C++ files of src; any warning fails. It takes no arguments.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/common.sh"
no_arguments "$@"

# Looks at one batch: a generated source that includes sources of src, so that the headers they share are read once.
# Hidden names of two sources may clash in a batch, so where it has findings its sources decide one by one.
check_batch()
{
    local source sources
    clang-tidy -p build/lint --quiet --checks=-bugprone-suspicious-include \
        --extra-arg=-isystem"$PWD"/build/dev/src/workbench/kinetra_workbench_autogen/include \
        "$1" >/dev/null 2>&1 && return
    mapfile -t sources < <(sed -n 's/^#include "\(.*\)"$/\1/p' "$1")
    for source in "${sources[@]}"; do
        # How many warnings were passed over in Qt's headers is of no use.
        clang-tidy -p build/dev --quiet "$source" 2> >(grep -v 'generated\.$' >&2) || return
    done
}
export -f check_batch

build dev # the headers that Qt's tools generate have to be there
stage 'Batches for clang-tidy'
rm -rf build/lint
cmake --preset lint --log-level=WARNING
stage 'clang-tidy'
mapfile -d '' batches < <(find build/lint/src -name 'unity_*_cxx.cxx' -print0)
included=$(sed -n "s|^#include \"$PWD/\(.*\)\"\$|\1|p" "${batches[@]}" | sort)
written=$(sources src | tr '\0' '\n' | grep '\.cpp$' | sort)
diff <(printf '%s\n' "$included") <(printf '%s\n' "$written") || fail 'The batches are not the sources of src.'
# One batch per call keeps all cores busy to the end.
printf '%s\0' "${batches[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c 'check_batch "$1"' _
printf '%d files looked at.\n' "$(wc -l <<<"$written")"

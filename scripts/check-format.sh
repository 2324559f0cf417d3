#!/usr/bin/env bash
# Fails when clang-format would lay out any of the project's C and C++ files another way; `--fix` lays them out instead.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/common.sh"

mode=(--dry-run --Werror)
if [[ ${1-} == --fix ]]; then
    mode=(-i)
    shift
fi
no_arguments "$@"

mapfile -d '' files < <(sources src tests bench fuzz docs)
[[ ${#files[@]} -gt 0 ]] || fail 'No C or C++ files to check.'
clang-format "${mode[@]}" "${files[@]}"
printf '%d files looked at.\n' "${#files[@]}"

#!/usr/bin/env bash
# Runs clang-tidy over the C++ files of src; any warning fails. It takes no arguments.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/common.sh"
no_arguments "$@"

batches=build/lint # it holds compile_flags.txt too, which clang-tidy looks for there

# Deals the sources out into batches: generated sources that include sources of src, so that the headers they share are
# looked at once. Neighbours, whose hidden names are often the same, come into different batches.
deal_out()
{
    rm -rf "$batches"
    mkdir -p "$batches"
    sources src | tr '\0' '\n' | grep '\.cpp$' | sort >"$batches/sources"
    local count
    count=$(wc -l <"$batches/sources")
    awk -v folder="$batches" -v root="$PWD" -v batches=$(((count + 19) / 20)) \
        '{ print "#include \"" root "/" $0 "\"" >(folder "/batch" NR % batches ".cpp") }' "$batches/sources"
}

# The flags of a source that includes headers of all libraries are good for every batch. precompiled.txt has the
# precompiled headers too; clang-tidy would pass over what is in them.
write_flags()
{
    sed -n '/kinetra_workbench\.dir.mainwindow\.cpp\.o/s/^ *"command": ".*clang++ \(.*\) -o .*/\1/p' \
        build/dev/compile_commands.json | sed 's/\\\(.\)/\1/g' | xargs printf '%s\n' >"$batches/precompiled.txt"
    sed '/^-Winvalid-pch$/,$d' "$batches/precompiled.txt" >"$batches/compile_flags.txt"
    [[ -s $batches/compile_flags.txt ]] || fail 'The flags of src/workbench/mainwindow.cpp are not known.'
}

# clashing BATCH: those of its sources that do not compile beside the others, since their hidden names clash.
clashing()
{
    local flags messages
    mapfile -t flags <"$batches/precompiled.txt"
    messages=$(clang++ "${flags[@]}" -fsyntax-only -ferror-limit=0 "$1" 2>&1) ||
        grep -o "^$PWD/src/[^:]*\.cpp:[0-9:]* error: " <<<"$messages" || # where an error is, or else what is told of it
        grep -o "^$PWD/src/[^:]*\.cpp:" <<<"$messages"
}

# suspected BATCH: those of its sources that clang-tidy has findings in; all of them where it has others.
suspected()
{
    local findings
    findings=$(clang-tidy -p "$batches" --quiet --checks=-bugprone-suspicious-include "$1" 2>/dev/null) && return
    if grep ' error: ' <<<"$findings" | grep -qv "^$PWD/src/[^:]*\.cpp:" || ! grep -q ' error: ' <<<"$findings"; then
        sed 's/^#include "\(.*\)"$/\1/' "$1"
    else
        grep ' error: ' <<<"$findings"
    fi
}

# Looks at a batch. Sources that clash with others of it decide one by one, and so do those where it has findings, since
# only what is found in a source by itself counts.
check_batch()
{
    local rest=${1%.cpp}Rest.cpp source alone
    clashing "$1" | cut -d: -f1 | sort -u >"$1.clashing" || true
    grep -vFf "$1.clashing" "$1" >"$rest" || true
    mapfile -t alone < <(cat "$1.clashing" && suspected "$rest" | cut -d: -f1 | sort -u)
    for source in "${alone[@]}"; do
        # How many warnings were passed over in Qt's headers is of no use.
        clang-tidy -p build/dev --quiet "$source" 2> >(grep -v 'generated\.$' >&2) || return
    done
}
export batches
export -f clashing suspected check_batch

build dev # the headers that Qt's tools generate have to be there, and the precompiled ones
stage 'clang-tidy'
deal_out
write_flags
# One batch per call keeps all cores busy to the end.
printf '%s\0' "$batches"/batch*.cpp | xargs -0 -n 1 -P "$(nproc)" bash -c 'check_batch "$1"' _
printf '%d files looked at.\n' "$(wc -l <"$batches/sources")"

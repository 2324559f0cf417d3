#!/usr/bin/env bash
# Tries the completion of `ktl` without a terminal. Usage: completion.bash FILE, the completion to try.
set -euo pipefail
completion=$(realpath "$1")
failures=0

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export HOME=$folder/home
mkdir -p home 'spare parts'
touch drive.xml DRIVE.XML 'two words.xml' machine.ktl machine.ktl.txt choices.json notes.txt home/own.ktl

# shellcheck source=packaging/ktl.bash
source "$completion"

# completes EXPECTED WORD...: what is offered for the last word, sorted and with a comma between, has to be EXPECTED.
completes()
{
    local expected=$1 offered
    shift
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _ktl ktl "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    offered=$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | paste -sd ,)
    [[ $offered == "$expected" ]] && return
    printf '%s\n    offered:  %s\n    expected: %s\n' "$*" "$offered" "$expected" >&2
    failures=$((failures + 1))
}

if [[ $(complete -p ktl) != *'-F _ktl ktl' ]]; then
    printf 'No completion is set for ktl.\n' >&2
    failures=1
fi

# Sub-commands.
completes '--help,--version,check,choices,convert,diff,dump,find,help,image,show' ktl ''
completes 'check,choices,convert' ktl c
completes '--version' ktl --v
completes '' ktl unknown ''
completes 'check,choices,convert' ktl help c

# Options of each.
completes '--append,--choices,--date,--device,--force,--help,--ignore,--no-dump,--output,--strict,--version,-o' ktl convert -
completes '--date,--device' ktl convert drive.xml --d
completes '--from,--help,--run,--version' ktl choices -
completes '--csv,--device,--full,--help,--items,--json,--spreadsheet,--version' ktl show -
completes '--version' ktl show machine.ktl --v
completes '--choices,--device,--explain,--fail-on,--help,--ignore,--json,--only,--rules,--sarif,--version' ktl check -
completes '--csv,--duplicates,--files,--help,--json,--latest,--modules,--name,--null,--product,--revision,--type,--vendor,--version' ktl find -
completes '--all,--choices,--color,--device,--help,--json,--version,--weight,--with' ktl diff -
completes '--choices,--csv,--device,--help,--json,--svg,--version' ktl image -
completes '--help,--version' ktl dump -

# Files of each.
completes 'DRIVE.XML,drive.xml,home,spare parts,two words.xml' ktl convert ''
completes 'DRIVE.XML,drive.xml,home,spare parts,two words.xml' ktl choices ''
completes 'DRIVE.XML,drive.xml,home,machine.ktl,spare parts,two words.xml' ktl show ''
completes 'DRIVE.XML,drive.xml,home,machine.ktl,spare parts,two words.xml' ktl check ''
completes 'DRIVE.XML,drive.xml,home,machine.ktl,spare parts,two words.xml' ktl find ''
completes '' ktl find --name m
completes 'DRIVE.XML,drive.xml,home,machine.ktl,spare parts,two words.xml' ktl diff drive.xml ''
completes 'DRIVE.XML,drive.xml,home,machine.ktl,spare parts,two words.xml' ktl image ''
completes 'home,machine.ktl,spare parts' ktl dump ''
completes 'two words.xml' ktl convert drive.xml 'two\ w'
completes 'two words.xml' ktl convert '"two w'
# shellcheck disable=SC2088 # the tilde is offered as it was typed
completes '~/own.ktl' ktl dump '~/o'

# Values of options.
completes 'machine.ktl' ktl convert drive.xml -o m
completes 'machine.ktl' ktl convert --output m
completes 'choices.json' ktl convert --choices c
completes 'choices.json' ktl convert --choices = c
completes '' ktl convert --device d
completes '' ktl convert --date ''
completes 'startup-commands,startup-data' ktl convert --ignore st
completes 'no-choice' ktl convert --ignore n
completes 'machine.ktl' ktl choices drive.xml --from m
completes '' ktl choices drive.xml --run ''
completes 'dictionary,pdo,startup' ktl show --csv ''
completes 'dictionary,pdo,startup' ktl show --csv =
completes 'startup' ktl show --csv = s
completes 'error,note,warning' ktl check --fail-on ''
completes 'choices.json' ktl check --choices c
completes 'behaviour,breaking' ktl diff --weight b
completes 'always,auto,never' ktl diff --color =
completes 'choices.json' ktl diff --choices c
completes '' ktl diff --with m
completes 'choices.json' ktl image --choices c

# Rules come from the command itself.
ktl()
{
    [[ $* == 'check --rules' ]] && printf 'ktl-end   error    an end\nfile-kind  error    a kind\npdo-index  note     an index\n'
}
completes 'file-kind' ktl check --only f
completes 'pdo-index' ktl check --explain = p

[[ $failures -eq 0 ]] || exit 1

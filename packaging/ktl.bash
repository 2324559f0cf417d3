# shellcheck shell=bash
# Completion of `ktl` in bash. It is installed as bash-completion/completions/ktl and needs nothing but bash.

# The codes of the warnings.
_ktl_warnings='sync-managers|slot-pdo-increment|slot-index-increment|startup-commands|startup-data|module-list'
_ktl_warnings+='|module-commands|item-count|left-out|same-input|no-choice'

# How bad a finding can be.
_ktl_severities='error|warning|note'

# One row per sub-command: its name, the endings of the files that it takes, its options. After the "=" of an option
# is what its value can be: the ending of a file, words to choose from with "|" between them, "!" for a rule of the
# check, or "?" for free text.
_ktl_sub_commands=(
    "convert xml     -o=ktl --output=ktl --append --force --no-dump --device=? --choices=json --date=? --strict \
--ignore=$_ktl_warnings --help --version"
    'choices xml     --from=ktl --run=? --help --version'
    'show    xml,ktl --device=? --full --items --json --csv=dictionary|pdo|startup --spreadsheet --help --version'
    'image   xml,ktl --device=? --choices=json --csv --json --svg --help --version'
    "check   xml,ktl --device=? --choices=json --json --sarif --fail-on=$_ktl_severities --only=! --ignore=! \
--rules --explain=! --help --version"
    "find    xml,ktl --vendor=? --product=? --revision=? --name=? --type=? --latest --duplicates --modules --json --csv \
--null --files --help --version"
    "diff    xml,ktl --device=? --with=? --choices=json --weight=breaking|behaviour|text --all \
--color=auto|always|never --json --help --version"
    'dump    ktl     --help --version'
)

# Offers those of the words that begin with what is typed.
_ktl_words()
{
    local typed=$1
    shift
    mapfile -t COMPREPLY < <(compgen -W "$*" -- "$typed")
}

# Offers folders, and files with one of the endings; there is a comma between endings, and case does not count.
_ktl_files()
{
    local typed=$1 endings=,$2, file path ending
    typed=${typed#[\"\']} # what is typed may be quoted, names of files are not
    typed=${typed//\\/}
    while IFS= read -r file; do
        path=${file/#'~/'/"$HOME/"}
        ending=${file##*.}
        if [[ -d $path || $endings == *,"${ending,,}",* ]]; then
            COMPREPLY+=("$file")
        fi
    done < <(compgen -f -- "$typed")
}

# Offers values of an option, or nothing where any text may be.
_ktl_values()
{
    local typed=$1 kind=$2 rules
    case $kind in
        '?') ;;
        '!')
            mapfile -t rules < <(ktl check --rules 2>/dev/null)
            _ktl_words "$typed" "${rules[@]%% *}"
            ;;
        *'|'*) _ktl_words "$typed" "${kind//|/ }" ;;
        *) _ktl_files "$typed" "$kind" ;;
    esac
}

_ktl()
{
    local typed=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    if [[ $typed == = ]]; then # "--csv=pdo" comes as three words
        typed=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    COMPREPLY=()

    if [[ $COMP_CWORD -eq 1 ]]; then
        _ktl_words "$typed" "${_ktl_sub_commands[@]%% *}" help --help --version
        return
    fi
    if [[ ${COMP_WORDS[1]} == help ]]; then
        _ktl_words "$typed" "${_ktl_sub_commands[@]%% *}"
        return
    fi
    local row endings options option
    for row in "${_ktl_sub_commands[@]}"; do
        [[ $row == "${COMP_WORDS[1]} "* ]] || continue
        read -ra options <<<"$row"
        endings=${options[1]}
        options=("${options[@]:2}")
        for option in "${options[@]}"; do
            if [[ $option == "$before="* ]]; then
                _ktl_values "$typed" "${option#*=}"
                return
            fi
        done
        if [[ $typed == -* ]]; then
            _ktl_words "$typed" "${options[@]%%=*}"
        else
            _ktl_files "$typed" "$endings"
        fi
    done
}

complete -o filenames -F _ktl ktl

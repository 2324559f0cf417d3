#compdef ktl
# Completion of `ktl` in zsh. It is installed as zsh/vendor-completions/_ktl.

_ktl_sub_commands()
{
    local -a sub_commands=(
        'convert:turns ESI files into one KTL file with its text dump'
        'choices:shows what can be chosen, or what was chosen for an export'
        'show:shows what ESI and KTL files hold'
        'image:shows the process image, byte by byte'
        'find:says which files describe a device'
        'diff:says what differs between two descriptions'
        'check:says what would go wrong on the machine'
        'dump:shows the text dump of a KTL file'
        'help:shows the help'
    )
    _describe sub-command sub_commands
}

# The codes of the check's rules.
_ktl_rules()
{
    local -a rules=(${${(f)"$(ktl check --rules 2>/dev/null)"}%% *})
    compadd -a rules
}

_ktl()
{
    local curcontext=$curcontext state
    local -a line
    local -a help=('(- *)'{-h,--help}'[shows the help]' '(- *)'{-v,--version}'[shows the version]')
    local codes='(sync-managers slot-pdo-increment slot-index-increment startup-commands startup-data module-list
        module-commands item-count left-out same-input no-choice)'
    _arguments -C $help '1: :_ktl_sub_commands' '*:: :->arguments' && return
    [[ $state == arguments ]] || return 1

    case $line[1] in
        convert)
            _arguments -s $help \
                '(-o --output)'{-o+,--output=}'[the KTL file to write]:KTL file:_files -g "*.(#i)ktl(-.)"' \
                '(--force)--append[adds to the file]' \
                '(--append)--force[replaces a file that exists]' \
                '--no-dump[writes no text dump]' \
                '*--device=[takes this device only]:device: ' \
                '--choices=[what an engineer would set in the workbench]:choices file:_files -g "*.(#i)json(-.)"' \
                '--date=[time of the export]:time: ' \
                '--strict[exit status 1 if there are warnings]' \
                "*--ignore=[warnings that do not count for --strict]:code:$codes" \
                '*:ESI file:_files -g "*.(#i)xml(-.)"'
            ;;
        choices)
            _arguments $help \
                '--from=[writes the choices that make this export]:KTL file:_files -g "*.(#i)ktl(-.)"' \
                '--run=[the run of that file, from 1]:number: ' \
                '*:ESI file:_files -g "*.(#i)xml(-.)"'
            ;;
        show)
            _arguments $help \
                '(--items)*--device=[shows this device only]:device: ' \
                '(--items --json --csv --spreadsheet)--full[everything, as text]' \
                '(--device --full --json --csv --spreadsheet)--items[the items of KTL files]' \
                '(--full --items --csv --spreadsheet)--json[everything, as JSON]' \
                '(--full --items --json)--csv=[one table as CSV]:table:(dictionary pdo startup)' \
                '(--full --items --json)--spreadsheet[CSV for a spreadsheet program]' \
                '*:ESI or KTL file:_files -g "*.(#i)(xml|ktl)(-.)"'
            ;;
        image)
            _arguments $help \
                '*--device=[shows this device only]:device: ' \
                '--choices=[shows the image after these choices]:choices file:_files -g "*.(#i)json(-.)"' \
                '(--json --svg)--csv[as CSV]' \
                '(--csv --svg)--json[as JSON]' \
                '(--csv --json)--svg[as a picture]' \
                '*:ESI or KTL file:_files -g "*.(#i)(xml|ktl)(-.)"'
            ;;
        find)
            _arguments -s $help \
                '--vendor=[of this vendor]:number: ' \
                '--product=[with this product code or ident]:number: ' \
                '--revision=[with this revision, or in a range of them]:range: ' \
                '--name=[with this name; * and ? stand for others]:pattern: ' \
                '--type=[with this type; * and ? stand for others]:pattern: ' \
                '--latest[the highest revision of each product]' \
                '--duplicates[identities that are in several places]' \
                '--modules[modules too]' \
                '(--csv -l --files -0 --null)--json[as JSON]' \
                '(--json -l --files -0 --null)--csv[as CSV]' \
                '(--json --csv -0 --null)'{-0,--null}'[ends lines with a zero byte]' \
                '(--json --csv -l --files)'{-l,--files}'[names of files alone]' \
                '*:ESI or KTL file:_files -g "*.(#i)(xml|ktl)(-.)"'
            ;;
        diff)
            _arguments $help \
                '*--device=[compares this device only]:device: ' \
                '--with=[the new device, where --device names the old one]:device: ' \
                '--choices=[makes these choices in the ESI file first]:choices file:_files -g "*.(#i)json(-.)"' \
                '--weight=[differences of that weight and above]:weight:(breaking behaviour text)' \
                '--all[also what a KTL file cannot have]' \
                '(--json)--color=[colors]:when:(auto always never)' \
                '(--color)--json[as JSON]' \
                '1:old ESI or KTL file:_files -g "*.(#i)(xml|ktl)(-.)"' \
                '2:new ESI or KTL file:_files -g "*.(#i)(xml|ktl)(-.)"'
            ;;
        check)
            _arguments $help \
                '*--device=[tells what is about this device only]:device: ' \
                '--choices=[checks what would be exported after these choices]:choices file:_files -g "*.(#i)json(-.)"' \
                '(--sarif)--json[findings as JSON]' \
                '(--json)--sarif[findings as SARIF]' \
                '--fail-on=[exit status 1 for findings of that severity]:severity:(error warning note)' \
                '*--only=[asks this rule only]:rule:_ktl_rules' \
                '*--ignore=[does not ask this rule]:rule:_ktl_rules' \
                '(- *)--rules[lists all rules]' \
                '(- *)--explain=[explains a rule]:rule:_ktl_rules' \
                '*:ESI or KTL file:_files -g "*.(#i)(xml|ktl)(-.)"'
            ;;
        dump)
            _arguments $help '1:KTL file:_files -g "*.(#i)ktl(-.)"'
            ;;
        help)
            _arguments '1: :_ktl_sub_commands'
            ;;
    esac
}

_ktl "$@"

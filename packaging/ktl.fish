# Completion of `ktl` in fish. It is installed as fish/vendor_completions.d/ktl.fish and needs nothing but fish.

# Files with one of the endings that are given, and folders; case does not count.
function __ktl_files
    set -l typed (commandline --current-token --cut-at-cursor)
    set -l endings (string join '|' $argv)
    for file in (__fish_complete_path $typed)
        if string match --quiet --regex '/(\t|$)' -- $file
            or string match --quiet --ignore-case --regex "\.($endings)(\t|\$)" -- $file
            echo $file
        end
    end
end

# ktl_option SUB-COMMAND ARGUMENTS OF complete...
function __ktl_option
    complete --command ktl --condition "__fish_seen_subcommand_from $argv[1]" $argv[2..]
end

# The rules of the check, with what each finds.
function __ktl_rules
    ktl check --rules 2>/dev/null | string replace --regex '^(\S+)\s+\S+\s+' '$1\t'
end

complete --command ktl --no-files

set -l sub_commands convert choices show image find diff check dump help
for row in 'convert:turns ESI files into one KTL file with its text dump' \
        'choices:shows what can be chosen, or what was chosen for an export' \
        'show:shows what ESI and KTL files hold' \
        'image:shows the process image, byte by byte' \
        'find:says which files describe a device' \
        'diff:says what differs between two descriptions' \
        'check:says what would go wrong on the machine' \
        'dump:shows the text dump of a KTL file' \
        'help:shows the help'
    set -l words (string split --max 1 : $row)
    complete --command ktl --condition "not __fish_seen_subcommand_from $sub_commands" \
        --arguments $words[1] --description $words[2]
end
complete --command ktl --short-option h --long-option help --description 'Shows the help'
complete --command ktl --short-option v --long-option version --description 'Shows the version'

# convert
__ktl_option convert --arguments '(__ktl_files xml)'
__ktl_option convert --short-option o --long-option output --require-parameter --arguments '(__ktl_files ktl)' \
    --description 'The KTL file to write'
__ktl_option convert --long-option append --description 'Adds to the file'
__ktl_option convert --long-option force --description 'Replaces a file that exists'
__ktl_option convert --long-option no-dump --description 'Writes no text dump'
__ktl_option convert --long-option device --exclusive --description 'Takes this device only'
__ktl_option convert --long-option choices --require-parameter --arguments '(__ktl_files json)' \
    --description 'What an engineer would set in the workbench'
__ktl_option convert --long-option date --exclusive --description 'Time of the export'
__ktl_option convert --long-option strict --description 'Exit status 1 if there are warnings'
__ktl_option convert --long-option ignore --exclusive --description 'Warnings that do not count for --strict' \
    --arguments 'sync-managers slot-pdo-increment slot-index-increment startup-commands startup-data module-list
        module-commands item-count left-out same-input no-choice'

# choices
__ktl_option choices --arguments '(__ktl_files xml)'
__ktl_option choices --long-option from --require-parameter --arguments '(__ktl_files ktl)' \
    --description 'Writes the choices that make this export'
__ktl_option choices --long-option run --exclusive --description 'The run of that file, from 1'

# show
__ktl_option show --arguments '(__ktl_files xml ktl)'
__ktl_option show --long-option device --exclusive --description 'Shows this device only'
__ktl_option show --long-option full --description 'Everything, as text'
__ktl_option show --long-option items --description 'The items of KTL files'
__ktl_option show --long-option json --description 'Everything, as JSON'
__ktl_option show --long-option csv --exclusive --arguments 'dictionary pdo startup' --description 'One table as CSV'
__ktl_option show --long-option spreadsheet --description 'CSV for a spreadsheet program'

# image
__ktl_option image --arguments '(__ktl_files xml ktl)'
__ktl_option image --long-option device --exclusive --description 'Shows this device only'
__ktl_option image --long-option choices --require-parameter --arguments '(__ktl_files json)' \
    --description 'Shows the image after these choices'
__ktl_option image --long-option csv --description 'As CSV'
__ktl_option image --long-option json --description 'As JSON'
__ktl_option image --long-option svg --description 'As a picture'

# find
__ktl_option find --arguments '(__ktl_files xml ktl)'
__ktl_option find --long-option vendor --exclusive --description 'Of this vendor'
__ktl_option find --long-option product --exclusive --description 'With this product code or ident'
__ktl_option find --long-option revision --exclusive --description 'With this revision, or in a range of them'
__ktl_option find --long-option name --exclusive --description 'With this name; * and ? stand for others'
__ktl_option find --long-option type --exclusive --description 'With this type; * and ? stand for others'
__ktl_option find --long-option latest --description 'The highest revision of each product'
__ktl_option find --long-option duplicates --description 'Identities that are in several places'
__ktl_option find --long-option modules --description 'Modules too'
__ktl_option find --long-option json --description 'As JSON'
__ktl_option find --long-option csv --description 'As CSV'
__ktl_option find --short-option 0 --long-option null --description 'Ends lines with a zero byte'
__ktl_option find --short-option l --long-option files --description 'Names of files alone'

# diff
__ktl_option diff --arguments '(__ktl_files xml ktl)'
__ktl_option diff --long-option device --exclusive --description 'Compares this device only'
__ktl_option diff --long-option with --exclusive --description 'The new device, where --device names the old one'
__ktl_option diff --long-option choices --require-parameter --arguments '(__ktl_files json)' \
    --description 'Makes these choices in the ESI file first'
__ktl_option diff --long-option weight --exclusive --arguments 'breaking behaviour text' \
    --description 'Differences of that weight and above'
__ktl_option diff --long-option all --description 'Also what a KTL file cannot have'
__ktl_option diff --long-option color --exclusive --arguments 'auto always never' --description 'Colors'
__ktl_option diff --long-option json --description 'As JSON'

# check
__ktl_option check --arguments '(__ktl_files xml ktl)'
__ktl_option check --long-option device --exclusive --description 'Tells what is about this device only'
__ktl_option check --long-option choices --require-parameter --arguments '(__ktl_files json)' \
    --description 'Checks what would be exported after these choices'
__ktl_option check --long-option json --description 'Findings as JSON'
__ktl_option check --long-option sarif --description 'Findings as SARIF'
__ktl_option check --long-option fail-on --exclusive --arguments 'error warning note' \
    --description 'Exit status 1 for findings of that severity'
__ktl_option check --long-option only --exclusive --arguments '(__ktl_rules)' --description 'Asks this rule only'
__ktl_option check --long-option ignore --exclusive --arguments '(__ktl_rules)' --description 'Does not ask this rule'
__ktl_option check --long-option rules --description 'Lists all rules'
__ktl_option check --long-option explain --exclusive --arguments '(__ktl_rules)' --description 'Explains a rule'

# dump
__ktl_option dump --arguments '(__ktl_files ktl)'

# help
__ktl_option help --arguments 'convert choices show image find diff check dump'

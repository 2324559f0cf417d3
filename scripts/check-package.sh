#!/usr/bin/env bash
# Builds the Debian package, looks at what is in it, and installs, runs and removes it in a clean system, which is made
# from the machine's package mirror and thrown away. It takes no arguments; the package stays in build/package.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/common.sh"
no_arguments "$@"

checks=packaging/check
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unpacked=$work/unpacked
share=$unpacked/usr/share

build_package()
{
    build package -DKINETRA_WERROR=ON # what g++ warns of; the tests are compiled with clang
    stage 'Packing'
    rm -f build/package/*.deb
    # The time of the newest entry is on all files, so that equal sources give an equal package.
    SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l packaging/changelog -S Timestamp)
    export SOURCE_DATE_EPOCH
    (cd build/package && cpack)
    package=$(realpath build/package/*.deb)
    dpkg-deb --extract "$package" "$unpacked"
}

# The one warning that is passed over asks for the number of a request to take the package into Debian.
check_with_lintian()
{
    local options=(--fail-on "error,warning" --suppress-tags initial-upload-closes-no-bugs)
    [[ $EUID -ne 0 ]] || options+=(--allow-root)
    lintian "${options[@]}" "$package"
}

check_list_of_files()
{
    (cd "$unpacked" && find . ! -type d -printf '/%P\n' | LC_ALL=C sort) | diff -u "$checks/files.txt" - ||
        fail "The package holds other files than $checks/files.txt names."
}

check_manual_pages()
{
    local page warnings
    for page in "$share"/man/man1/*.gz; do
        # These are the settings with which warnings do not depend on the terminal.
        warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 \
            man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >"$work/page")
        [[ -s $work/page && -z $warnings ]] || fail "$page: $warnings"
    done
}

# Relative links of the documents have to lead to something that is in the package too.
check_links()
{
    local page link
    while IFS= read -r page; do
        while IFS= read -r link; do
            [[ $link == *:* || -e ${page%/*}/$link ]] || fail "${page#"$unpacked"} links to $link, which is not there."
        done < <(grep -o '](\([^)#]\+\)' "$page" | sed 's/^](//')
    done < <(find "$share/doc" -name '*.md')
}

# Both name every option, and no other; one of them may be corrected without the other.
check_manual_against_completion()
{
    local completion=$share/bash-completion/completions/ktl
    zgrep -o '\\-\\-[a-z]\+\(\\-[a-z]\+\)*' "$share/man/man1/ktl.1.gz" | sed 's/\\//g' | sort -u >"$work/manual"
    grep -o -- '--[a-z][a-z-]*' "$completion" | sort -u | diff -u "$work/manual" - ||
        fail 'The manual page of ktl (-) and its completion (+) name different options.'
}

# recognised_as FILE TYPE: what the desktop takes a file for, with the types of the package installed.
recognised_as()
{
    local type
    type=$(XDG_DATA_HOME=$work/none XDG_DATA_DIRS=$work/data gio info -a standard::content-type "$1")
    [[ ${type##* } == "$2" ]] || fail "${1##*/} is taken for ${type##* } instead of $2."
}

# A program that asks the name of an .xml file first takes every one for application/xml, so the samples lose theirs.
check_mime_types()
{
    local packages=$work/data/mime/packages sample
    xmllint --noout "$share/mime/packages/kinetra.xml"
    mkdir -p "$packages"
    cp /usr/share/mime/packages/freedesktop.org.xml "$share/mime/packages/kinetra.xml" "$packages"
    XDG_DATA_DIRS=$work/data update-mime-database "$work/data/mime"
    # What is asked below looks for magic only; others look for the root element.
    grep -Fqx ' EtherCATInfo application/x-ethercat-esi+xml' "$work/data/mime/XMLnamespaces" ||
        fail 'The root element of an ESI file is not registered.'

    for sample in samples/*.xml; do
        cp "$sample" "$work/esi"
        recognised_as "$work/esi" application/x-ethercat-esi+xml
    done
    printf '<?xml version="1.0"?>\n<Other/>\n' >"$work/other"
    recognised_as "$work/other" application/xml
    printf '\100\234\0\0' >"$work/machine.ktl"
    recognised_as "$work/machine.ktl" application/x-kinetra-ktl
}

# Prints the package sources of this machine's distribution, without those of other makers. The arguments are options
# of apt-get. Without package lists apt-get knows no maker, and nothing is printed.
distribution_sources()
{
    # shellcheck disable=SC2016 # the parentheses are apt-get's
    apt-get "$@" indextargets --format '$(ORIGIN)|deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        sed -n "s/^$distribution|//Ip"
}

check_in_clean_system()
{
    # What is thrown away need not be safe on the disk at every step.
    local options=(--variant=apt --format=null --quiet --dpkgopt=force-unsafe-io) distribution release setting
    # shellcheck source=/dev/null
    read -r distribution release < <(source /etc/os-release && printf '%s %s\n' "$ID" "$VERSION_CODENAME")
    distribution_sources >"$work/sources.list"
    if [[ ! -s $work/sources.list ]]; then # a machine that has thrown its lists away
        local own_lists=(-o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work/cache")
        mkdir -p "$work"/{lists,cache/archives}/partial
        apt-get "${own_lists[@]}" --quiet update
        distribution_sources "${own_lists[@]}" >"$work/sources.list"
    fi
    [[ -s $work/sources.list ]] || fail "apt-get knows no package source of $distribution."

    while IFS= read -r setting; do # a proxy, for one
        options+=(--aptopt="$setting")
    done < <(apt-config dump | grep '^Acquire::https\?::' || true)
    if [[ $EUID -eq 0 ]] && ! unshare --mount true 2>/dev/null; then
        options+=(--skip=check/canmount) # a container that may not mount
    fi
    # shellcheck disable=SC2016 # "$1" is the root of the new system
    mmdebstrap "${options[@]}" \
        --customize-hook="copy-in '$package' '$PWD/$checks/inCleanSystem.sh' /opt" \
        --customize-hook='chroot "$1" bash /opt/inCleanSystem.sh '"'/opt/${package##*/}'" \
        "$release" /dev/null "$work/sources.list"
}

scripts/set-up.sh package
build_package
stage 'Rules of Debian'
check_with_lintian
stage 'Files, manual pages, completion, desktop'
check_list_of_files
check_links
check_manual_pages
check_manual_against_completion
"$checks/completion.bash" "$share/bash-completion/completions/ktl"
desktop-file-validate "$share/applications/kinetra.desktop"
check_mime_types
stage 'Installing, running and removing it in a clean system'
check_in_clean_system
stage "Checked: ${package#"$PWD/"}"

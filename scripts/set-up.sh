#!/usr/bin/env bash
# Installs what the project needs, on Debian and its relatives. A second run finds all of it and changes nothing.
#
#   scripts/set-up.sh run     build and open the workbench
#   scripts/set-up.sh test    build and run the tests
#   scripts/set-up.sh package build the Debian package and try it out
#   scripts/set-up.sh ci      both, and the checks of format, lint and docs/ktl.ksy
#   scripts/set-up.sh bench   build and run the benchmarks
#   scripts/set-up.sh fuzz    build and run the fuzz targets
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/common.sh"

# build-essential brings g++; qtbase5-dev brings Qt Core, Gui, Widgets, Xml and Test with the plugins for X11 and for no
# display at all. libjansson-dev reads the JSON files of the command. The workbench shows Chinese texts, so even a test
# needs such a font.
base=(build-essential cmake ninja-build ccache qtbase5-dev libjansson-dev fonts-noto-cjk)
commands=(g++ cmake ninja)

# Tests are compiled with clang and linked with lld, which takes half the time. libqt5svg5-dev draws the pictures that
# the command makes. llvm-symbolizer of llvm names the places in what the sanitizers report.
testing=(clang lld libqt5svg5-dev)
testing_commands=(clang++ ld.lld)
sanitizing=(clang llvm)

# dpkg-dev and file find out what the programs depend on. uidmap lets mmdebstrap make a system where you are not root.
packaging=(dpkg-dev file gzip lintian man-db desktop-file-utils libxml2-utils shared-mime-info libglib2.0-bin
    mmdebstrap uidmap)
packaging_commands=(dpkg-shlibdeps file gzip lintian man desktop-file-validate xmllint update-mime-database gio
    mmdebstrap)

case ${1-} in
    run) packages=("${base[@]}" qtwayland5 x11-utils) ;; # xdpyinfo of x11-utils tells whether a window can open
    test)
        packages=("${base[@]}" "${testing[@]}")
        commands+=("${testing_commands[@]}")
        ;;
    package)
        packages=("${base[@]}" "${packaging[@]}")
        commands+=("${packaging_commands[@]}")
        ;;
    ci)
        packages=("${base[@]}" "${testing[@]}" "${sanitizing[@]}" "${packaging[@]}" git clang-format clang-tidy)
        commands+=("${testing_commands[@]}" "${packaging_commands[@]}" git clang-format clang-tidy node npm)
        # Node.js from elsewhere brings an npm of its own, beside which Debian's cannot be installed.
        { command -v node && command -v npm; } >/dev/null || packages+=(nodejs npm)
        ;;
    bench) packages=("${base[@]}" libbenchmark-dev) ;;
    fuzz)
        packages=("${base[@]}" "${sanitizing[@]}")
        commands+=(clang++)
        ;;
    *) no_arguments "${1-none}" ;;
esac

missing_packages()
{
    local package
    for package in "${packages[@]}"; do
        [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null) == installed* ]] ||
            printf '%s\n' "$package"
    done
}

install_packages()
{
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get --quiet -o Acquire::Retries=3)
    [[ $EUID -eq 0 ]] || apt=(sudo "${apt[@]}")
    # A package list that could not be renewed may still do.
    "${apt[@]}" update || printf 'The package lists could not be renewed; trying with the old ones.\n' >&2
    "${apt[@]}" install --yes --no-install-recommends "$@"
}

# True when Qt 5 answers under one of the names that distributions give its qmake.
have_qt5()
{
    local qmake
    for qmake in qmake qmake-qt5; do
        [[ $("$qmake" -query QT_VERSION 2>/dev/null) == 5.* ]] && return
    done
    return 1
}

missing_commands()
{
    local name
    for name in "${commands[@]}"; do
        command -v "$name" >/dev/null || printf '%s\n' "$name"
    done
    have_qt5 || printf 'qmake of Qt 5\n'
}

# Where the packages cannot be installed, tools from elsewhere do as well.
go_on_with_what_is_there()
{
    printf '%s\nThe project needs these Debian packages, or what they hold: %s\n' "$1" "${packages[*]}" >&2
    local absent
    absent=$(missing_commands)
    [[ -z $absent ]] || fail "Not found on this machine: ${absent//$'\n'/, }. Install them and start again."
    printf 'The tools themselves are there; going on with them.\n' >&2
}

install_missing()
{
    local missing
    mapfile -t missing < <(missing_packages)
    [[ ${#missing[@]} -gt 0 ]] || return 0
    stage "Installing ${missing[*]}"
    if [[ $EUID -ne 0 ]] && ! command -v sudo >/dev/null; then
        go_on_with_what_is_there "Only root can install packages, and there is no sudo. Missing: ${missing[*]}"
    else
        install_packages "${missing[@]}" || go_on_with_what_is_there "apt-get could not install: ${missing[*]}"
    fi
}

if ! command -v apt-get >/dev/null; then
    go_on_with_what_is_there 'There is no apt-get here.'
    exit
fi
install_missing
# The runtime of clang's sanitizers is in one of clang's packages or, in newer distributions, in one of its own.
if [[ $1 =~ ^(ci|fuzz)$ && ! -e $(clang++ -print-file-name="libclang_rt.asan-$(uname -m).a") ]]; then
    packages=(libclang-rt-dev)
    install_missing
fi

#!/usr/bin/env bash
# Installs the package, runs both programs and removes the package again. It is run as root in a system that is thrown
# away afterwards, never on a machine of somebody's. Usage: inCleanSystem.sh DEB
set -euo pipefail
package=$1

fail()
{
    printf '%s\n' "$*" >&2
    exit 1
}

# as_user SECONDS COMMAND...: runs it as an ordinary user whose home is $home. When the time is over it is ended, and
# the status is 124.
as_user()
{
    runuser -u nobody -- env HOME="$home" XDG_RUNTIME_DIR="$home" QT_QPA_PLATFORM=offscreen timeout "$@"
}

check_command()
{
    local version needed shown coupler=/usr/share/doc/kinetra/samples/bus-coupler.xml
    needed=$(ldd /usr/bin/ktl)
    [[ $needed != *'not found'* ]] || fail "Libraries of ktl are missing: $needed"
    [[ $needed != *libQt5Widgets* ]] || fail 'ktl needs Qt Widgets.'
    version=$(dpkg-query --show --showformat='${source:Upstream-Version}' kinetra)
    [[ $(as_user 20 ktl --version) == *"$version" ]] || fail "ktl does not name the version of the package, $version."
    as_user 20 ktl convert /usr/share/doc/kinetra/samples/{io-block,servo-drive}.xml -o machine.ktl
    [[ -s machine.ktl && -s machine.ktl.txt ]] || fail 'ktl convert wrote nothing.'
    as_user 20 ktl choices "$coupler" | as_user 20 ktl convert "$coupler" -o chosen.ktl --choices -
    [[ -s chosen.ktl && -s chosen.ktl.txt ]] || fail 'ktl convert wrote nothing with the choices of ktl choices.'
    shown=$(as_user 20 ktl show machine.ktl --json)
    [[ $shown == '{'*'"files"'*'}' ]] || fail "ktl show prints no JSON: $shown"
    as_user 20 ktl check "$coupler" machine.ktl || fail 'ktl check finds errors in a sample.'
    as_user 20 ktl diff "$coupler" "$coupler" || fail 'ktl diff finds differences between a sample and itself.'
    as_user 20 ktl dump machine.ktl | cmp - machine.ktl.txt || fail 'ktl dump prints another text than convert wrote.'
}

# The window stays open until it is closed, so a start that went well is ended by the clock.
check_workbench()
{
    local status=0
    as_user 5 kinetra || status=$?
    [[ $status -eq 124 ]] || fail "The workbench ended by itself, with status $status."
}

check_mime_types()
{
    local type
    for type in application/x-kinetra-ktl application/x-ethercat-esi+xml; do
        grep -Fqx "$type" /usr/share/mime/types || fail "The system does not know the type $type."
    done
}

# Prints what bears a name of the package; the package manager's own records do not count.
traces()
{
    find / -xdev \( -path /var/lib/dpkg -o -path /var/lib/apt -o -path /var/cache/apt -o -path /var/log -o -path /proc \
        -o -path /sys -o -path "$home" -o -path "$package" \) -prune \
        -o \( -iname '*kinetra*' -o -name 'ktl*' -o -name '*ethercat*' \) -print
}

home=$(mktemp -d)
chown nobody "$home"
cd "$home"
apt=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 --yes)

[[ -z $(traces) ]] || fail "The system is not clean: $(traces)"
"${apt[@]}" install --no-install-recommends "$package"
check_command
check_workbench
check_mime_types
"${apt[@]}" purge kinetra
[[ -z $(traces) ]] || fail "The removed package left behind: $(traces)"

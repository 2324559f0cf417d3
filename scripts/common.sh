# shellcheck shell=bash
# What the scripts share. Source it: it goes to the project's root and defines functions, nothing more.

script=$(realpath "$0")
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

# Prints a heading, with the time since the script began.
stage()
{
    printf '\n=== %s  [%d:%02d since start]\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

# Prints a reason on standard error and ends the script.
fail()
{
    printf '%s\n' "$*" >&2
    exit 1
}

# Answers --help with the comment at the head of the script, and refuses any other argument.
no_arguments()
{
    [[ $# -gt 0 ]] || return 0
    local usage
    usage=$(awk 'NR > 1 && /^#/ { sub(/^# ?/, ""); print; next } NR > 1 { exit }' "$script")
    [[ $1 == --help || $1 == -h ]] || fail "$usage"
    printf '%s\n' "$usage"
    exit 0
}

# Configures and builds a preset in build/<preset>, with ccache where it is installed. What follows the preset is for
# cmake.
build()
{
    stage "Building $1"
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    cmake --preset "$1" --log-level=WARNING "${@:2}"
    cmake --build "build/$1"
}

# Builds a preset and runs its tests, several at a time; a preset without tests is a failure.
build_and_test()
{
    build "$1"
    stage "Testing $1"
    ctest --preset "$1" --parallel "$(nproc)" --no-tests=error
}

# Lists the project's own C and C++ files under the given folders, NUL-separated. A file that is new and not yet added
# to git is in the list too; a generated one never is.
sources()
{
    local patterns=() folder
    for folder in "$@"; do
        patterns+=("$folder/*.h" "$folder/*.c" "$folder/*.cpp")
    done
    git ls-files -z --cached --others --exclude-standard --deduplicate -- "${patterns[@]}"
}

# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by run and test, with $root set to the source folder. What it says goes to stderr, and only
# when there is something to do.
set -euo pipefail

say() {
    printf '%s\n' "$*" >&2
}

fail() {
    say "$*"
    exit 1
}

# Installs what is missing of cmake/packages.txt.
install_packages() {
    command -v dpkg-query > /dev/null || return 0
    local wanted missing
    wanted=$(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$root/cmake/packages.txt" | sort -u)
    # shellcheck disable=SC2086 # one word per package
    missing=$(comm -23 <(printf '%s\n' "$wanted") \
        <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' $wanted 2> /dev/null \
            | sed -n 's/^installed //p' | sort -u) | tr '\n' ' ')
    [[ -n $missing ]] || return 0

    local as_root=()
    if ((EUID != 0)); then
        command -v sudo > /dev/null \
            || fail "Packages are missing; install them as root: apt-get install $missing"
        as_root=(sudo)
    fi
    say "Installing Debian packages: $missing"
    as_root+=(env DEBIAN_FRONTEND=noninteractive)
    "${as_root[@]}" apt-get update -qq >&2 || say "The package lists could not be renewed; going on."
    # shellcheck disable=SC2086
    "${as_root[@]}" apt-get install -y -qq --no-install-recommends $missing >&2 < /dev/null \
        || fail "The packages could not be installed: $missing"
}

# log_build PRESET LOG
# Writes what a build prints to a file, and says that something is being built; on a terminal also how
# far it has come.
log_build() {
    local line is_told= is_terminal=
    [[ ! -t 2 ]] || is_terminal=1
    while IFS= read -r line; do
        printf '%s\n' "$line"
        [[ $line =~ ^\[([0-9]+/[0-9]+)\]\ (Building|Linking) ]] || continue
        [[ -n $is_told ]] || say "Building in build/$1; the first time takes some minutes."
        is_told=1
        [[ -z $is_terminal ]] || printf '\r%s ' "${BASH_REMATCH[1]}" >&2
    done > "$2"
    [[ -z $is_terminal ]] || printf '\r\033[K' >&2
}

# What a compiler cache, where there is one, needs to know a file again in a checkout elsewhere or built from
# another terminal: it keeps the compiler's messages too, and their language.
share_compiler_cache() {
    export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$root} CCACHE_NOHASHDIR=1 LANG=C.UTF-8
    unset LC_ALL LC_CTYPE LC_MESSAGES
}

# build PRESET TARGET...
# Two compilers at a time, since each may need more than a gigabyte.
build() {
    share_compiler_cache
    local preset=$1 folder=$root/build/$1
    shift
    mkdir -p "$folder"
    # Two builds in one folder would spoil each other.
    exec 9> "$folder/setup.lock"
    flock 9
    local log=$folder/setup.log
    if [[ ! -e $folder/build.ninja ]]; then
        say "Configuring build/$preset."
        local options=()
        if command -v ccache > /dev/null; then
            options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
        fi
        (cd "$root" && cmake --preset "$preset" "${options[@]}") > "$log" 2>&1 9>&- || {
            cat "$log" >&2
            fail "build/$preset could not be configured."
        }
    fi
    cmake --build "$folder" --target "$@" --parallel 2 2>&1 9>&- | log_build "$preset" "$log" || {
        cat "$log" >&2
        fail "build/$preset could not be built."
    }
    exec 9>&-
}

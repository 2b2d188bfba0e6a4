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

# build PRESET TARGET...
# Two compilers at a time, since each may need more than a gigabyte.
build() {
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
    cmake --build "$folder" --target "$@" --parallel 2 2>&1 9>&- | awk -v log_file="$log" -v preset="$preset" '
        /\] (Building|Linking)/ && !told {
            print "Building in build/" preset "; the first time takes some minutes." > "/dev/stderr"
            told = 1
        }
        { print > log_file }' || {
        cat "$log" >&2
        fail "build/$preset could not be built."
    }
    exec 9>&-
}

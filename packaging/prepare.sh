# What ./run and ./check share: messages, and bringing the machine's packages up to the list.
# Sourced, never run. The caller has changed into the repository and set "tool" to its own name.
# shellcheck shell=bash
: "${tool:?the caller names itself}"

say() { printf '%s: %s\n' "$tool" "$*"; }
fail() {
    printf '%s: %s\n' "$tool" "$*" >&2
    exit 1
}

# The package names of the named sections, "?" marks kept.
packages_of() {
    awk -v wanted=" $* " '
        { sub(/#.*/, ""); gsub(/[ \t\r]/, "") }
        /^\[.*\]$/ { section = substr($0, 2, length($0) - 2); next }
        $0 != "" && index(wanted, " " section " ") { print }
    ' packaging/packages.txt
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# apt-get as root, its talk kept in a file: what a reader needs of it is one line.
apt_as_root() {
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "$@" >>build/packages.log 2>&1
}

may_install() {
    [ "$(id -u)" -eq 0 ] && return 0
    command -v sudo >/dev/null || return 1
    # Without a terminal sudo cannot ask for the password.
    sudo -n true 2>/dev/null || [ -t 0 ]
}

# Installs what the named sections list and the machine lacks. A stamp that changes with the list and with
# the machine's package state spares a second call the questions.
ensure_packages() {
    [ "${JOBWRIGHT_NO_INSTALL:-}" = 1 ] && return 0
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "no apt-get here: the packages named in packaging/packages.txt must be there already"
        return 0
    fi
    local names stamp state
    names=$(packages_of "$@")
    stamp="build/.packages-$(tr ' ' '-' <<<"$*")"
    state=$(
        echo "$names"
        stat -c %Y /var/lib/dpkg/status 2>/dev/null
    )
    [ "$(cat "$stamp" 2>/dev/null)" = "$state" ] && return 0
    install_missing "$names"
    {
        echo "$names"
        stat -c %Y /var/lib/dpkg/status 2>/dev/null
    } >"$stamp"
}

install_missing() {
    local name missing=() wished=()
    for name in $1; do
        is_installed "${name#\?}" && continue
        if [ "${name#\?}" = "$name" ]; then missing+=("$name"); else wished+=("${name#\?}"); fi
    done
    [ ${#missing[@]} -eq 0 ] && [ ${#wished[@]} -eq 0 ] && return 0
    if [ ${#missing[@]} -gt 0 ]; then
        may_install || fail "these packages are missing, and installing them needs root or sudo: ${missing[*]}"
        say "installing ${missing[*]} (all of it is noted in build/packages.log)"
        # A dead third-party source must not stop the build, so it is the installation that decides.
        apt_as_root update || true
    fi
    # Wishes are for newer or older distributions; one that this machine cannot have is no failure.
    for name in "${wished[@]}"; do
        apt-cache show "$name" >/dev/null 2>&1 && may_install && missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    apt_as_root install -y --no-install-recommends "${missing[@]}" && return 0
    fail "the packages could not be installed (is there a network?): $(install_failure)"
}

# The last error that apt-get noted.
install_failure() {
    local line
    line=$(grep '^E: ' build/packages.log | tail -n 1)
    echo "${line:-see build/packages.log}"
}

# A build folder that was made for another place (a moved or copied tree) is configured from nothing.
configured_elsewhere() {
    [ -f build/CMakeCache.txt ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" build/CMakeCache.txt
}

# Runs a step that nobody wants to read unless it fails.
quietly() {
    local log=$1
    shift
    "$@" >"$log" 2>&1 && return 0
    cat "$log" >&2
    return 1
}

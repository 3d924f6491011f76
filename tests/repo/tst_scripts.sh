#!/usr/bin/env bash
# ./run and ./check on machines that lack things: the real scripts in a copied tree, with the system's package
# tools, cmake and ctest replaced by ones that note how they were called.
# shellcheck disable=SC2016  # the stubs' lines are for the stubs to expand
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
area=$(mktemp -d)
trap 'rm -rf "$area"' EXIT
failures=0

complain() {
    echo "FAIL: $case_name: $*"
    sed 's/^/    /' "$area/out" "$area/calls"
    failures=$((failures + 1))
}
prints() { grep -qF -- "$1" "$area/out" || complain "did not print \"$1\""; }
called() { grep -qxF -- "$1" "$area/calls" || complain "did not call \"$1\""; }
not_called() { ! grep -q -- "$1" "$area/calls" || complain "called \"$1\""; }
ended() { [ "$status" -eq "$1" ] || complain "ended with $status, not $1"; }

# A tool that notes its call, under its own or another name, and then runs the given lines.
stub() {
    printf '#!/bin/bash\necho "%s $*" >>"%s/calls"\n%s\n' "${3:-$(basename "$1")}" "$area" "${2:-}" >"$1"
    chmod +x "$1"
}

# A fresh tree on a fresh machine on which everything is installed, run by root, with no display.
machine() {
    case_name=$1
    rm -rf "${area:?}/"{tree,bin,home}
    mkdir -p "$area/tree/packaging" "$area/tree/src" "$area/bin" "$area/home"
    cp "$here/run" "$here/check" "$area/tree/"
    cp "$here/packaging/packages.txt" "$here/packaging/prepare.sh" "$area/tree/packaging/"
    stub "$area/bin/dpkg-query" 'case " $ABSENT " in *" ${!#} "*) exit 1 ;; esac; echo installed'
    stub "$area/bin/apt-get" '[ "$1" != install ] || { echo "E: no such host"; exit "${APT_STATUS:-0}"; }'
    stub "$area/bin/apt-cache" 'exit 1'
    stub "$area/bin/stat" 'echo 1'
    stub "$area/bin/id" 'echo "${USER_ID:-0}"'
    stub "$area/bin/sudo" 'exit 1'
    stub "$area/bin/cmake" 'touch build/build.ninja; mkdir -p build/bin; cp "$PROGRAM" build/bin/jobwright'
    stub "$area/bin/ctest" 'echo "100% tests passed"'
    stub "$area/bin/clang-format-14" '[ "$1" != --version ] || { echo "clang-format version 14.0.6"; exit 0; }
        exit "${FORMAT_STATUS:-0}"'
    stub "$area/program" 'case "$*" in
        *companies) [ -n "${EMPTY:-}" ] || printf "~ Planning ~\nAlder\nBirch\n" ;;
        *summary*) echo "summary of ${!#}" ;;
        esac' jobwright
}

# Calls a script of the tree: go [VARIABLE=value ...] script arguments
go() {
    : >"$area/calls"
    status=0
    env -u DISPLAY -u WAYLAND_DISPLAY -u XDG_DATA_HOME -u CI -u JOBWRIGHT_NO_INSTALL -u JOBWRIGHT_DEMO_FOLDER \
        PATH="$area/bin:$PATH" HOME="$area/home" PROGRAM="$area/program" ABSENT= \
        "$@" </dev/null >"$area/out" 2>&1 || status=$?
}
run=$area/tree/run
check=$area/tree/check
demo=$area/home/.local/share/jobwright-demo

machine "nothing missing: nothing is installed and a second call neither asks nor configures"
go "$run" --build
ended 0
not_called apt-get
called "cmake --preset release"
go "$run" --build
ended 0
not_called dpkg-query
not_called "cmake --preset"

machine "some missing: only those are installed, after one update"
go ABSENT="cmake mold" "$run" --build
ended 0
called "apt-get update"
called "apt-get install -y --no-install-recommends cmake mold"

machine "missing for the checks only: the test packages count too"
go ABSENT="sqlite3" "$check"
ended 0
called "apt-get install -y --no-install-recommends sqlite3"

machine "a wish that the distribution does not know is no failure"
go ABSENT="clang-format-14 qt6-svg-plugins" "$check"
ended 0
not_called "apt-get install"

machine "no rights: the missing packages are named and nothing is tried"
go USER_ID=1000 ABSENT="cmake" "$run" --build
ended 1
prints "needs root or sudo: cmake"
not_called apt-get

machine "no network: apt's own reason is shown and the next call tries again"
go ABSENT="cmake" APT_STATUS=100 "$run" --build
ended 1
prints "E: no such host"
go ABSENT="cmake" "$run" --build
ended 0
called "apt-get install -y --no-install-recommends cmake"

machine "told not to install: goes on with what is there"
go JOBWRIGHT_NO_INSTALL=1 ABSENT="mold" "$run" --build
ended 0
not_called apt-get
called "cmake --build build --target jobwright"

machine "a build folder of another place is configured from nothing"
mkdir -p "$area/tree/build"
echo "CMAKE_HOME_DIRECTORY:INTERNAL=/elsewhere" >"$area/tree/build/CMakeCache.txt"
go "$run" --build
called "cmake --fresh --preset release"

machine "no display: the first company that is no category is summed up"
go "$run"
ended 0
prints "no display"
prints "summary of Alder"
called "jobwright companies"

machine "no display and no company: says so"
go EMPTY=1 "$run"
ended 0
prints "no companies yet"

machine "a display: the workbench opens"
go DISPLAY=:7 "$run"
ended 0
called "jobwright "

machine "demo: made new at each call"
go "$run" --demo
ended 0
called "jobwright --folder $demo demo"
touch "$demo/spoilt"
go "$run" --demo
ended 0
[ ! -e "$demo/spoilt" ] || complain "the old demo is still there"

machine "demo: a folder of somebody else stays as it is"
mkdir -p "$demo"
touch "$demo/letters"
go "$run" --demo
ended 1
prints "stays as it is"
[ -e "$demo/letters" ] || complain "the folder was emptied"

machine "demo: not emptied under an open window"
go "$run" --demo
echo $$ >"$demo/jobwright.lock"
go "$run" --demo
ended 1
prints "open already"
[ -e "$demo/jobwright.lock" ] || complain "the open demo was removed"
sleep 0 &
wait $!
echo $! >"$demo/jobwright.lock"
go "$run" --demo
ended 0

machine "check: ends with ctest's lines; warnings are errors in CI only"
go "$check"
ended 0
called "cmake --preset ci -DJOBWRIGHT_WERROR=OFF"
[ "$(tail -n 1 "$area/out")" = "100% tests passed" ] || complain "does not end with ctest's lines"
go CI=true "$check"
called "cmake --preset ci -DJOBWRIGHT_WERROR=ON"

machine "check: a file laid out differently stops it before the build"
touch "$area/tree/src/a.cpp"
go FORMAT_STATUS=1 "$check"
ended 1
not_called "cmake --build"

machine "wrong usage: the argument is named"
go "$run" --dmeo
ended 2
prints 'unknown argument "--dmeo"'
go "$check" --fast
ended 2

[ "$failures" -eq 0 ] && echo "all cases passed"
exit "$((failures > 0))"

#!/usr/bin/env bash
# The bash completion of jobwright, asked as the shell asks it: the words typed so far in, the offers out.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
area=$(mktemp -d)
trap 'rm -rf "$area"' EXIT
cat >"$area/jobwright" <<'PROGRAM'
#!/bin/bash
if [ "$*" = "--folder other companies" ]; then echo Larch; exit; fi
case $* in
status) printf 'TimeDelta\t10\nTimeFreq\tweeks\n' ;;
query*) printf 'FirstName,LastName\r\nAnn,Lee\r\n"Bo, Jr",New\r\n' ;;
copies) printf 'Copy  Made\nPostledger-2026-11-22-daily.db  2026-11-22\n' ;;
esac
[ "$*" = companies ] && printf '~ Planning ~\nAlder Works\nAlder & Daughters\nBirch "B" Ltd\n'
PROGRAM
chmod +x "$area/jobwright"
compopt() { :; } # knows no place outside a completion under way
# shellcheck source=packaging/jobwright.bash-completion
. "$here/packaging/jobwright.bash-completion"
failures=0

# offers EXPECTED word...: the last word is the one being typed
offers() {
    local expected=$1 joined
    shift
    COMP_WORDS=("$area/jobwright" "$@")
    COMP_CWORD=$#
    _jobwright
    joined=$(printf '%s|' "${COMPREPLY[@]}")
    [ "${joined%|}" = "$expected" ] && return
    echo "FAIL: after \"$*\" offered \"${joined%|}\", not \"$expected\""
    failures=$((failures + 1))
}

offers "companies|contacts|copy|copies" co
offers "TimeDelta|TimeFreq" status time
offers 'Ann\ Lee' history an
offers "Postledger-2026-11-22-daily.db" restore Post
offers "--folder" --f
offers "--json" query --j
offers "--json" pipeline --j
offers "--map|--map-file" import --m
offers "history" hi
offers "--from" history --fr
offers "position" report --pdf x.pdf pos
offers 'Alder\ Works|Alder\ \&\ Daughters' positions alder
offers "--yes" --folder other import --y
offers 'Alder\ Works|Alder\ \&\ Daughters' summary alder
offers 'Alder\ Works' summary 'Alder\ W'
offers 'Birch\ \"B\"\ Ltd' summary '"bir'
offers 'Alder\ Works' contacts 'Alder\ W'
offers "Larch" --folder other summary ""
offers "" summary zebra
touch "$area/some file.xml"
offers "$area/some file.xml" import "$area/so"
offers "$area/some file.xml" parse-card "$area/so"

[ "$failures" -eq 0 ] && echo "all cases passed"
exit "$((failures > 0))"

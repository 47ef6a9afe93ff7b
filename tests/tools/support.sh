# shellcheck shell=bash
# What the tests of the program share: sourced by them, with the program as $1. Each works in a
# folder of its own and counts its failures.
set -u
orva=$1
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
: >errors
: >output
failures=0

complain() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}

run() {
    "$orva" "$@" >output 2>errors || complain "orva $* ended with $?: $(cat errors)"
}

# All files of the folder, unfinished ones as well, and what is in them.
files() {
    find . -mindepth 1 | sort
    cksum ./*
}

# refuses <text> <arguments>: status 2, the text among the errors, no file more and none changed.
refuses() {
    text=$1
    shift
    before=$(files)
    said=$("$orva" "$@" 2>&1)
    status=$?
    case $said in
    *"$text"*) ;;
    *) complain "orva $* said '$said', not '$text'" ;;
    esac
    [ $status -eq 2 ] || complain "orva $* ended with $status, not 2"
    [ "$(files)" = "$before" ] || complain "orva $* changed files: $(ls -A)"
}

# same <file> <file> [what]
same() {
    cmp -s "$1" "$2" || complain "$1 and $2 differ${3:+: $3}"
}

# bytes <file>: its bytes in decimal, in one line.
bytes() {
    od -An -v -tu1 "$1" | xargs
}

# shows <what> <expected> <is>
shows() {
    [ "$2" = "$3" ] || complain "$1: '$3', not '$2'"
}

# The last command of a test.
finish() {
    [ $failures -eq 0 ]
}

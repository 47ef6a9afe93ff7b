#!/usr/bin/env bash
# Checks what the built library shows to the outside, ELF or PE. Each check prints what is wrong and
# fails; none needs the library to run.
#
#   library_check.sh exports OBJDUMP LIBRARY DEF           the exported names are the list's
#   library_check.sh dependencies OBJDUMP LIBRARY          it loads with the system's libraries alone
#   library_check.sh state OBJDUMP LIBRARY                 it keeps no state but the chosen kernels
#   library_check.sh header DEF HEADER COMPILER [FLAG...]  the declared names are the list's
#   library_check.sh isa NAME OBJDUMP OBJECT...            kernels leak no code to other processors
set -euo pipefail
export LC_ALL=C

fail() { echo "library check: $*" >&2; exit 1; }

listed_names() { sed -e 's/[;@].*//' -e '/EXPORTS/d' -e 's/[[:space:]]//g' -e '/^$/d' "$1" | sort; }

# The lines of standard input must be the list's, no more, no fewer, none twice.
compare_with_list() {
    [ -n "$(listed_names "$1")" ] || fail "no names in $1"
    diff <(listed_names "$1") <(sort) || fail "'<' is listed but not there, '>' is there but not listed"
}

is_elf() { head -c 4 "$1" | grep -aq ELF; }

check_exports() {
    local objdump=$1 library=$2 def=$3
    if is_elf "$library"; then
        "$objdump" -T "$library" | awk '/^[0-9a-f]/ && !/\*UND\*/ { print $NF }'
    else
        "$objdump" -p "$library" |
            awk '/Ordinal\/Name Pointer/ { names = 1; next } /^$/ { names = 0 } names { print $NF }'
    fi | compare_with_list "$def"
}

check_dependencies() {
    local objdump=$1 library=$2 needed allowed
    if is_elf "$library"; then
        needed=$("$objdump" -p "$library" | awk '$1 == "NEEDED" { print $2 }')
        allowed='libc\.so\.6'
        ! "$objdump" -p "$library" | grep -w TEXTREL || fail "relocations in the code"
    else
        needed=$("$objdump" -p "$library" | awk '/DLL Name:/ { print $3 }')
        allowed='KERNEL32\.dll|msvcrt\.dll'
    fi
    ! grep -vxE "$allowed" <<<"$needed" || fail "needs more than the system's libraries"
}

# Nothing in a writable section except the pointer to the chosen kernels and what the compiler's
# start-up code and processor detection bring along.
check_state() {
    local objdump=$1 library=$2 objects
    objects=$("$objdump" -t "$library" |
        awk '/[[:space:]]\.t?(data|bss)[[:space:]]/ { print $NF }')
    [ -n "$objects" ] || fail "no symbols in $library"
    ! grep -vxE '\.(data|bss)|_edata|_end|__bss_start|__dso_handle|__TMC_END__|completed\.[0-9]+|__cpu_(model|features2)|_ZN4orva13activeKernelsE' \
        <<<"$objects" || fail "writable data"
}

check_header() {
    local def=$1 header=$2
    shift 2
    "$@" -E -P -x c "$header" | grep -oE '\bORVA_[A-Z0-9_]+[[:space:]]*\(' | tr -d ' (' |
        compare_with_list "$def"
}

# A function that several objects may define is linked from any of them. One that was compiled for a
# newer processor must therefore belong to that processor's namespace.
check_isa() {
    local isa=$1 objdump=$2 functions
    shift 2
    functions=$("$objdump" -t "$@" |
        awk '/^[0-9a-f]+  ?w/ && !/\*UND\*/ && / F / { print $NF }')
    ! grep -v "${#isa}$isa" <<<"${functions:-${#isa}$isa}" || fail "shared code compiled for $isa"
}

check=$1
shift
"check_$check" "$@"

#!/usr/bin/env bash
# Checks what a built library shows to the outside, ELF or PE. Each check prints what is wrong and
# fails; none needs the library to run.
#
#   library_check.sh exports OBJDUMP LIBRARY DEF           the exported names are the list's
#   library_check.sh ordinals DEF COUNT SHA256             what was released has kept its ordinals
#   library_check.sh dependencies OBJDUMP LIBRARY          it needs the system's libraries, no file
#   library_check.sh state OBJDUMP LIBRARY                 it keeps no state but the chosen kernels
#   library_check.sh hardening OBJDUMP READELF MARKS FILE  what the system can protect is protected
#   library_check.sh reproducible OBJDUMP SOURCE FILE...   it does not show where and when it was made
#   library_check.sh header DEF HEADER COMPILER [FLAG...]  the declared names are the list's
#   library_check.sh isa NAME BITS OBJDUMP OBJECT...       kernels leak no code to other processors
set -euo pipefail
export LC_ALL=C

fail() { echo "library check: $*" >&2; exit 1; }

# NAME @ORDINAL, and names alone.
listed() { sed -e 's/;.*//' -e '/EXPORTS/d' -e 's/^[[:space:]]*//' -e '/^$/d' "$1"; }
listed_names() { listed "$1" | awk '{ print $1 }'; }

# The lines of standard input must be those of the list, no more, no fewer, none twice.
compare_with() {
    local list
    list=$(sort)
    [ -n "$list" ] || fail "nothing listed"
    diff <(echo "$list") <(sort "$1") || fail "'<' is listed but not there, '>' is there but not listed"
}

is_elf() { head -c 4 "$1" | grep -aq ELF; }

check_exports() {
    local objdump=$1 library=$2 def=$3
    if is_elf "$library"; then
        listed_names "$def" | compare_with \
            <("$objdump" -T "$library" | awk '/^[0-9a-f]/ && $2 != "l" && !/\*UND\*/ { print $NF }')
    else
        listed "$def" | compare_with <("$objdump" -p "$library" | awk -F'[][]' '
            /Ordinal Base/ { n = split($0, words, /[ \t]+/); base = words[n] }
            /Ordinal\/Name Pointer/ { names = 1; next }
            /^$/ { names = 0 }
            names { n = split($NF, words, /[ \t]+/); print words[n] " @" $2 + base }')
    fi
}

# Hosts may bind to ordinals: a list only ever grows at its end. COUNT and SHA256 are of the lines
# that have been released.
check_ordinals() {
    local def=$1 count=$2 hash=$3
    listed "$def" | awk '$2 != "@" NR || NF != 2 { print; wrong = 1 } END { exit wrong }' ||
        fail "ordinals are 1, 2, 3 and so on; a new name takes the next one at the end of the list"
    listed "$def" | head -n "$count" | sha256sum | grep -q "^$hash " ||
        fail "a released name has moved: the first $count lines of $def are for good"
}

check_dependencies() {
    local objdump=$1 library=$2 needed allowed imported
    if is_elf "$library"; then
        needed=$("$objdump" -p "$library" | awk '$1 == "NEEDED" { print $2 }')
        allowed='libc\.so\.6|ld-linux[a-z0-9_-]*\.so\.[0-9]'  # the loader may hold the stack's guard
        imported=$("$objdump" -T "$library" | awk '/\*UND\*/ { print $NF }')
        ! "$objdump" -p "$library" | grep -w TEXTREL || fail "relocations in the code"
    else
        needed=$("$objdump" -p "$library" | awk '/DLL Name:/ { print $3 }')
        allowed='KERNEL32\.dll|msvcrt\.dll'
        imported=$("$objdump" -p "$library" |
            awk '/DLL Name:/ { names = 1 } /^$/ { names = 0 } names { print $NF }')
    fi
    ! grep -vxE "$allowed" <<<"$needed" || fail "needs more than the system's libraries"
    [ -n "$imported" ] || fail "no imports in $library"
    ! grep -xE '_?(w?f?open|openat|CreateFile[AW])(64)?' <<<"$imported" || fail "opens files"
}

# Nothing in a writable section except the pointer to the chosen kernels and what the compiler's
# processor detection brings along.
check_state() {
    local objdump=$1 library=$2 objects
    objects=$("$objdump" -t "$library" |
        awk '/[[:space:]]\.t?(data|bss)[[:space:]]/ { print $NF }')
    [ -n "$objects" ] || fail "no symbols in $library"
    ! grep -vxE '\.(data|bss)|_edata|_end|__bss_start|__cpu_(model|features2)|_ZN4orva(7picture)?13activeKernelsE|\$d(\.[0-9]+)?' \
        <<<"$objects" || fail "writable data"
}

# MARKS are what the file says of control-flow protection, if anything.
check_hardening() {
    local objdump=$1 readelf=$2 marks=$3 file=$4 facts
    if ! is_elf "$file"; then
        facts=$("$objdump" -p "$file")
        grep -qw DYNAMIC_BASE <<<"$facts" || fail "always at the same address"
        grep -qw NX_COMPAT <<<"$facts" || fail "may execute data"
        return
    fi
    facts=$("$readelf" -hldnW "$file")
    grep -q 'Type: *DYN' <<<"$facts" || fail "always at the same address"
    grep -q 'GNU_STACK.* RW ' <<<"$facts" || fail "an executable stack"
    grep -q 'GNU_RELRO' <<<"$facts" || fail "writable addresses"
    grep -q 'BIND_NOW' <<<"$facts" || fail "addresses writable until they are used"
    # An empty entry is whatever folder the program is started in.
    ! grep -E 'R(UN)?PATH.*(\[:|::|:\])' <<<"$facts" || fail "loads libraries from anywhere"
    [ "$(sed -n 's/.*x86 feature: \([A-Z, ]*[A-Z]\).*/\1/p' <<<"$facts")" = "$marks" ] || fail "marks other than: $marks"
}

check_reproducible() {
    local objdump=$1 source=$2 file
    shift 2
    for file; do
        ! grep -aoF "$source" "$file" || fail "$file shows where it was made"
        ! "$objdump" -p "$file" 2>/dev/null | grep '^Time/Date' | grep -vE '(1970|\s0)$' ||
            fail "$file shows when it was made"
    done
}

check_header() {
    local def=$1 header=$2
    shift 2
    listed_names "$def" | compare_with <("$@" -E -P -x c "$header" |
        grep -oE '\b(ORVA_[A-Z0-9_]+|orva_[a-z0-9_]+)[[:space:]]*\(' | tr -d ' (')
}

# The instructions of objects, each once, without where they jump to and what only fills gaps.
instructions() {
    "$objdump" -d --no-show-raw-insn "$@" | sed -nE 's/^ +[0-9a-f]+:[[:space:]]+//p' | sed -E 's/ *(#|<).*//' |
        grep -vE '^(j[a-z]+|call|ret|nop|data16|cs nop|xchg +%ax,%ax|endbr|bnd |rep ret)' | sort -u
}

# A function that several objects may define is linked from any of them. One that was compiled for a
# newer processor must therefore belong to that processor's namespace, and may have no instruction
# that src/frame/instruction_sets.hpp does not ask the processor for. The assembler knows which these are.
check_isa() {
    local isa=$1 bits=$2 objdump=$3 functions extensions processor=generic64 found
    shift 3
    # Weak ones in ELF objects; in those of Windows each has a section of its own.
    functions=$("$objdump" -t "$@" | sed -nE -e '/\*UND\*/d' -e 's/^[0-9a-f]+ +w +F .* //p' \
        -e 's/.* \.text\$(_Z.*)/\1/p')
    [ -n "$functions" ] || fail "no shared functions found"
    ! grep -v "${#isa}$isa" <<<"$functions" || fail "shared code compiled for $isa"

    case $isa in
    sse2) extensions=+sse2 ;;
    sse41) extensions=+sse4.1 ;;
    avx2) extensions=+avx2 ;;
    avxvnni) extensions=+avx2+avx_vnni ;;
    avx512) extensions=+avx512f+avx512bw+avx512vl+avx512_vnni ;;
    neon) return ;; # part of every such processor
    *) fail "what may $isa use?" ;;
    esac
    [ "$bits" = 64 ] || processor=i686
    found=$(instructions "$@")
    [ "$(wc -l <<<"$found")" -gt 5000 ] || fail "only few instructions of $isa"
    # Padding of 32-bit code names a register that only disassemblers and this option know.
    as "--$bits" -mindex-reg "-march=$processor$extensions" -o /dev/null - <<<"$found" ||
        fail "instructions beyond $isa"

    # 64-bit Windows aligns the stack to 16 bytes, and GCC trusts that it is more. No aligned access is
    # meant anywhere else.
    if "$objdump" -f "$1" | grep -q 'format pe-x86-64'; then
        ! grep -E '^vmov(ap[sd]|dqa).*[yz]mm' <<<"$found" | grep -F '(' || fail "aligned access of wide vectors"
    fi
}

check=$1
shift
"check_$check" "$@"

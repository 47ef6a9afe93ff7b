#!/usr/bin/env bash
# Checks that the documentation keeps up with the library.
#
#   docs_test.sh DOCS DEF SRC
#
# conversions.md has each export of the list once in the first column of its tables, without the
# prefix, and mentions no other. The tables that arithmetic.md marks as a family's coefficients hold
# the numbers of that family's coefficients.hpp, in the same order. What scripts/performance-docs writes
# lies between its marks, and has a date and a table.
set -euo pipefail
export LC_ALL=C

docs=$1 def=$2 src=$3
status=0

# The same lines on both sides, and some.
compare() {
    if [ -z "$2" ] || ! diff <(echo "$2") <(echo "$3"); then
        echo "docs test: $1: '<' is the library's, '>' the documentation's" >&2
        status=1
    fi
}

names() { grep -oE '`[A-Z]+[0-9]+[A-Z0-9]*_[A-Z]+[0-9]+[A-Z0-9]*(_EX)?`' | tr -d '`'; }

# Coefficients have four digits or more; nothing else in these files does.
numbers_of_code() { sed 's://.*::' "$1" | grep -oE -- '-?\b[0-9]{4,}\b'; }
numbers_of_tables() {
    awk -v marker="<!-- coefficients: $1 -->" -F'|' '
        $0 == marker { marked = 1; next }
        /^$/ { marked = 0 }
        marked { for (i = 2; i < NF; ++i) if ($i ~ /^ -?[0-9][0-9][0-9][0-9]/) print $i }' \
        "$docs/arithmetic.md" | awk '{ print $1 }'
}

exports=$(sed -n 's/^ *ORVA_SSE2_\([A-Z0-9_]*\).*/\1/p' "$def" | sort)
compare "names in the tables" "$exports" \
    "$(awk -F'|' '/^\|/ { print $2 }' "$docs/conversions.md" | names | sort)"
compare "names anywhere" "$exports" "$(names <"$docs/conversions.md" | sort -u)"

for coefficients in "$src"/*/coefficients.hpp; do
    family=$(basename "$(dirname "$coefficients")")
    compare "$family" "$(numbers_of_code "$coefficients")" "$(numbers_of_tables "$family")"
done

# The names of a file's marked parts that are whole.
marked_parts() {
    awk '
        /^<!-- figures: .* -->$/ { if (open) exit 1; open = 1; dates = rows = 0; name = $0; next }
        open && /^20[0-9][0-9]-[0-9][0-9]-[0-9][0-9], .*-bit build/ { ++dates }
        open && /^\|.*[0-9]\.[0-9][0-9]+ / { ++rows }
        /^<!-- end of figures -->$/ {
            if (!open) exit 1
            open = 0
            gsub(/<!-- figures: | -->/, "", name)
            if (dates == 1 && rows > 0) print name
        }' "$1"
}
compare "figures of README.md" $'exports\npairs' "$(marked_parts "$docs/../README.md")"
compare "figures of performance.md" $'exports\ntargets of exports\npairs\ntargets of pairs' \
    "$(marked_parts "$docs/performance.md")"
exit "$status"

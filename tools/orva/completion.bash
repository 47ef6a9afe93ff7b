# Completion of orva in bash. Commands, options, their choices and the formats are what the program
# itself tells, so that this is never out of date.

# What may follow an option of a command: FORMAT, WxH, choices such as studio|full, or nothing.
_orva_argument() {
    "$1" "$2" --help 2>/dev/null |
        awk -v option="$3" '$1 == option { print $2; exit }'
}

_orva() {
    local program=$1 word=$2 previous=$3 command='' i words
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            command=${COMP_WORDS[i]}
            break
        fi
    done
    if [[ -z $command ]]; then
        words=$("$program" --help 2>/dev/null |
            awk '/^Subcommands:/ { listed = 1; next } listed { print $1 }')
        words+=" --help --version"
    elif [[ $previous == --* ]]; then
        words=$(_orva_argument "$program" "$command" "$previous")
        case $words in
        FORMAT) words=$("$program" formats 2>/dev/null |
            awk '/^  / { print $1; for (i = 4; i <= NF; ++i) print $i } /^$/ { exit }') ;;
        WxH) words="720x576 1280x720 1920x1080 3840x2160" ;;
        PNG) words='' ;;
        *'|'*) words=${words//|/ } ;;
        N | 'N[:D]' | DB | 0..255) return ;;
        *) words='' previous='' ;; # a flag
        esac
    fi
    if [[ -n $command && $previous != --* && $word == -* ]]; then
        words=$("$program" "$command" --help 2>/dev/null | grep -oE '^ +-[-a-z,]+' | grep -oE -- '--[-a-z]+')
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    if [[ -n $command && -z $words ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _orva orva

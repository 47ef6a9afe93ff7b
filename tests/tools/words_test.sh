#!/usr/bin/env bash
# What the program says, and its proof: words_test.sh <program> <manual page> <completion> [png]
# shellcheck source=support.sh
. "$(dirname "$0")/support.sh"
manual=$2 completion=$3 png=${4:-}

# says <status> <text> <arguments>: that status, the text in what is said.
says() {
    local status=$1 text=$2 said
    shift 2
    said=$("$orva" "$@" 2>&1)
    [ $? -eq "$status" ] || complain "orva $* did not end with $status: $said"
    case $said in
    *"$text"*) ;;
    *) complain "orva $* said '$said', not '$text'" ;;
    esac
}

# raw <number...>: those bytes.
raw() {
    local byte
    for byte; do
        printf "\\x$(printf %02x "$byte")"
    done
}

size=(--size 64x4)
printf '%0512d' 0 >clip.uyvy

# What was mistyped, and what was meant.
says 2 "unknown command 'covert', did you mean 'convert'?" covert --from uyvy
says 2 "which command?"
says 2 "unknown option '--form', did you mean '--from'?" convert --form uyvy --to bgra "${size[@]}" clip.uyvy out
says 2 "unknown option '--siez', did you mean '--size'?" info --siez=64x4 clip.uyvy
says 2 "unknown option '--verbose'
" convert --verbose
says 2 "unknown option '--loud'" --loud info clip.uyvy
says 2 "unknown format 'uyvu422', did you mean 'uyvy422'?" info --format uyvu422 "${size[@]}" clip.uyvy
says 2 "unknown format 'h264'; 'orva formats'" info --format h264 "${size[@]}" clip.uyvy
says 2 "not 'bt907', did you mean 'bt709'?" pattern --format nv16 "${size[@]}" --matrix bt907 out
says 2 "one file too many: 'more'" info --format uyvy "${size[@]}" clip.uyvy more
for wrong in nan inf -1 40dB; do
    says 2 "not '$wrong'" compare --format uyvy "${size[@]}" --min-psnr="$wrong" clip.uyvy clip.uyvy
done

# Formats are called as they were typed.
says 2 'no conversion from nv16 to gray8' convert --from nv16 --to gray8 "${size[@]}" clip.uyvy out
says 2 'not p210le' pattern --format p210le "${size[@]}" out.ppm
says 2 '2vuy of 63x3' info --format 2vuy --size 63x3 clip.uyvy
says 0 '1 frame of nv16 (Y8PUV8I), 64x4' info --format nv16 "${size[@]}" clip.uyvy

# What is in a file: 8 columns of the histogram for 32 codes, heights by the square root.
{ for ((i = 0; i < 80; ++i)); do raw 16; done; for ((i = 0; i < 20; ++i)); do raw 235; done; } >luma
{ cat luma; for ((i = 0; i < 100; ++i)); do raw 128; done; } >studio.nv16
LC_ALL=C.UTF-8 says 0 '  Y   16..235 mean  59.80  0.000 % outside 16..235
     |    █                                                     ▄     |' info --format nv16 --size 10x10 studio.nv16
LC_ALL=C says 0 '|    @                                                     =     |' info --format nv16 --size 10x10 studio.nv16
says 0 'Range: studio by all signs' info --format nv16 --size 10x10 studio.nv16
says 0 'Matrix: not guessed' info --format nv16 --size 10x10 studio.nv16
{ raw 255; tail -c +2 studio.nv16; } >peak.nv16
says 0 'Codes that SDI reserves (0, 255): 0.500 %' info --format nv16 --size 10x10 peak.nv16
says 0 'Range: full, or not this format: up to 1.0 %' info --format nv16 --size 10x10 peak.nv16
{ cat studio.nv16 peak.nv16; } >two.nv16
says 0 'Range: studio with overshoot, up to 0.500 %' info --format nv16 --size 10x10 two.nv16
"$orva" pattern --format V210 --range full "${size[@]}" full.v210
says 0 'Range: full, or not' info --format V210 "${size[@]}" full.v210
says 0 'reserves (0..3, 1020..1023)' info --format V210 "${size[@]}" full.v210
says 2 'needs --format and --size' info clip.uyvy
"$orva" pattern --format RGB24I "${size[@]}" chart.ppm
says 0 '1 frame of RGB24I, 64x4' info chart.ppm
says 0 'Range: full, as RGB always is' info chart.ppm
{ printf 'P6 1 1 255\n' && raw 16 128 235; } >studio.ppm
says 0 'as if it were studio' info studio.ppm
printf '\377\377\377\377' >alpha
says 0 'Alpha: opaque everywhere' info --format A8P --size 2x2 alpha

# Where two clips differ: the second pixel's green by 1 in the first frame, the third's blue by 9 in
# the second one; a sample of chroma is of two pixels.
raw 1 2 3 4 5 6 7 8 9 1 2 3 4 5 6 7 8 9 >a.bgr
raw 1 2 3 4 6 6 7 8 9 1 2 3 4 5 6 16 8 9 >b.bgr
bgr=(compare --format bgr24 --size 3x1)
says 0 'greatest difference 9, 1 of 6 samples differ' "${bgr[@]}" --max-difference 9 --heatmap where.ppm a.bgr b.bgr
[ "$(bytes <(tail -c 9 where.ppm))" = '0 0 0 40 40 160 255 255 255' ] ||
    complain "heatmap: $(od -An -tu1 where.ppm)"
says 1 'differs by more than 8' "${bgr[@]}" --max-difference 8 a.bgr b.bgr
says 1 'PSNR is below 60 dB' "${bgr[@]}" --min-psnr 60 a.bgr b.bgr
says 0 'PSNR' "${bgr[@]}" a.bgr b.bgr
says 0 'black, nothing differs' "${bgr[@]}" --max-difference 0 --heatmap where.ppm a.bgr a.bgr
[ "$(bytes <(tail -c 9 where.ppm))" = '0 0 0 0 0 0 0 0 0' ] || complain "heatmap of nothing"
says 2 'the name of the heatmap is empty' "${bgr[@]}" --heatmap '' a.bgr b.bgr
for number in 1 2; do
    cp where.ppm s$number.ppm
done
ln s2.ppm again.ppm
refuses 's2.ppm: is also the output' compare --heatmap again.ppm s%d.ppm s%d.ppm
refuses 'standard input: is also the output' compare --heatmap s1.ppm where.ppm - <s1.ppm
says 2 'holds no number' "${bgr[@]}" --heatmap where%d.ppm a.bgr b.bgr
says 2 'is not the name of a picture' "${bgr[@]}" --heatmap where.raw a.bgr b.bgr
raw 90 10 90 10 90 10 >a.uyvy
raw 90 10 91 10 90 10 >b.uyvy
says 0 'Cr PSNR' compare --format uyvy --size 2x1 --heatmap where.ppm <(head -c 4 a.uyvy) <(head -c 4 b.uyvy)
[ "$(bytes <(tail -c 6 where.ppm))" = '255 255 255 255 255 255' ] || complain "heatmap of chroma"
if [ "$png" = png ]; then
    says 0 'where.png' "${bgr[@]}" --heatmap where.png a.bgr b.bgr
    says 0 '1 frame of RGB24I, 3x1' info where.png
fi

# Documented bytes, and one that is not.
says 0 'This machine gives the documented bytes.' selftest
[ "$("$orva" selftest | grep -c ' of [0-9]* as documented')" -ge 2 ] || complain "selftest: $("$orva" selftest)"
[ "$("$orva" selftest | wc -l)" -le 20 ] || complain 'selftest says too much'
for case in 'UYVY16I_BGR32I 11' 'V210_BGR32I'; do
    LC_ALL=C sed "s/^$case [0-9a-f]*$/$case 0123456789abcdef/" "$orva" >broken
    chmod +x broken
    ./broken selftest >output
    [ $? -eq 1 ] || complain "a selftest with another hash of $case does not end with 1"
    grep -q "1 of [0-9]* DIFFER: $case" output || complain "$case: $(cat output)"
done

# Versions.
says 0 "orva $("$orva" selftest | sed -n '1s/^orva \([^ ]*\).*/\1/p') for " --version
says 0 'Instruction set in use: ' --version
says 0 'CLI11 2.' --version

# The manual has every command, and every option of its help below its command; what formats it
# finds nothing amiss.
plain=$(sed 's/\\-/-/g; s/\\f.//g' "$manual")
commands=$("$orva" --help | awk '/^Subcommands:/ { listed = 1; next } listed { print $1 }')
options_of() { "$orva" "$@" --help | grep -oE '^ +-[-a-z,]+' | grep -oE -- '--[-a-z]+' | sort; }
for command in $commands; do
    grep -qxF ".B $command" <<<"$plain" || complain "no command $command in the manual"
    documented=$(awk -v name="$command" '/^\.S[HS]/ { here = $2 == name } here && /^\.B/' <<<"$plain")
    for option in $(options_of "$command" | grep -vx -- --help); do
        grep -qE -- "[ \"]$option( |\"|,|$)" <<<"$documented" || complain "no $command $option in the manual"
    done
done
if command -v man >output && man --version >output 2>&1; then
    [ -z "$(MANWIDTH=80 man -l --warnings=w "$manual" 2>&1 >output)" ] || complain "man: $(man -l --warnings=w "$manual" 2>&1 >output)"
fi
if command -v mandoc >output; then
    [ -z "$(mandoc -Tlint "$manual")" ] || complain "mandoc: $(mandoc -Tlint "$manual")"
fi

# What bash offers at the end of a command line.
cp "$completion" completion.bash
cat >complete <<'END'
. ./completion.bash
COMP_WORDS=(orva "$@")
COMP_CWORD=$#
_orva "$ORVA" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
printf '%s\n' "${COMPREPLY[@]}" | sort | xargs
END
offers() {
    local expected=$1 offered
    shift
    offered=$(ORVA=$orva bash complete "$@" 2>&1)
    [ "$offered" = "$expected" ] || complain "orva $*: offered '$offered', not '$expected'"
}
offers 'convert' con
offers "$(printf '%s\n' $commands --help --version | sort | xargs)" ''
offers "$(options_of convert | xargs)" convert --
offers '--src-matrix --src-range' convert --from uyvy --src
offers 'uyva uyvy uyvy422' convert --from uyv
offers 'full studio' convert --stats --range ''
offers 'where.ppm' compare --heatmap where.pp
offers 'clip.uyvy' info --format uyvy --size 64x4 cl
offers '' convert --alpha ''
offers '' convert --rate ''

finish

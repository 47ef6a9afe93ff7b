#!/usr/bin/env bash
# The command-line program as a user meets it: cli_test.sh <program> [png]
set -u
orva=$1
png=${2:-}
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0

complain() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}

run() {
    "$orva" "$@" >output 2>errors || complain "orva $* ended with $?: $(cat errors)"
}

# refuses <text> <arguments>: status 2, the text among the errors, no file more and none changed.
refuses() {
    text=$1
    shift
    before=$(cksum ./*)
    said=$("$orva" "$@" 2>&1)
    status=$?
    case $said in
    *"$text"*) ;;
    *) complain "orva $* said '$said', not '$text'" ;;
    esac
    [ $status -eq 2 ] || complain "orva $* ended with $status, not 2"
    [ "$(cksum ./*)" = "$before" ] || complain "orva $* changed files: $(ls)"
}

same() {
    cmp -s "$1" "$2" || complain "$1 and $2 differ"
}

size=(--size 322x66)
uyvy=(--from UYVY16I --to BGR32I "${size[@]}")
: >errors
: >output
run pattern --format UYVY16I "${size[@]}" --frames 7 clip.uyvy
head -c 100000 clip.uyvy >partial.uyvy
head -c 42504 clip.uyvy >frame.uyvy
: >empty.uyvy
cp clip.uyvy raw.ppm
echo precious >precious

# What may go wrong. Standard input shows only at its end that the last frame is not whole.
refuses "unknown format 'UYVY10'" convert --from UYVY10 --to BGR32I "${size[@]}" clip.uyvy out
refuses 'no conversion from A8P to BGR32I' convert --from A8P --to BGR32I "${size[@]}" clip.uyvy out
refuses 'width is odd' convert --from UYVY16I --to BGR32I --size 321x66 clip.uyvy out
refuses "'322x' is not a size" convert --from UYVY16I --to BGR32I --size 322x clip.uyvy out
refuses 'needs --size' convert --from UYVY16I --to BGR32I clip.uyvy out
refuses 'not a whole number of frames' convert "${uyvy[@]}" partial.uyvy precious
refuses 'not a whole number of frames' convert "${uyvy[@]}" - precious <partial.uyvy
refuses 'holds no frame' convert "${uyvy[@]}" empty.uyvy out
refuses 'holds no frame' convert "${uyvy[@]}" - out </dev/null
refuses 'missing.uyvy: cannot be read' convert "${uyvy[@]}" missing.uyvy out
refuses 'is a directory' convert "${uyvy[@]}" . out
refuses 'missing/out: cannot be written' convert "${uyvy[@]}" clip.uyvy missing/out
refuses 'cannot be written' convert "${uyvy[@]}" clip.uyvy /dev/full
refuses '--alpha' convert "${uyvy[@]}" --alpha 256 clip.uyvy out
refuses '--matrix' convert "${uyvy[@]}" --matrix bt2020 clip.uyvy out
refuses 'pictures hold' pattern --format UYVY16I "${size[@]}" out.ppm
refuses 'not a binary PPM' info --format BGR24I raw.ppm
refuses 'same number of frames' compare --format UYVY16I "${size[@]}" clip.uyvy frame.uyvy
refuses 'subcommand' nonsense

# Files, pipes and threads give the same frames.
run convert "${uyvy[@]}" clip.uyvy one.bgra
[ "$(wc -c <one.bgra)" -eq 595056 ] || complain "one.bgra has $(wc -c <one.bgra) bytes"
run convert "${uyvy[@]}" --threads 3 --streaming clip.uyvy three.bgra
same one.bgra three.bgra
"$orva" convert "${uyvy[@]}" - - <clip.uyvy 2>errors | cat >pipe.bgra
same one.bgra pipe.bgra
run convert "${uyvy[@]}" --stats clip.uyvy precious
same one.bgra precious
grep -q '7 frames' errors || complain "no statistics: $(cat errors)"

# A signal in the middle leaves no file. The frames come slowly enough for it.
mkfifo frames
"$orva" convert "${uyvy[@]}" frames unfinished.bgra &
exec 3<>frames
cat frame.uyvy >&3
for ((tries = 0; tries < 100; ++tries)); do
    ls unfinished.bgra.part* >output 2>errors && break
    sleep 0.1
done
[ -s output ] || complain "no temporary file: $(ls)"
kill -TERM $!
wait $! 2>errors
status=$?
exec 3>&-
[ $status -eq 143 ] || complain "orva convert ended with $status, not by the signal"
[ -z "$(find . -name 'unfinished*')" ] || complain "left behind: $(ls)"
rm frames

# The picture is the chart that the pattern draws in BGR32I itself, if matrix and range are right.
# At this width its bars end between pixel pairs.
bars=(--size 336x66)
run pattern --format UYVY16IA8P "${bars[@]}" --frames 2 --matrix bt601 --range full full.uyvya
run pattern --format bgra "${bars[@]}" --frames 2 clip.bgra
for matrix in bt601 bt709; do
    run convert --from UYVY16IA8P --to BGR32I "${bars[@]}" --matrix $matrix --range full \
        full.uyvya $matrix.bgra
done
run compare --format BGR32I "${bars[@]}" --min-psnr 50 clip.bgra bt601.bgra
grep -q 'A  PSNR inf' output || complain "alpha: $(cat output)"
refuses "below the wanted minimum" compare --format BGR32I "${bars[@]}" --min-psnr 50 \
    clip.bgra bt709.bgra
run info --format UYVY16I "${size[@]}" clip.uyvy
grep -q 'Y   16..235' output || complain "info: $(cat output)"
grep -q '^7 frames' output || complain "info: $(cat output)"

# Pictures: one frame, numbered frames, and back.
run convert "${uyvy[@]}" clip.uyvy first.ppm
run convert "${uyvy[@]}" clip.uyvy all%02d.ppm
same first.ppm all01.ppm
[ "$(echo all*.ppm | wc -w)" -eq 7 ] || complain "numbered pictures: $(ls)"
run compare --format BGR24I --min-psnr 99 first.ppm all01.ppm
if [ "$png" = png ]; then
    run pattern --format BGR32I "${bars[@]}" chart.png
    head -c 88704 clip.bgra >chart.bgra
    run convert --from BGR32I --to BGR32I chart.png back.bgra
    same chart.bgra back.bgra
    run convert --from BGR32I --to BGR24IA8P chart.png split.png
    run compare --format BGR32I --min-psnr 99 chart.png split.png
    refuses 'not 320x66' convert --from BGR32I --to BGR32I --size 320x66 chart.png out
fi

exit $failures

#!/usr/bin/env bash
# The command-line program as a user meets it: cli_test.sh <program>
# shellcheck source=support.sh
. "$(dirname "$0")/support.sh"

size=(--size 322x66)
uyvy=(--from UYVY16I --to BGR32I "${size[@]}")
run pattern --format UYVY16I "${size[@]}" --frames 7 clip.uyvy
head -c 100000 clip.uyvy >partial.uyvy
head -c 42504 clip.uyvy >frame.uyvy
: >empty.uyvy
echo precious >precious

# What may go wrong. Standard input shows only at its end that the last frame is not whole.
refuses "unknown format 'UYVY10'" convert --from UYVY10 --to BGR32I "${size[@]}" clip.uyvy out
refuses 'no conversion from A8P to BGR32I' convert --from A8P --to BGR32I "${size[@]}" clip.uyvy out
refuses 'no conversion from uyvy to A8P' convert --from uyvy --to A8P "${size[@]}" clip.uyvy out
refuses 'A8C has no planes' pattern --format A8C "${size[@]}" out
huge=(--size 4294967295x4294967295)
refuses 'V210 of 4294967295x4294967295: is too large' info --format V210 "${huge[@]}" clip.uyvy
refuses 'BGR32I of 4294967295x4294967295: is too large' pattern --format BGR32I "${huge[@]}" out
refuses "--size is a size such as 1920x1080, not '322x'" convert --from UYVY16I --to BGR32I --size 322x clip.uyvy out
refuses 'needs --size' convert --from UYVY16I --to BGR32I clip.uyvy out
refuses 'not a whole number of frames' convert "${uyvy[@]}" partial.uyvy precious
refuses 'not a whole number of frames' convert "${uyvy[@]}" - precious <partial.uyvy
refuses 'holds no frame' convert "${uyvy[@]}" empty.uyvy out
refuses 'holds no frame' convert "${uyvy[@]}" - out </dev/null
refuses 'missing.uyvy: cannot be read' convert "${uyvy[@]}" missing.uyvy out
refuses 'is a directory' convert "${uyvy[@]}" . out
refuses 'missing/out: cannot be written' convert "${uyvy[@]}" clip.uyvy missing/out
refuses 'cannot be written' convert "${uyvy[@]}" clip.uyvy /dev/full
refuses 'the name of the output is empty' convert "${uyvy[@]}" clip.uyvy ''
refuses '--alpha is given more than once' convert "${uyvy[@]}" --alpha 3 --alpha 4 clip.uyvy out
refuses '--alpha' convert "${uyvy[@]}" --alpha 256 clip.uyvy out
refuses "'bt2100'" convert "${uyvy[@]}" --matrix bt2100 clip.uyvy out
refuses "'left'" convert "${uyvy[@]}" --chroma left clip.uyvy out
refuses "'limited'" pattern --format UYVY16I "${size[@]}" --range limited out
refuses "'yes'" convert "${uyvy[@]}" --streaming yes clip.uyvy out
refuses '--src-range' convert "${uyvy[@]}" --range full --src-range full clip.uyvy out
refuses 'same number of frames' compare --format UYVY16I "${size[@]}" clip.uyvy frame.uyvy
refuses 'both standard input' compare --format UYVY16I "${size[@]}" - - <clip.uyvy
refuses "unknown command 'nonsense'" nonsense

# Files, pipes and threads give the same frames.
run convert "${uyvy[@]}" clip.uyvy one.bgra
[ "$(wc -c <one.bgra)" -eq 595056 ] || complain "one.bgra has $(wc -c <one.bgra) bytes"
run convert "${uyvy[@]}" --threads 3 --streaming always clip.uyvy three.bgra
same one.bgra three.bgra
"$orva" convert "${uyvy[@]}" - - <clip.uyvy 2>errors | cat >pipe.bgra
same one.bgra pipe.bgra
run convert "${uyvy[@]}" --stats clip.uyvy precious
same one.bgra precious
grep -q '7 frames' errors || complain "no statistics: $(cat errors)"

# Matrix, range and depth reach the conversion: what it makes of the chart in RGB is the chart that
# the pattern draws in YCbCr itself, but for two codes: the chart in RGB has been rounded to 8 bits.
run pattern --format bgra "${size[@]}" --frames 2 clip.bgra
for format in UYVY16IA8P V210; do
    for matrix in bt601 bt709 bt2020; do
        for range in studio full; do
            colours=(--matrix "$matrix" --range "$range")
            run pattern --format $format "${size[@]}" --frames 2 "${colours[@]}" drawn.yuv
            run convert --from bgra --to $format "${size[@]}" "${colours[@]}" clip.bgra made.yuv
            run compare --format $format "${size[@]}" --max-difference 2 drawn.yuv made.yuv
        done
    done
done

# And back: with nearest chroma and bars that end between pixel pairs, as at this width, the chart
# survives being 4:2:2, unless a matrix is wrong.
bars=(--size 336x66)
run pattern --format bgra "${bars[@]}" --frames 2 clip.bgra
run convert --from bgra --to uyva "${bars[@]}" --matrix bt601 --range full --chroma nearest \
    clip.bgra full.uyva
back=(--from uyva --to bgra "${bars[@]}" --range full)
run convert "${back[@]}" --matrix bt601 --chroma nearest full.uyva bt601.bgra
run convert "${back[@]}" --matrix bt2020 --chroma nearest full.uyva bt2020.bgra
run convert "${back[@]}" --matrix bt601 --chroma cosited full.uyva cosited.bgra
run compare --format BGR32I "${bars[@]}" --min-psnr 45 clip.bgra bt601.bgra
grep -q 'A  PSNR inf' output || complain "alpha: $(cat output)"
"$orva" compare --format BGR32I "${bars[@]}" --min-psnr 45 clip.bgra bt2020.bgra >output 2>errors
[ $? -eq 1 ] || complain "another matrix is as close: $(cat output)"
cmp -s bt601.bgra cosited.bgra && complain '--chroma changes nothing'
run info --format UYVY16I "${size[@]}" clip.uyvy
grep -q 'Y   16..235' output || complain "info: $(cat output)"
grep -q '^7 frames of UYVY16I, 322x66' output || complain "info: $(cat output)"

# Names that other programs use, and moves from layout to layout in both depths. 322 pixels are no
# whole units of V210, and a row of a V210 file is a multiple of 128 bytes: 896 of them.
run convert --from hdyc --to nv16 "${size[@]}" clip.uyvy moved.nv16
run convert --from nv16 --to yuv422p "${size[@]}" moved.nv16 moved.yuv
run convert --from yuv422p --to uyvy "${size[@]}" moved.yuv moved.uyvy
same clip.uyvy moved.uyvy
run pattern --format v210 "${size[@]}" --frames 3 clip.v210
[ "$(wc -c <clip.v210)" -eq 177408 ] || complain "clip.v210 has $(wc -c <clip.v210) bytes"
run convert --from v210 --to p210le "${size[@]}" clip.v210 clip.p210le
run convert --from p210le --to yuv422p10le "${size[@]}" clip.p210le clip.yuv422p10le
run convert --from yuv422p10le --to v210 "${size[@]}" clip.yuv422p10le moved.v210
same clip.v210 moved.v210
run info --format v210 "${size[@]}" clip.v210
grep -q 'Y    64..940 ' output || complain "info: $(cat output)"
grep -q 'Cb   64..960 .*outside 64..960' output || complain "info: $(cat output)"
run convert --from bgrx --to bgr24 "${bars[@]}" clip.bgra moved.bgr
run convert --from bgr24 --to bgrx "${bars[@]}" moved.bgr moved.bgra
run compare --format bgr0 "${bars[@]}" clip.bgra moved.bgra
[ "$(grep -c 'PSNR inf' output)" -eq 4 ] || complain "BGR: $(cat output)"

# A byte that the name of IN's format calls nothing is no alpha, whatever it holds.
printf '\0\1\2\0\3\4\5\6' >pixels
# reads <format> <its pixels as rgba> [options]
reads() {
    run convert --from "$1" --to rgba --size 2x1 "${@:3}" pixels -
    shows "$*" "$2" "$(bytes output)"
}
reads bgr0 '2 1 0 255 5 4 3 255'
reads RGBX '0 1 2 7 3 4 5 7' --alpha 7
reads xrgb '1 2 0 255 4 5 6 255'
reads 0bgr '0 2 1 255 6 5 4 255'
reads bgra '2 1 0 0 5 4 3 6'
run convert --from bgra --to bgr0 --size 2x1 pixels -
same pixels output 'alpha into the fourth byte'
run info --format rgb0 --size 2x1 pixels
grep -q 'Alpha: opaque everywhere' output || complain "info: $(cat output)"

# The least limit binds of the control group and those above it. Trying that takes rights that not
# every machine gives.
printf '0::/outer/inner' >groups
cat >grouped <<'END'
mount -t tmpfs none /sys/fs/cgroup && mount --bind groups /proc/$$/cgroup || exit 77
limit() {
    mkdir -p "/sys/fs/cgroup$1"
    echo "$2" >"/sys/fs/cgroup$1/memory.max"
    echo "$3 100000" >"/sys/fs/cgroup$1/cpu.max"
}
limit '' 90000000 max
limit /outer 1000000 50000
limit /outer/inner max 900000
exec "$@"
END
if unshare -rm sh grouped true 2>errors; then
    unshare -rm sh grouped "$orva" convert "${uyvy[@]}" --stats clip.uyvy out.bgra 2>errors
    same one.bgra out.bgra
    grep -q 'with files by 1$' errors || complain "cpu.max of an outer group: $(cat errors)"
    unshare -rm sh grouped "$orva" pattern --format A8P --size 1000x501 out.a8 2>errors
    grep -q 'A8P of 1000x501: is too large' errors || complain "memory.max of an outer group: $(cat errors)"
else
    echo "control groups not tried: $(cat errors)"
fi

# Every format holds a picture of odd width, and one that has just one pixel.
for wxh in 33x5 1x1; do
    for format in $("$orva" formats | sed -n 's/^  \([^ ]*\) .*/\1/p'); do
        run pattern --format "$format" --size $wxh odd
        run convert --from "$format" --to "$format" --size $wxh odd again
        same odd again
        run compare --format "$format" --size $wxh odd again
        run info --format "$format" --size $wxh odd
    done
done

finish

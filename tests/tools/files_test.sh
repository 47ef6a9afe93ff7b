#!/usr/bin/env bash
# What the program reads and writes besides raw frames: files_test.sh <program> <samples> [png]
samples=$2
png=${3:-}
# shellcheck source=support.sh
. "$(dirname "$0")/support.sh"

size=(--size 322x66)
run pattern --format UYVY16I "${size[@]}" --frames 3 clip.uyvy
run pattern --format bgra --size 33x5 --frames 3 clip.bgra
uyvy=(--from UYVY16I "${size[@]}")
y4m=$samples/full-range.y4m

# first_line <file>
first_line() {
    head -n 1 "$1"
}

# Y4M keeps what it says of the clip: the range, which is that of the other side then, too. The two
# sample frames of 3x2 have rows of luma that end within a pair.
run convert --to yuv422p "$y4m" kept.y4m
shows 'kept header' 'YUV4MPEG2 W3 H2 F30000:1001 It A10:11 C422 XCOLORRANGE=FULL' "$(first_line kept.y4m)"
run compare "$y4m" kept.y4m
shows 'kept frames' 3 "$(grep -c 'PSNR inf' output)"
shows 'kept size' 100 "$(wc -c <kept.y4m)"
run convert --to yuv422p "$y4m" -
shows 'an odd row in a raw file' '1 2 3 3 4 5 6 6 7 8 9 10 11 12 13 14' "$(bytes output | cut -d' ' -f 1-16)"
run convert --to yuv422p10le --dst-range studio --rate 50/1 - deep.y4m <"$y4m"
shows 'deep header' 'YUV4MPEG2 W3 H2 F50:1 It A10:11 C422p10 XCOLORRANGE=LIMITED' "$(first_line deep.y4m)"
run convert --to bgra "$y4m" full.bgra
run convert --to bgra --src-range full "$y4m" again.bgra
same full.bgra again.bgra
run convert --to bgra --src-range studio "$y4m" studio.bgra
cmp -s full.bgra studio.bgra && complain 'the range of Y4M changes nothing'
run convert "${uyvy[@]}" --to yuv422p clip.uyvy clip.y4m
run convert --to uyvy clip.y4m -
same clip.uyvy output
run convert --to uyvy --frames 2 - two.uyvy <clip.y4m
cmp -s -n 85008 clip.uyvy two.uyvy || complain 'the first two frames differ'
shows 'two frames' 85008 "$(wc -c <two.uyvy)"
run convert --to yuv422p clip.y4m --as y4m -
same clip.y4m output
run pattern --format yuv422p10le "${size[@]}" chart.y4m
shows 'chart header' 'YUV4MPEG2 W322 H66 F25:1 Ip A1:1 C422p10 XCOLORRANGE=LIMITED' "$(first_line chart.y4m)"

# What is no Y4M, or not one of 4:2:2.
refuses 'Y8PU8PV8P, not UYVY16I as --from says' convert --from UYVY16I --to BGR32I "$y4m" out
refuses 'is 3x2, not 322x66' info "${size[@]}" "$y4m"
refuses 'Y4M holds Y8PU8PV8P' convert "${uyvy[@]}" --to v210 clip.uyvy out.y4m
refuses 'no place for a rate' convert "${uyvy[@]}" --to v210 --rate 25 clip.uyvy out
refuses "30000:1001, not '25:0'" convert "${uyvy[@]}" --to yuv422p --rate 25:0 clip.uyvy out.y4m
# refuses_y4m <text> <header> [<frames>]
refuses_y4m() {
    printf '%s\n%s' "$2" "${3:-}" >bad.y4m
    refuses "$1" info bad.y4m
}
refuses_y4m 'its frames are C444;' 'YUV4MPEG2 W2 H2 F25:1 C444'
refuses_y4m 'its frames are C420;' 'YUV4MPEG2 W2 H2 F25:1'
refuses_y4m "its header says 'W2x'" 'YUV4MPEG2 W2x H2 C422'
refuses_y4m "its header says 'F25'" 'YUV4MPEG2 W2 H2 F25 C422'
refuses_y4m 'does not say how large' 'YUV4MPEG2 W2 C422'
refuses_y4m 'is not a Y4M file' 'YUV4MPEG W2 H2 C422'
refuses_y4m 'is too large' 'YUV4MPEG2 W4294967295 H4294967295 C422'
refuses_y4m 'ends within its first frame' 'YUV4MPEG2 W2 H2 C422' $'FRAME\n1'
refuses_y4m 'ends within frame 2' 'YUV4MPEG2 W2 H1 C422' $'FRAME\n1234FRAME\n123'
refuses_y4m 'frame 2 does not begin' 'YUV4MPEG2 W2 H1 C422' $'FRAME\n1234FRAMES\n1234'
refuses_y4m 'frame 2 does not begin' 'YUV4MPEG2 W2 H1 C422' $'FRAME\n1234X'
refuses_y4m "its header says 'Q?]0;x??'" $'YUV4MPEG2 W2 H1 C422 Q\033]0;x\007\177'
refuses_y4m 'its frames are C???2J;' $'YUV4MPEG2 W2 H1 C\r\302\2332J'
refuses 'a damaged header' info - < <(printf 'YUV4MPEG2 W2')

# PPM, PGM and PAM, in both directions, from a pipe, too.
run convert --to rgb24 "$samples/numbers.ppm" -
shows PPM '1 2 3 4 5 6' "$(bytes output)"
run convert --to A8P "$samples/numbers.pgm" out.pgm
run convert --to A8P out.pgm out.pam
run convert --to bgra out.pam -
shows 'grey as colour' '7 7 7 255 8 8 8 255 9 9 9 255' "$(bytes output)"
run convert --to A8P - - <out.pgm
shows 'grey as alpha' '7 8 9' "$(bytes output)"
run convert --to argb "$samples/numbers.pam" out.pam
run convert --to bgra - - <out.pam
shows PAM '3 2 1 4 7 6 5 8' "$(bytes output)"
run convert --to rgb24 out.pam out.ppm
shows 'PPM without alpha' '1 2 3 5 6 7' "$(tail -c 6 out.ppm | bytes -)"
# refuses_pnm <text> <file as printf has it>
refuses_pnm() {
    # shellcheck disable=SC2059
    printf "$2" >bad.ppm
    refuses "$1" info bad.ppm
}
refuses_pnm 'is not a binary PPM' 'P3\n1 1\n255\n1 2 3'
refuses_pnm 'has a damaged header' 'P61 1 255\n123'
refuses_pnm 'has a damaged header' 'P6 1x1 255\n123'
refuses_pnm 'has a damaged header' 'P6 1 1 255x123'
refuses_pnm 'has a damaged header' 'P6 4294967296 1 255\n123'
refuses_pnm 'has a damaged header' 'P6 0 1 255\n'
refuses_pnm 'its greatest value is 65535' 'P6 1 1 65535\n123456'
refuses_pnm 'ends before its last pixel' 'P6 1 2 255\n12345'
refuses_pnm 'goes on behind its last pixel' 'P6 1 1 255\n1234'
refuses_pnm 'is too large' 'P6 4294967295 4294967295 255\n1'
refuses_pnm "type 'BLACKANDWHITE'" 'P7\nWIDTH 1\nHEIGHT 1\nDEPTH 1\nMAXVAL 255\nTUPLTYPE BLACKANDWHITE\nENDHDR\n1'
refuses_pnm "type '?[2J'" 'P7\nTUPLTYPE \033[2J\nENDHDR\n'
refuses_pnm 'has a damaged header' 'P7\nWIDTH 1\nHEIGHT 1\n'
refuses 'ends before its last pixel' info - < <(printf 'P6 20000 20000 255\n')
refuses 'pictures hold formats of RGB' convert "${uyvy[@]}" --to UYVY16I clip.uyvy out.ppm
refuses 'PGM holds grey' pattern --format bgra "${size[@]}" out.pgm
refuses 'PPM holds RGB' pattern --format A8P "${size[@]}" out.ppm
refuses 'cannot be A8P' convert --from A8P --to A8P out.ppm out

# Numbered pictures: one for each frame of a clip, and a clip again.
colour=(--to bgr24 --size 33x5)
run convert --from bgra "${colour[@]}" clip.bgra clip.bgr
run convert --from bgra "${colour[@]}" clip.bgra one.ppm
run convert --from bgra "${colour[@]}" clip.bgra 100%_%%_%02i.ppm
same one.ppm '100%_%_01.ppm'
run convert --to bgr24 100%_%%_%02d.ppm back.bgr
same clip.bgr back.bgr
for number in 1 2 3; do
    mv "100%_%_0$number.ppm" f$((number - 1)).ppm
done
run convert --to bgr24 f%d.ppm g%02d.pam
run convert --to bgr24 --start 1 --frames 1 g%02d.pam second.ppm
same second.ppm f1.ppm
run convert --to bgr24 f%d.ppm f%d.ppm
run compare f%d.ppm g%02d.pam
shows 'pictures written over themselves' 3 "$(grep -c 'PSNR inf' output)"
refuses 'there is no none0.ppm and no none1.ppm' info none%d.ppm
refuses 'there is no f3.ppm' info --start 3 f%d.ppm
refuses 'more than one number' info f%d%d.ppm
refuses 'holds no number' info --start 1 f1.ppm
cp "$samples/numbers.ppm" f1.ppm
refuses 'f1.ppm: is 2x1, but the pictures before it are 33x5' convert --to bgr24 f%d.ppm out
cp "$samples/numbers.pam" bad1.pam
head -c 3 "$samples/numbers.pgm" >bad2.pam
refuses 'bad2.pam: has a damaged header' convert --to bgr24 bad%d.pam out

# Names of files that the program does not know are no raw frames, unless the user says so.
refuses 'out.JPG: .jpg files are not known' pattern --format bgra "${size[@]}" out.JPG
cp clip.uyvy clip.mov
refuses 'clip.mov: .mov files are not known' convert "${uyvy[@]}" --to bgra clip.mov out
run convert "${uyvy[@]}" --to UYVY16I --as raw clip.uyvy out.dpx
same clip.uyvy out.dpx

# Sizes that no memory holds, and files that are read and written at once.
for format in $("$orva" formats | sed -n 's/^  \([^ ]*\) .*/\1/p'); do
    huge=(--format "$format" --size 2147483648x2147483648)
    for command in "info ${huge[*]} clip.uyvy" "compare ${huge[*]} clip.uyvy clip.uyvy"; do
        # shellcheck disable=SC2086
        "$orva" $command >output 2>errors
        [ $? -eq 2 ] || complain "orva $command did not end with 2: $(cat errors)"
    done
done
refuses 'is too large' convert --from A8P --to A8P --size 2147483648x2147483648 - out </dev/null
refuses "not '2x2y255z'" info --format A8P --size 2x2y255z clip.uyvy
cp clip.uyvy same.uyvy
run convert "${uyvy[@]}" --to YUYV16I same.uyvy same.uyvy
run convert --from YUYV16I --to UYVY16I "${size[@]}" same.uyvy same.uyvy
same clip.uyvy same.uyvy

# PNG of every kind.
if [ "$png" = png ]; then
    # decodes <name> <format> <bytes>
    decodes() {
        run convert --to "$2" "$samples/$1.png" -
        shows "$1" "$3" "$(bytes output)"
    }
    decodes grey-2-bit A8P '0 85 170 255'
    decodes grey-16-bit A8P '0 126 126 255'
    decodes rgb-16-bit rgb24 '0 126 255 1 2 3'
    decodes grey-alpha rgba '10 10 10 20 30 30 30 40'
    decodes grey-transparent-key rgba '10 10 10 255 20 20 20 0'
    decodes palette rgb24 '4 5 6 1 2 3'
    decodes palette-transparent rgba '1 2 3 100 4 5 6 200 7 8 9 255'
    decodes linear-light rgb24 '0 127 255 255 127 0'
    decodes interlaced A8P "$(seq -s ' ' 48 63)"
    refuses 'ends before its last chunk' info "$samples/without-end.png"
    refuses 'too short' info "$samples/claims-too-much.png"
    refuses 'too short' info - <"$samples/claims-too-much.png"
    printf '\x89PNG\r\n\x1a\n' >bad.png
    refuses 'bad.png: ' info bad.png
    refuses 'bad.png: ' convert --to bgra bad.png bad.png
    run convert --to A8P "$samples/grey-2-bit.png" grey.png
    run convert --to A8P - - <grey.png
    shows 'grey PNG' '0 85 170 255' "$(bytes output)"
    head -c 660 clip.bgra >frame.bgra
    run convert --from bgra --to bgra --size 33x5 clip.bgra chart.png
    for format in bgra rgba argb abgr BGR24IA8P RGB24IA8P; do
        run convert --from BGR32I --to $format chart.png "chart.$format"
        run convert --from $format --to $format --size 33x5 "chart.$format" back.png
        run convert --to BGR32I back.png --as raw -
        same frame.bgra output
    done
    refuses 'is 33x5, not 320x66' convert --to BGR32I --size 320x66 chart.png out
fi

finish

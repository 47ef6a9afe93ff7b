#!/usr/bin/env bash
# Frames go to ffmpeg and come back as they were: ffmpeg_test.sh <program> [png]
command -v ffmpeg >/dev/null || exit 77
# shellcheck source=support.sh
. "$(dirname "$0")/support.sh"

theirs() {
    ffmpeg -nostdin -v error -y "$@" || complain "ffmpeg $* ended with $?"
}

# 10 bits lie in the same bytes, in both directions. 1278 pixels do not fill the last 128 bytes of a
# V210 row.
for wxh in 322x66 1278x4; do
    run pattern --format v210 --size $wxh clip.v210
    for format in p210le yuv422p10le; do
        raw=(-f rawvideo -pix_fmt "$format")
        run convert --from v210 --to $format --size $wxh clip.v210 ours
        theirs -f v210 -video_size $wxh -i clip.v210 "${raw[@]}" theirs
        same ours theirs
        theirs "${raw[@]}" -video_size $wxh -i ours -c:v v210 -f rawvideo theirs
        same clip.v210 theirs
    done
done

# Y4M through files and pipes. The properties arrive at ffmpeg and come back. In 10 bits ffmpeg
# writes odd rows of chroma without their last byte.
for case in yuv422p:321x66 yuv422p10le:322x66; do
    format=${case%:*}
    y4m=(-strict -1 -f yuv4mpegpipe)
    run pattern --format "$format" --size "${case#*:}" --frames 3 --range full --rate 30000/1001 ours.y4m
    theirs -i ours.y4m "${y4m[@]}" theirs.y4m
    run compare ours.y4m theirs.y4m
    shows "$format" 3 "$(grep -c 'PSNR inf' output)"
    run convert --to "$format" theirs.y4m back.y4m
    same ours.y4m back.y4m

    "$orva" convert --to "$format" theirs.y4m --as y4m - |
        ffmpeg -v error -f yuv4mpegpipe -i - "${y4m[@]}" - |
        "$orva" convert --to "$format" - back.y4m || complain "$format through pipes"
    same ours.y4m back.y4m
done
theirs -f lavfi -i testsrc2=size=320x66 -frames:v 2 -pix_fmt yuv420p \
    -f yuv4mpegpipe theirs.y4m
refuses 'its frames are C420jpeg' info theirs.y4m

# Kinds of PNG that ffmpeg writes.
pngs=()
[ "${2:-}" != png ] || pngs=(gray16be rgb48be gray pal8)
for format in "${pngs[@]}"; do
    theirs -f lavfi -i testsrc2=size=64x48 -frames:v 1 -pix_fmt $format theirs.png
    theirs -i theirs.png -pix_fmt rgb24 -sws_flags accurate_rnd+full_chroma_int -f rawvideo theirs.rgb
    run convert --to rgb24 theirs.png ours.rgb
    run compare --format rgb24 --size 64x48 ours.rgb theirs.rgb
    shows "$format" 3 "$(grep -c 'greatest difference [01],' output)"
done

finish

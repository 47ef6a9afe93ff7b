#!/usr/bin/env bash
# The element in pipelines of gst-launch-1.0, beside the program orva and ffmpeg, and the pipelines of
# the documentation. Nothing may warn or leak, under valgrind neither.
#
#   pipelines_test.sh PLUGIN_FOLDER PROGRAM DOCUMENT
# shellcheck disable=SC2046  # what raw says is several words
set -euo pipefail
export GST_PLUGIN_PATH=$1 LC_ALL=C
orva=$2 document=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

fail() { echo "FAILED: $*" >&2; exit 1; }

# What lives longer than the pipeline is told on stderr, and warnings end the program.
export GST_REGISTRY=$PWD/registry GST_DEBUG_NO_COLOR=1
gst-inspect-1.0 orvaconvert >/dev/null || fail "no element orvaconvert"
logged=GST_TRACER:7,orvaconvert:2,video-info:2,videofilter:2,basetransform:2,bufferpool:2
launch() {
    GST_TRACERS=leaks GST_DEBUG=$logged G_DEBUG=fatal-warnings timeout 60 gst-launch-1.0 -q "$@" 2>said ||
        fail "gst-launch-1.0 $*: $(cat said)"
    ! grep -E 'object-alive, .*0x|WARN|ERROR' said || fail "gst-launch-1.0 $*"
}
raw() { echo "filesrc location=$1 ! rawvideoparse format=$2 width=638 height=600"; }

# A clip of bars with noise, which ffmpeg reads as we do: one way by its zscale filter, and back.
size=638x600
ffmpeg -nostdin -v error -f lavfi -i smptehdbars=size=$size -frames:v 3 -f rawvideo \
    -vf format=yuv422p,noise=alls=40:allf=t -pix_fmt uyvy422 clip.uyvy
launch $(raw clip.uyvy uyvy) ! orvaconvert n-threads=2 ! video/x-raw,format=RGB ! \
    orvaconvert ! video/x-raw,format=BGRA ! filesink location=clip.bgra
wide=zscale=matrixin=709:matrix=709:rangein=tv:range=tv:dither=none,format=yuv422p16le
linear=zscale=matrixin=709:rangein=tv:filter=bilinear:cin=left:dither=none,format=gbrpf32le
ffmpeg -nostdin -v error -f rawvideo -pix_fmt uyvy422 -video_size $size -i clip.uyvy -f rawvideo \
    -vf "format=yuv422p,$wide,$linear,zscale=range=pc:dither=none,format=gbrp" -pix_fmt bgra theirs.bgra
"$orva" compare --size $size --format BGR32I theirs.bgra clip.bgra >differences
awk '$1 != "A" && int($7) > 1 { far = 1 } END { exit far || NR == 0 }' differences ||
    fail "further from ffmpeg than rounding: $(cat differences)"

# One stream for two converters, which make the program's bytes.
launch $(raw clip.uyvy uyvy) ! tee name=both \
    both. ! queue ! orvaconvert n-threads=2 ! video/x-raw,format=v210 ! filesink location=tee.v210 \
    both. ! queue ! orvaconvert alpha=9 ! video/x-raw,format=ARGB ! filesink location=tee.argb
for made in v210 argb; do
    "$orva" convert --from uyvy422 --to $made --alpha 9 --size $size clip.uyvy - | cmp - tee.$made ||
        fail "other bytes than the program's in $made"
done

# Behind a file, whose caps a filter tells and nobody chooses.
for size in 638x600 720x300; do
    caps=video/x-raw,width=${size%x*},height=${size#*x},framerate=25/1
    launch filesrc location=clip.uyvy blocksize=$((${size/x/ * } * 2)) num-buffers=1 ! $caps,format=UYVY ! \
        orvaconvert ! $caps,format=BGRA ! filesink location=file.bgra
    matrix=$([ $size = 638x600 ] && echo bt709 || echo bt601)
    head -c "$((${size/x/ * } * 2))" clip.uyvy >frame.uyvy
    "$orva" convert --from uyvy422 --to bgra --size $size --matrix $matrix frame.uyvy - | cmp - file.bgra ||
        fail "other colours than $matrix of a file of $size"
done

launch videotestsrc num-buffers=3 ! video/x-raw,format=UYVY,width=320,height=240 ! orvaconvert ! \
    video/x-raw,format=BGRA ! videoconvert ! video/x-raw,format=I420 ! filesink location=i420
[ "$(stat -c %s i420)" = $((3 * 320 * 240 * 3 / 2)) ] || fail "three frames are $(stat -c %s i420) bytes"

# What is documented, from the files that it is about.
"$orva" pattern --format UYVY16I --size 1920x1080 --frames 2 camera.uyvy
cp camera.uyvy sd.uyvy
pipelines=$(sed -n 's/^    \(gst-launch-1.0 \)/\1/p' "$document" | wc -l)
[ "$pipelines" -ge 5 ] || fail "$pipelines pipelines in $document"
awk '/^    gst-launch-1.0 /, !/ \\$| \|$/ { print substr($0, 5) }' "$document" >documented.sh
G_DEBUG=fatal-warnings timeout 100 bash -euo pipefail documented.sh >said 2>&1 ||
    fail "a documented pipeline: $(cat said)"

if command -v valgrind >/dev/null; then
    timeout 100 valgrind -q --error-exitcode=9 --leak-check=full --errors-for-leak-kinds=definite \
        --show-leak-kinds=definite gst-launch-1.0 -q videotestsrc num-buffers=3 ! \
        video/x-raw,format=UYVY,width=322,height=18 ! orvaconvert n-threads=2 ! \
        video/x-raw,format=BGRA ! orvaconvert ! video/x-raw,format=v210 ! fakesink >said 2>&1 ||
        fail "valgrind: $(cat said)"
fi

#!/usr/bin/env bash
# What the program writes to, and what stays when it is stopped: outputs_test.sh <program> [png]
png=${2:-}
# shellcheck source=support.sh
. "$(dirname "$0")/support.sh"

ulimit -c 0

# ends <status> <text> <command>: the status, the text among the errors, nothing unfinished.
ends() {
    wanted=$1
    text=$2
    shift 2
    "$@" 2>errors
    status=$?
    [ $status -eq "$wanted" ] || complain "$* ended with $status, not $wanted: $(cat errors)"
    case $(cat errors) in
    *"$text"*) ;;
    *) complain "$* said '$(cat errors)', not '$text'" ;;
    esac
    nothing_left "$*"
}

nothing_left() {
    [ -z "$(find . -name '.orva-*')" ] || complain "$1 left behind: $(ls -A)"
}

bgra=(--from UYVY16I --to BGR32I --size 322x66)
bgr=(--from UYVY16I --to BGR24I --size 322x66)
run pattern --format UYVY16I --size 322x66 --frames 7 clip.uyvy
head -c 42504 clip.uyvy >frame.uyvy
head -c 100000 clip.uyvy >partial.uyvy
run convert "${bgra[@]}" --threads 1 clip.uyvy whole.bgra

# Descriptors, pipes and devices are written where they are, from their place on.
printf kept >appended
"$orva" convert "${bgra[@]}" clip.uyvy /dev/stdout >>appended || complain "/dev/stdout: $?"
printf kept | cat - whole.bgra | cmp -s - appended || complain '/dev/stdout is not appended to'
for name in - /dev/fd/1 /proc/self/fd/1; do
    "$orva" convert "${bgra[@]}" clip.uyvy $name | cmp -s - whole.bgra || complain "output $name"
done
"$orva" convert "${bgra[@]}" clip.uyvy >(cat >substituted) || complain "substitution: $?"
wait $!
same whole.bgra substituted 'process substitution'
mkfifo pipe
cat pipe >piped &
run convert "${bgra[@]}" clip.uyvy pipe
wait $!
same whole.bgra piped 'named pipe'
run convert "${bgra[@]}" clip.uyvy /dev/null

# Regular files keep what they are: mode, other names, links that lead to them.
echo old >private
chmod 640 private
run convert "${bgra[@]}" clip.uyvy private
[ "$(stat -c %a private)" = 640 ] || complain "mode became $(stat -c %a private)"
same whole.bgra private 'replaced'
(umask 027 && run convert "${bgra[@]}" clip.uyvy new && [ "$(stat -c %a new)" = 640 ]) ||
    complain "umask is not obeyed"
echo old >one
ln one other
run convert "${bgra[@]}" clip.uyvy one
same whole.bgra other 'hard link'
mkdir elsewhere
ln -s ../dangling elsewhere/link
ln -s elsewhere/link link
for kind in dangling live; do
    run convert "${bgra[@]}" clip.uyvy link
    [[ -L link && -L elsewhere/link ]] || complain "$kind link is replaced"
    same whole.bgra dangling "$kind link"
done
long=$(printf '%255s' '' | tr ' ' n)
run convert "${bgra[@]}" clip.uyvy "$long"
same whole.bgra "$long" 'long name'

# A file written where it lies is not read at the same time.
cp clip.uyvy both.uyvy
ln both.uyvy both.again
ends 2 'both.uyvy: is also the input' "$orva" convert "${bgra[@]}" both.uyvy both.uyvy
same clip.uyvy both.uyvy 'refused'
rm both.again
run convert "${bgra[@]}" both.uyvy both.uyvy
same whole.bgra both.uyvy 'in its own place'

# Without rights: neither a file that is read-only is written, nor one that cannot be replaced.
if [ "$(id -u)" -ne 0 ]; then
    as_user=(env)
elif command -v setpriv >output; then
    as_user=(setpriv --reuid 65534 --regid 65534 --clear-groups)
fi
chmod 711 .
install -m 755 "$orva" program
mkdir closed
echo old | tee closed/read-only closed/writable >output
chmod 444 closed/read-only
chmod 666 closed/writable
chmod 555 closed
if [ -n "${as_user+set}" ] && "${as_user[@]}" ./program formats >output 2>errors; then
    user=("${as_user[@]}" ./program convert "${bgra[@]}" clip.uyvy)
    ends 2 'closed/read-only: cannot be written: Permission denied' "${user[@]}" closed/read-only
    ends 2 'closed/new: cannot be written: Permission denied' "${user[@]}" closed/new
    ends 0 '' "${user[@]}" closed/writable
    same whole.bgra closed/writable 'in a closed folder'
    [ "$(cat closed/read-only)" = old ] || complain 'a read-only file is written'
else
    echo 'no other user here: rights not tried'
fi
chmod 755 closed

# Whatever does not arrive is an error, of printed text, too.
full() { "$orva" "$@" >/dev/full; }
ends 2 'standard output: cannot be written: No space' full formats
ends 2 'standard output: cannot be written: No space' full --help
ends 2 'standard output: cannot be written: No space' full info --format UYVY16I \
    --size 322x66 frame.uyvy
ends 2 'standard output: cannot be written: No space' full convert "${bgra[@]}" clip.uyvy -
ends 2 '/dev/full: cannot be written: No space' "$orva" convert "${bgra[@]}" clip.uyvy /dev/full
closed() { "$orva" "$@" >&-; }
ends 2 'standard output: cannot be written: Bad file' closed formats
ends 2 'standard output: cannot be written: Bad file' closed convert "${bgra[@]}" clip.uyvy -
limited() (
    ulimit -f 100
    exec env "$1" "$orva" convert "${bgra[@]}" clip.uyvy limited
)
ends 2 'limited: cannot be written: File too large' limited --ignore-signal=XFSZ
ends 153 '' limited --default-signal=XFSZ
[ ! -e limited ] || complain 'a file that was too large stays'

# Frames are written in their order by any number of threads, and those before an error are whole.
for threads in 1 2 7 256; do
    run convert "${bgra[@]}" --threads $threads clip.uyvy threads.bgra
    same whole.bgra threads.bgra "$threads threads"
    run convert "${bgr[@]}" --threads $threads clip.uyvy "threads$threads-%d.ppm"
    for frame in 1 4 7; do
        same threads1-$frame.ppm threads$threads-$frame.ppm "$threads threads"
    done
    ends 2 'not a whole number of frames' "$orva" convert "${bgr[@]}" --threads $threads - \
        partial%d.ppm <partial.uyvy
    [ "$(echo partial*.ppm)" = 'partial1.ppm partial2.ppm' ] || complain "partial: $(ls)"
    rm partial*.ppm
done
if [ "$png" = png ]; then
    run convert "${bgr[@]}" --threads 3 clip.uyvy threads%d.png
    run compare --format BGR24I --min-psnr 99 threads1-7.ppm threads7.png
fi

# start <arguments>: the program, as $program, and an open end of its input for frames. A shell
# starts jobs with ignored signals, its own and its parents'.
mkfifo frames
heeded=(env --default-signal)
start() {
    "${heeded[@]}" "$orva" convert "$@" 2>errors &
    program=$!
    exec 3>frames
}

# hold <arguments>: in the middle of a clip. It has made its file when it leaves no room in the
# pipe: seven frames are more than fit.
hold() {
    start "${bgra[@]}" frames "$@"
    cat clip.uyvy >&3
}

# ended <status> <what>: even while its input is open.
ended() {
    wait $program 2>output
    status=$?
    exec 3>&-
    [ $status -eq "$1" ] || complain "$2: orva ended with $status, not $1: $(cat errors)"
    nothing_left "$2"
}

# No signal that ends the program leaves a file, nor does one end it that was ignored when it began.
for signal in HUP INT QUIT TERM PIPE ALRM USR1 USR2 XCPU VTALRM PROF; do
    hold --threads 2 stopped.bgra
    [ -n "$(find . -name '.orva-*')" ] || complain "nothing to remove before SIG$signal"
    kill -$signal $program
    ended $((128 + $(kill -l $signal))) "SIG$signal"
    [ ! -e stopped.bgra ] || complain "SIG$signal leaves a file"
done
heeded=(env --ignore-signal=HUP --ignore-signal=USR1)
hold ignoring.bgra
kill -HUP $program
kill -USR1 $program
exec 3>&-
ended 0 'ignored signals'
same whole.bgra ignoring.bgra 'ignored signals'

# Nobody waits for frames that are of no use: a picture keeps one, and after an error none is.
start "${bgr[@]}" --threads 3 frames first.ppm
cat frame.uyvy >&3
ended 0 'one picture'
for threads in 1 3; do
    start "${bgra[@]}" --threads $threads frames /dev/full
    cat frame.uyvy >&3
    ended 2 'an error while waiting'
    grep -q 'No space' errors || complain "an error while waiting: $(cat errors)"
done

# Files are read whatever their size.
truncate -s 3G huge
ends 2 '3221225472 bytes are not a whole number of frames' "$orva" info --format A8P --size 7x7 huge

finish

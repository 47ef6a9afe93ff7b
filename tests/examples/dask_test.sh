#!/usr/bin/env bash
# The Dask example makes the same bytes as the program:  dask_test.sh EXAMPLE PYTHON PROGRAM
# PYTHONPATH has the package.
set -euo pipefail
example=$1 python=$2 orva=$3
folder=$(mktemp -d)
# Killed, not asked to end: a worker that is, waits for a scheduler that has gone.
trap 'kill -9 $(jobs -p) 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$folder"' EXIT
cd "$folder"

fail() { echo "FAILED: $*" >&2; exit 1; }
convert() { timeout 100 "$python" "$example" --size 322x66 --chunk 3 "$@" >output 2>errors; }

# Chunks of which the last is shorter, and a clip of one frame.
mkdir clips
"$orva" pattern --format UYVY16I --size 322x66 --frames 7 clips/long.uyvy
"$orva" pattern --format UYVY16I --size 322x66 clips/short.uyvy

# same FOLDER FORMAT OPTION...: the clips there are the program's, and nothing else is.
same() {
    [ "$(ls -A "$1")" = "$(printf '%s\n' "long.uyvy.$2" "short.uyvy.$2")" ] || fail "$1: $(ls -A "$1")"
    local name
    for name in long short; do
        "$orva" convert --from UYVY16I --to "$2" --size 322x66 "${@:3}" "clips/$name.uyvy" - |
            cmp - "$1/$name.uyvy.$2" || fail "$1: other bytes in $name"
    done
}

convert --from UYVY16I --to BGR24I --matrix bt601 clips bgr || fail "BGR24I: $(cat errors)"
same bgr bgr24i --matrix bt601
grep -q '^8 frames of 2 clips in ' output || fail "said: $(cat output)"

# Workers of their own, as on several machines, and rows with gaps. Clips that cannot be converted, one
# of them only known when it is done, keep nobody from the others.
head -c 100 clips/long.uyvy >clips/broken.uyvy
cp clips/short.uyvy clips/taken.uyvy
mkdir -p v210/taken.uyvy.v210
"$python" -m dask scheduler --host 127.0.0.1 --port 0 --no-dashboard --scheduler-file scheduler.json >log 2>&1 &
"$python" -m dask worker --scheduler-file scheduler.json --nthreads 1 --no-nanny --no-dashboard >>log 2>&1 &
"$python" -m dask worker --scheduler-file scheduler.json --nthreads 1 --no-nanny --no-dashboard >>log 2>&1 &
for ((i = 0; i < 300; ++i)); do
    [ ! -s scheduler.json ] || break
    sleep 0.1
done
address=$("$python" -c 'import json; print(json.load(open("scheduler.json"))["address"])')
status=0
convert --from UYVY16I --to V210 --scheduler "$address" clips v210 || status=$?
[ $status -eq 1 ] || fail "ended with $status: $(cat errors log)"
grep -q 'broken.uyvy: 100 bytes are not whole frames of 42504' errors || fail "said: $(cat errors)"
grep -q 'taken.uyvy: .*Is a directory' errors || fail "said: $(cat errors)"
grep -q '^8 frames of 2 clips in ' output || fail "said: $(cat output)"
grep -q 'Receive client connection' log || fail "the scheduler was not asked: $(cat log)"
rmdir v210/taken.uyvy.v210
same v210 v210

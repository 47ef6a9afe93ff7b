#!/usr/bin/env bash
# Keeps Wine's server running between the tests:  wine_session.sh FOLDER EMULATOR...
# Lets it end:                                    wine_session.sh FOLDER
# The server ends with the last program, and one that starts just then is lost; two that start a
# server at once get in each other's way. So one program waits from before the first test until
# after the last, or for an hour if nobody ends it. FOLDER is for its output and process number.
set -euo pipefail
folder=$1
emulator=("${@:2}")

if [ ${#emulator[@]} = 0 ]; then
    kill "$(cat "$folder/pid")"
    exit
fi

mkdir -p "$folder"
: >"$folder/output"
# ctest waits for all that hold its own output, so none of these may.
{
    echo "$BASHPID" >"$folder/pid"
    echo 'echo is-running'
    exec sleep 3600
} 2>/dev/null | "${emulator[@]}" cmd >"$folder/output" 2>&1 &

# The first start of all makes Wine's own folder, which takes a while.
until grep -q is-running "$folder/output"; do
    kill -0 $! 2>/dev/null || { cat "$folder/output" >&2; exit 1; }
    sleep 0.1
done

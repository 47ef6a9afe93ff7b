#!/usr/bin/env bash
# Keeps Wine's server running between the tests:  wine_session.sh start EMULATOR FOLDER
#                                                 wine_session.sh stop FOLDER
# The server ends a few seconds after the last program, and a program that starts just then is lost;
# two programs that start a server at once get in each other's way. So one waits from before the
# first test until after the last, or for an hour if nobody stops it. FOLDER is for its files.
set -euo pipefail

start() {
    local emulator=$1 folder=$2
    mkdir -p "$folder"
    : >"$folder/output"
    # ctest waits for all that hold its own output, so none of these may.
    {
        echo "$BASHPID" >"$folder/pid"
        echo 'echo is-running'
        exec sleep 3600
    } 2>/dev/null | "$emulator" cmd >"$folder/output" 2>&1 &
    # The first start also makes Wine's folder.
    for ((i = 0; i < 3000; ++i)); do
        if grep -q is-running "$folder/output"; then
            return
        fi
        sleep 0.1
    done
    cat "$folder/output" >&2
    return 1
}

stop() {
    kill "$(cat "$1/pid")"
}

"$@"

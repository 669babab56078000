#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# What the examples do with a catalogue that is not there, and without one.
#
#   check-examples.sh FOLDER        the folder with the programs
set -eu
folder=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# expect STATUS TEXT PROGRAM [ARGUMENT]: it ends so, prints nothing on standard output, and has the text on standard error
expect() {
    wanted=$1 text=$2
    shift 2
    status=0
    "$folder/$1" ${2+"$2"} >"$work/out" 2>"$work/err" || status=$?
    if [ $status -ne "$wanted" ] || [ -s "$work/out" ] || ! grep -q -F -e "$text" "$work/err"; then
        echo "FAIL: $* ends with $status, not $wanted with '$text' on standard error:" >&2
        cat "$work/out" "$work/err" >&2
        exit 1
    fi
}
nowhere=$work/nowhere.sqlite
for example in 02-load-a-roll 03-signals; do
    expect 2 "usage: $example CATALOGUE" $example
    expect 1 "$example: cannot open $nowhere; name a catalogue that can be read" $example "$nowhere"
done
expect 1 "usage: 01-lookup CATALOGUE" 01-lookup
expect 1 "usage: 01-lookup CATALOGUE" 01-lookup "$nowhere"

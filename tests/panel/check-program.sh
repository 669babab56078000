#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# The panel as a person starts it.
#
#   check-program.sh PANEL CATALOGUE WORK_DIR
set -eu
panel=$1 catalogue=$2 work=$3
rm -rf "$work"
mkdir -p "$work"
chmod 700 "$work"
export XDG_RUNTIME_DIR="$work"

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

# What a window prints while it shows its first frame is a fault of the panel.
said=$("$panel" --smoke "$catalogue" 2>&1) || fail "it does not show a frame: $said"
[ -z "$said" ] || fail "it prints: $said"
said=$("$panel" --smoke --size 480x320 --theme dark --page 5 2>&1) || fail "it does not find the sample: $said"
[ -z "$said" ] || fail "it prints: $said"

# A catalogue that cannot be used leaves a panel that can.
said=$("$panel" --smoke "$work/none.sqlite" 2>&1) || fail "it does not start without a catalogue: $said"

"$panel" --help | grep -q -- --screenshots || fail "--help does not name --screenshots"
"$panel" --version | grep -q '^zrsupply-panel [0-9]' || fail "--version does not tell one"

refuses() {
    words=$1 expected=$2
    status=0
    # shellcheck disable=SC2086 # several words
    "$panel" $words >"$work/out" 2>"$work/err" || status=$?
    [ "$status" -eq 2 ] || fail "$words: status $status instead of 2"
    [ ! -s "$work/out" ] || fail "$words: prints to stdout"
    grep -q "$expected" "$work/err" || fail "$words: says $(cat "$work/err")"
}
refuses "--theme green" "there is no theme"
refuses "--size small" "write for example --size 480x320"
refuses "--speed fast" "is no pace"
refuses "--page 9" "they are 1 to 7"
refuses "--nonsense" "nonsense"
refuses "a.sqlite b.sqlite" "one word too many"

status=0
"$panel" --screenshots /proc/none "$catalogue" >"$work/out" 2>"$work/err" || status=$?
[ "$status" -eq 1 ] || fail "a folder that cannot be made: status $status"
grep -q "name another" "$work/err" || fail "a folder that cannot be made: $(cat "$work/err")"

"$panel" --measure "$catalogue" >"$work/measured" || fail "--measure fails"
for member in startMs framesPerSecond medianMs worstMs; do
    grep -q "\"$member\": [0-9]" "$work/measured" || fail "--measure does not tell $member"
done

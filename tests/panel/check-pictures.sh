#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Eight states at three sizes, light and dark: every picture is there, of its size, and no two are the same.
#
#   check-pictures.sh PANEL CATALOGUE FOLDER
set -eu
panel=$1 catalogue=$2 folder=$3
rm -rf "$folder"
mkdir -p "$folder"
chmod 700 "$folder"
export XDG_RUNTIME_DIR="$folder"

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

said=$("$panel" --screenshots "$folder" "$catalogue" 2>&1) || fail "$said"
[ -z "$said" ] || fail "it prints: $said"
count=$(find "$folder" -name '*.png' -size +2k | wc -l)
[ "$count" -eq 48 ] || fail "$count pictures instead of 48"
for size in 480x320 1024x600 1440x900; do
    for file in "$folder"/*-"$size"-*.png; do
        # Width and height stand at bytes 16 to 23 of a PNG, big-endian.
        # shellcheck disable=SC2046 # two numbers
        set -- $(od -An -tu1 -j16 -N8 "$file")
        real=$(($3 * 256 + $4))x$(($7 * 256 + $8))
        [ "$real" = "$size" ] || fail "$file is $real"
    done
done
different=$(md5sum "$folder"/*.png | cut -d' ' -f1 | sort -u | wc -l)
[ "$different" -eq 48 ] || fail "only $different of the pictures differ"

#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# What the guard exports is what its package promises.
#
#   check-symbols.sh LIBRARY SYMBOLS_FILE
set -eu
LC_ALL=C
export LC_ALL
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A sanitizer's own marks are not interface.
nm -D --defined-only "$1" | awk '$NF !~ /^__(odr_)?asan/ { print $NF }' | sort >"$work/exported"
sed -n 's/^ \([^@]*\)@.*/\1/p' "$2" | sort >"$work/promised"
[ -s "$work/promised" ] || { echo "$2 lists nothing" >&2; exit 1; }
if ! diff -U0 --label promised --label exported "$work/promised" "$work/exported" >"$work/said"; then
    grep -v '^@@' "$work/said" >&2
    echo "$2 is not what $1 exports. A name that goes breaks hosts that are linked with it: major version." >&2
    echo "A name that comes is listed in $2 with the version it comes with, or hidden by zrsupplyguard.map." >&2
    exit 1
fi

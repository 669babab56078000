#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Every installed header, as the only one that a host includes, in each dialect that hosts use, without a warning.
# Qt's own headers count as the system's.
#
#   check-headers.sh PREFIX        CXX is the compiler
set -eu
prefix=$1
include=$prefix/include/zrsupplydatabase
qt=$(pkg-config --cflags Qt6Core | sed 's/-I/-isystem /g')
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
warnings="-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Werror"
strict="-DQT_NO_KEYWORDS -DQT_NO_FOREACH -DQT_NO_CAST_FROM_ASCII -DQT_NO_CAST_TO_ASCII -DQT_STRICT_ITERATORS"

fail() {
    {
        cat "$work/said"
        echo
        echo "FAIL: <$header> $1"
        echo "Hosts include any of the installed headers first, with and without Qt's keywords, in C++17 or C++20: give"
        echo "src/$header what it is missing. No list has to be accepted and the SOVERSION stays."
    } >&2
    exit 1
}

compiled=0
for path in $(find "$include" -name '*.h' | sort); do
    header=${path#"$include"/}
    for standard in c++17 c++20; do
        for keywords in "" "$strict"; do
            # The second inclusion does nothing; the names that Qt's keywords use stay free where a host says so.
            cat >"$work/host.cpp" <<EOF
#include <$header>
#include <$header>
#ifdef QT_NO_KEYWORDS
struct Host { int slots, signals, emit, foreach; };
#endif
int main() { return 0; }
EOF
            # shellcheck disable=SC2086 # flags are words
            $CXX -std=$standard $warnings $keywords -I"$include" $qt -fPIC -fsyntax-only "$work/host.cpp" \
                >"$work/said" 2>&1 || fail "does not compile alone with -std=$standard $keywords"
            compiled=$((compiled + 1))
        done
    done

    # What it defines beside what Qt's headers define: its own names and no others.
    grep -h '^#include <Qt' "$path" "$include/zrsupplydatabase_global.h" >"$work/qt.cpp"
    echo "#include <$header>" >"$work/host.cpp"
    for source in qt host; do
        # shellcheck disable=SC2086
        $CXX -std=c++17 -I"$include" $qt -fPIC -dM -E "$work/$source.cpp" | sort >"$work/$source.macros"
    done
    comm -13 "$work/qt.macros" "$work/host.macros" | grep -v '^#define ZRSUPPLYDATABASE_' >"$work/said" || true
    [ ! -s "$work/said" ] || fail "defines macros that are not its own, see above"
done
[ $compiled -ge 12 ] || { echo "FAIL: only $compiled compilations, headers are missing in $include" >&2; exit 1; }
echo "$compiled compilations"

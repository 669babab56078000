#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Installs a build into an empty prefix, moves that, and looks at what is there.
#
#   stage-prefix.sh BUILD_DIR PREFIX
set -eu
build=$1 prefix=$2
first=$prefix.installed
rm -rf "$prefix" "$first"
mkdir -p "$(dirname "$prefix")"

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

cmake --install "$build" --prefix "$first" >"$prefix.log" 2>&1 || fail "the install step: $(cat "$prefix.log")"
# Moved after it was installed: nothing in it may remember where that was, or where it was built.
mv "$first" "$prefix"
remembered=$(grep -rlF -e "$first" "$prefix/include" "$prefix/lib"*/cmake "$prefix/lib"*/*/cmake \
    "$prefix/lib"*/pkgconfig "$prefix/lib"*/*/pkgconfig 2>/dev/null || true)
[ -z "$remembered" ] || fail "these remember the prefix that they were installed to: $remembered"
remembered=$(grep -rlF -e "$build" "$prefix" --include='*.cmake' --include='*.pc' --include='*.h' || true)
[ -z "$remembered" ] || fail "these remember the folder that they were built in: $remembered"

for file in include/zrsupplydatabase/zrsupplydatabase.h include/zrsupplydatabase/zrsupplydatabase_global.h \
    include/zrsupplydatabase/tag/supplyc.h share/zrsupplydatabase/sample.sqlite bin/zrsupply \
    share/licenses/zrsupplydatabase/LICENSE include/zrsupplykit/zrsupplykit_global.h \
    include/zrsupplykit/reasons/reasons.h; do
    [ -f "$prefix/$file" ] || fail "$file is not installed"
done
private=$(find "$prefix" -name '*_p.h')
[ -z "$private" ] || fail "private headers are installed: $private"

library=$(find "$prefix" -name libzrsupplydatabase.so)
[ -n "$library" ] || fail "libzrsupplydatabase.so is not installed"
readelf -d "$library" | grep -q 'SONAME.*\[libzrsupplydatabase\.so\.1\]' ||
    fail "the library's SONAME is not libzrsupplydatabase.so.1"
find "$prefix" -type f \( -name '*.so.*' -o -path '*/bin/*' \) >"$prefix.files"
while read -r file; do
    if readelf -d "$file" | grep -E 'R(UN)?PATH' | grep -F "$build"; then
        fail "${file#"$prefix/"} looks for libraries in the folder that it was built in"
    fi
    # Lines for backtraces name the sources, which is what they are for; nothing else does.
    strip --strip-debug -o "$prefix.stripped" "$file"
    if strings -a "$prefix.stripped" | grep -F -e "$build" -e "$first"; then
        fail "${file#"$prefix/"} remembers the folder that it was built in or installed to"
    fi
done <"$prefix.files"

# The package and the .pc files ask for the Qt whose symbols the libraries need, and for one SQLite.
asked=$(sed -n 's/^Requires: Qt6Core >= //p' "$(find "$prefix" -name zrsupplydatabase.pc)")
needed=$(readelf -V "$library" | sed -n 's/.*Name: Qt_\(6\.[0-9]*\) .*/\1/p' | sort -V | tail -n 1)
[ "$(printf '%s\n' "$asked" "$needed" | sort -V | tail -n 1)" = "$asked" ] ||
    fail "zrsupplydatabase.pc asks for Qt $asked, the library needs $needed"
grep -q "find_dependency(Qt6 $asked " "$(find "$prefix" -name ZrSupplyDatabaseConfig.cmake)" ||
    fail "the CMake package does not ask for Qt $asked as zrsupplydatabase.pc does"
grep -q '^Requires.private:.* sqlite3 >= 3.37$' "$(find "$prefix" -name zrsupplyguard.pc)" ||
    fail "zrsupplyguard.pc does not ask for SQLite 3.37 as the build does"

# The command finds library and catalogue from where it is.
answer=$("$prefix/bin/zrsupply" list rolls) || fail "the installed command does not run"
echo "$answer" | grep -q 00144463 || fail "the installed command does not answer from the installed catalogue: $answer"

#!/bin/sh
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
    include/zrsupplydatabase/tag/supplyc.h share/zrsupplydatabase/sample.sqlite bin/zrsupply; do
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
done <"$prefix.files"

# The command finds library and catalogue from where it is.
answer=$("$prefix/bin/zrsupply" list rolls) || fail "the installed command does not run"
echo "$answer" | grep -q 00144463 || fail "the installed command does not answer from the installed catalogue: $answer"

#!/bin/sh
# Installs a build into an empty prefix, builds a consumer outside the tree against it, and runs that.
#
#   check-install.sh BUILD_DIR CATALOGUE CXX_COMPILER
set -eu
build=$1 catalogue=$2 compiler=$3
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

cmake --install "$build" --prefix "$work/prefix" >"$work/install.log" || fail "the install step: $(cat "$work/install.log")"
# Moved after it was installed: nothing in it may remember where that was.
mv "$work/prefix" "$work/moved"

for file in include/zrsupplydatabase/zrsupplydatabase.h include/zrsupplydatabase/tag/supplyc.h; do
    [ -f "$work/moved/$file" ] || fail "$file is not installed"
done
library=$(find "$work/moved" -name libzrsupplydatabase.so)
[ -n "$library" ] || fail "libzrsupplydatabase.so is not installed"
readelf -d "$library" | grep -q 'SONAME.*\[libzrsupplydatabase\.so\.1\]' || fail "the library's SONAME is not libzrsupplydatabase.so.1"

# What is exported is the object, the tag record and the unset text, and nothing private.
exported=$(nm -DC --defined-only "$library" | cut -d' ' -f3- |
    grep -v -E '^(ZrSupplyDatabase::|SupplyC::|unsetString$|(vtable|typeinfo|typeinfo name) for ZrSupplyDatabase$)' || true)
[ -z "$exported" ] || fail "symbols that are not the interface's: $exported"

cmake -S "$here/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$work/moved" -DCMAKE_CXX_COMPILER="$compiler" \
    >"$work/configure.log" 2>&1 || fail "find_package: $(cat "$work/configure.log")"
cmake --build "$work/consumer" >"$work/build.log" 2>&1 || fail "the consumer's build: $(cat "$work/build.log")"
answer=$("$work/consumer/consumer" "$catalogue") || fail "the consumer does not run"
echo "$answer"
echo "$answer" | grep -q -E '^[1-9][0-9]* rolls, first panel -1, width code 16$' || fail "the consumer's answer is wrong"

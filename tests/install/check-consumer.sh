#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Builds a host outside the tree against the installed library, runs it, and compares what it prints.
#
#   check-consumer.sh FOLDER WORK_DIR PREFIX CATALOGUE [cmake argument...]
#
# A folder holds expected.txt and a CMakeLists.txt, or a build.sh that builds in the current folder. The program is
# `consumer CATALOGUE`, unless there is a run.sh. CXX and CXXFLAGS are those of the library's build.
set -eu
folder=$1 work=$2 prefix=$3 catalogue=$4
shift 4
rm -rf "$work"
mkdir -p "$work"
cd "$work"

fail() {
    echo "FAIL: $1" >&2
    [ ! -f "${2:-}" ] || cat "$2" >&2
    exit 1
}

PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name zrsupplydatabase.pc)")
export PKG_CONFIG_PATH
if [ -f "$folder/build.sh" ]; then
    "$folder/build.sh" "$folder" >build.log 2>&1 || fail "it does not build" build.log
    # Where the prefix is not the system's, a bare program is told by the environment where its libraries are.
    LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH")
    export LD_LIBRARY_PATH
else
    cmake -G Ninja -S "$folder" -B . -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$CXX" \
        -DCMAKE_CXX_FLAGS="$CXXFLAGS" "$@" >configure.log 2>&1 || fail "the configure step" configure.log
    cmake --build . >build.log 2>&1 || fail "it does not build" build.log
fi

# A host of static libraries needs nothing of ours at run time.
case ${folder##*/} in
static*)
    if readelf -d consumer | grep -i -E 'NEEDED.*(zrsupply|CuteLogger)'; then fail "it needs shared libraries of ours"; fi
    ;;
esac
if [ -f "$folder/run.sh" ]; then
    "$folder/run.sh" "$folder" "$catalogue" >said.txt || fail "run.sh ends with $?" said.txt
else
    ./consumer "$catalogue" >said.txt || fail "the program ends with $?" said.txt
fi
diff -u "$folder/expected.txt" said.txt || fail "it does not say what $folder/expected.txt holds"

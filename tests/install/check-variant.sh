#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Builds the library and the guard in other ways than the tests' own build, installs them into an empty prefix, moves that
# and looks at what is there.
#
#   check-variant.sh static|logger SOURCE_DIR WORK_DIR [cmake argument...]
#
# static   BUILD_SHARED_LIBS=OFF; WORK_DIR/prefix is for hosts of static libraries.
# logger   a prefix that holds a CuteLogger already, without and with a run path.
set -eu
variant=$1 source=$2 work=$3
shift 3
rm -rf "$work"
mkdir -p "$work"
log=$work/build.log
alone="-DBUILD_TESTING=OFF -DZR_BUILD_TOOLS=OFF -DZR_BUILD_EXAMPLES=OFF -DZR_BUILD_PANEL=OFF -DCMAKE_INSTALL_LIBDIR=lib"

fail() {
    echo "FAIL: $1" >&2
    [ ! -f "${2:-}" ] || cat "$2" >&2
    exit 1
}
# build SOURCE BUILD_DIR PREFIX [cmake argument...]: installs into the prefix that the configure step gets
build() {
    from=$1 to=$2 into=$3
    shift 3
    cmake -G Ninja -S "$from" -B "$to" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$into" -DCMAKE_CXX_COMPILER="$CXX" \
        -DCMAKE_CXX_FLAGS="$CXXFLAGS" "$@" >"$log" 2>&1 || fail "the configure step" "$log"
    cmake --build "$to" >>"$log" 2>&1 || fail "it does not build" "$log"
    cmake --install "$to" >>"$log" 2>&1 || fail "it does not install" "$log"
}
# no_build_path PREFIX: no installed file remembers where it was built or first installed
no_build_path() {
    find "$1" -type f >"$work/files"
    while read -r file; do
        if strings -a "$file" | grep -F -e "$work" -e "$source"; then
            fail "${file#"$1/"} remembers a folder of the build, see above"
        fi
    done <"$work/files"
    [ -s "$work/files" ] || fail "$1 is empty"
}
run_path() {
    readelf -d "$1" | sed -n 's/.*R\(UN\)\?PATH.*\[\(.*\)\]/\2/p'
}

case $variant in
static)
    # shellcheck disable=SC2086 # options are words
    build "$source" "$work/build" "$work/first" -DBUILD_SHARED_LIBS=OFF -DZR_BUILD_GUARD=ON $alone "$@"
    mv "$work/first" "$work/prefix"
    shared=$(find "$work/prefix" -name '*.so*')
    [ -z "$shared" ] || fail "shared libraries are installed: $shared"
    for name in zrsupplydatabase zrsupplyguard CuteLogger; do
        [ -f "$work/prefix/lib/lib$name.a" ] || fail "lib$name.a is not installed"
    done
    no_build_path "$work/prefix"
    ;;
logger)
    # The stand-in without its mark and without the later accessor is, to the finder, a CuteLogger like another.
    cp -R "$source/compat/cutelogger" "$work/cutelogger"
    sed -i '/stand-in of ZrSupplyDatabase/d; /cuteLoggerInstance();/d' "$work/cutelogger/Logger.h"
    sed -i '/^Logger \*cuteLoggerInstance()/,/^}/d' "$work/cutelogger/Logger.cpp"
    first=$work/first
    build "$work/cutelogger" "$work/build-logger" "$first" -DCMAKE_INSTALL_LIBDIR=lib "$@"
    # shellcheck disable=SC2086
    build "$source" "$work/build" "$first" -DCMAKE_PREFIX_PATH="$first" $alone "$@"
    grep -F "Logging: CuteLogger of $first/lib/libCuteLogger.so" "$log" >/dev/null ||
        fail "the CuteLogger of the prefix was not taken" "$log"
    mv "$first" "$work/prefix"
    library=$work/prefix/lib/libzrsupplydatabase.so
    # shellcheck disable=SC2016 # the loader knows $ORIGIN
    [ "$(run_path "$library")" = '$ORIGIN' ] || fail "the library's run path is not \$ORIGIN: $(run_path "$library")"
    ldd "$library" | grep -F "$work/prefix/lib/libCuteLogger.so" >/dev/null ||
        fail "the moved library does not find the logger beside it: $(ldd "$library")"
    no_build_path "$work/prefix"

    # shellcheck disable=SC2086
    build "$source" "$work/build" "$work/second" -DCMAKE_PREFIX_PATH="$work/prefix" \
        -DCuteLogger_INCLUDE_DIR="$work/prefix/include/CuteLogger" -DCuteLogger_LIBRARY="$work/prefix/lib/libCuteLogger.so" \
        -DCMAKE_SKIP_INSTALL_RPATH=ON $alone "$@"
    library=$work/second/lib/libzrsupplydatabase.so
    [ -z "$(run_path "$library")" ] || fail "with CMAKE_SKIP_INSTALL_RPATH there is a run path: $(run_path "$library")"
    ;;
*)
    fail "there is no variant '$variant'"
    ;;
esac

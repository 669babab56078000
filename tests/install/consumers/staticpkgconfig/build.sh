#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# The bare compiler line of a host that links the static libraries.
set -eu
# shellcheck disable=SC2046,SC2086 # flags are words
exec $CXX $CXXFLAGS -std=c++17 "$1/../static/main.cpp" -o consumer \
    $(pkg-config --cflags --libs zrsupplydatabase zrsupplyguard)

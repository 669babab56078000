#!/bin/sh
set -eu
meson setup build "$1"
meson compile -C build
ln build/consumer consumer

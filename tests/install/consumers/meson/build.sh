#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
set -eu
meson setup build "$1"
meson compile -C build
ln build/consumer consumer

#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
set -eu
make -f "$1/Makefile"

#!/bin/sh
set -eu
make -f "$1/Makefile"

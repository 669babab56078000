#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Runs the host, and installs it: nothing of the library comes along unless the host asks for that.
#
#   run.sh FOLDER CATALOGUE
set -eu
./consumer "$2"
cmake --install . --prefix "$PWD/installed" >install.log
cmake -DZR_INSTALL=ON . >install.log
cmake --build . >install.log
cmake --install . --prefix "$PWD/installed-with" >install.log
for prefix in installed installed-with; do
    echo "$prefix:"
    if [ -d $prefix ]; then find $prefix -name 'libzrsupplydatabase.so*' -printf '%f\n' | sort; fi
    if [ -d $prefix ]; then find $prefix -name '*.h' -printf '%f\n' | sort | head -n 1; fi
done

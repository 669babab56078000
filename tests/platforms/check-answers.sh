#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# check-answers.sh OUTPUT PROGRAM...: builds the sample catalogue, writes the answers over it to OUTPUT and compares their
# digests with answers.digests. PROGRAM may begin with an emulator. A change that is meant is accepted with ACCEPT=1 in the
# environment.
set -eu
output=$1
shift
here=$(cd "$(dirname "$0")" && pwd)
sample=$(mktemp "${TMPDIR:-/tmp}/sample.XXXXXX")
trap 'rm -f "$sample"' EXIT
"$here/../../schema/build-catalogue" "$here/../../schema/sample" "$sample"
"$@" ${ACCEPT:+--accept} "$sample" "$output" "$here/answers.digests"

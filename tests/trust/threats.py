#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Prints what was tried of each threat and how it ended, from the log that ctest keeps of its last run.

    tests/trust/threats.py build/dev/Testing/Temporary/LastTest.log

Exit status 0 when every threat was tried and every promise held, 1 when not, 2 when there is no such log.
"""
import re
import sys

THREATS = {
    "arguments as SQL": "tst_hostilearguments",
    "tags": "tst_hostiletags",
    "damaged catalogues": "tst_trust_damage",
    "hostile catalogues": "tst_trust_hostile",
    "paths": "tst_trust_paths",
    "the file changes while open": "tst_trust_changes",
    "faults below": "tst_trust_faults",
    "long life": "tst_longlife",
    "sequences": "tst_sequences",
}
TEST = re.compile(r"^\d+/\d+ Test(?:ing)?: (\S+)$", re.MULTILINE)
TOTALS = re.compile(r"^Totals: (\d+) passed, (\d+) failed", re.MULTILINE)
FIGURE = re.compile(r"^QINFO  : \w+::(.*)$", re.MULTILINE)
SECONDS = re.compile(r"^Test time = +([\d.]+) sec$", re.MULTILINE)


def outputs(log):
    """What each test of the log printed, by the test's name."""
    pieces = TEST.split(log)
    return dict(zip(pieces[1::2], pieces[2::2]))


def told(threat, test, output):
    """The lines of a threat, and whether all of it held."""
    totals = TOTALS.search(output)
    if not totals:
        return [f"{threat}: NOT TRIED, {test} has not run to its end"], False
    passed, failed = map(int, totals.groups())
    held = failed == 0 and passed > 0 and "\nTest Passed." in output
    seconds = SECONDS.search(output)
    line = f"{threat}: {'held' if held else 'DID NOT HOLD'}, {test}, {passed} rows passed, {failed} failed"
    if seconds:
        line += f", {float(seconds.group(1)):.0f} s"
    return [line, *("    " + figure for figure in FIGURE.findall(output))], held


def main():
    if len(sys.argv) != 2 or sys.argv[1].startswith("-"):
        print(__doc__.strip(), file=sys.stderr)
        return 2
    try:
        with open(sys.argv[1], encoding="utf-8", errors="replace") as file:
            printed = outputs(file.read())
    except OSError as error:
        print(f"threats.py: {error}; run the tests with ctest first", file=sys.stderr)
        return 2
    all_held = True
    for threat, test in THREATS.items():
        lines, held = told(threat, test, printed.get(test, ""))
        print("\n".join(lines))
        all_held &= held
    return 0 if all_held else 1


if __name__ == "__main__":
    sys.exit(main())

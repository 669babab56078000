#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Whether threats.py tells a threat that held from one that did not, that was not tried, and from a log that is none."""
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
import threats

PASSED = """{n}/9 Testing: {test}
{n}/9 Test: {test}
Command: "{test}"
QINFO  : TestOne::tried() 12 files
Totals: {passed} passed, {failed} failed, 0 skipped, 0 blacklisted, 3ms
Test time =   3.00 sec
Test {verdict}.
"""


def log(changed="", passed=4, failed=0, verdict="Passed", left_out=""):
    pieces = []
    for n, test in enumerate(threats.THREATS.values(), 1):
        values = (passed, failed, verdict) if test == changed else (4, 0, "Passed")
        if test != left_out:
            pieces.append(PASSED.format(n=n, test=test, passed=values[0], failed=values[1], verdict=values[2]))
    return "\n".join(pieces)


def main():
    test = "tst_trust_damage"
    cases = [
        ("all held", log(), 0, "damaged catalogues: held, tst_trust_damage, 4 rows passed, 0 failed, 3 s\n    tried() 12 files"),
        ("a row failed", log(test, 3, 1, "Failed"), 1, "damaged catalogues: DID NOT HOLD"),
        ("ended in a crash behind its rows", log(test, 4, 0, "Failed"), 1, "damaged catalogues: DID NOT HOLD"),
        ("no row", log(test, 0, 0), 1, "damaged catalogues: DID NOT HOLD"),
        ("not run", log(left_out=test), 1, "damaged catalogues: NOT TRIED, tst_trust_damage"),
        ("empty", "", 1, "long life: NOT TRIED"),
        ("no log", None, 2, ""),
    ]
    failed = 0
    for name, text, status, told in cases:
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "LastTest.log"
            if text is not None:
                path.write_text(text)
            run = subprocess.run([sys.executable, threats.__file__, str(path)], capture_output=True, text=True)
        as_stated = run.returncode == status and told in run.stdout and (status == 2) == bool(run.stderr)
        failed += not as_stated
        print(f"{'PASS' if as_stated else 'FAIL'}: {name}")
        if not as_stated:
            print(f"status {run.returncode}\n{run.stdout}{run.stderr}")
    print(f"{len(cases) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

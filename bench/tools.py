#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Measures the catalogue author's verbs, and the sqlite3 shell doing the same work as their floor.

    bench/tools.py ZRSUPPLY RESULTS.json [--quick]

Ten languages and a thousand ribbons; --quick leaves out the million rolls. Writes the seconds that pass and those of
the processor (medians of three runs, which take turns with those of the floor) and the peak of resident memory in MB.
"""
import argparse
import json
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
TURNS = 3


def run(command, read_from=os.devnull):
    """What one command takes. What it writes is kept from the terminal; an error ends the run."""
    with open(read_from, "rb") as source, tempfile.TemporaryFile() as errors:
        begin = time.monotonic()
        process = subprocess.Popen(list(map(str, command)), stdin=source, stdout=subprocess.DEVNULL, stderr=errors)
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.monotonic() - begin
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            errors.seek(0)
            sys.exit(f"{command} ended with {process.returncode}: {errors.read().decode()}")
    return {"seconds": seconds, "processor": usage.ru_utime + usage.ru_stime, "MB": usage.ru_maxrss / 1024}


def in_turns(**commands):
    """Median seconds and highest MB by name. Each command is a tuple of its words and, if it has one, its input."""
    runs = {name: [] for name in commands}
    for _ in range(TURNS):
        for name, (words, *source) in commands.items():
            runs[name].append(run(words, *source))
    of_runs = {"seconds": statistics.median, "processor": statistics.median, "MB": max}
    return {name: {key: summed_up(one[key] for one in taken) for key, summed_up in of_runs.items()}
            for name, taken in runs.items()}


def measure(zrsupply, place, quick):
    def generate(rolls, output):
        return [zrsupply, "catalogue", "generate", "--rolls", rolls, "--ribbons", 1000, "--languages", 10,
                "-o", output]

    big, sources, some, page = place / "big.sqlite", place / "sources", place / "some.sqlite", place / "report.html"
    results = in_turns(generate=(generate(100_000, big),))
    if not quick:
        results["generate a million"] = run(generate(1_000_000, place / "giant.sqlite"))
    run([zrsupply, "catalogue", "dump", big, "-o", sources])
    results |= in_turns(**{
        "build": ([zrsupply, "catalogue", "build", sources, "-o", place / "built.sqlite"],),
        "build, floor": ([ROOT / "schema/build-catalogue", sources, place / "floor.sqlite"],),
        "check": ([zrsupply, "catalogue", "check", big],),
        "check, floor": (["sqlite3", "-readonly", big], ROOT / "schema/checks.sql"),
    })
    run([zrsupply, "catalogue", "generate", "--rolls", 2000, "-o", some])
    results |= in_turns(report=([zrsupply, "catalogue", "report", some, "-o", page],))
    results["report"]["page MB"] = page.stat().st_size / 1e6
    return results


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("zrsupply", type=pathlib.Path)
    parser.add_argument("results", type=pathlib.Path)
    parser.add_argument("--quick", action="store_true")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="zrsupply-bench-", dir=arguments.results.resolve().parent) as place:
        results = measure(arguments.zrsupply.resolve(), pathlib.Path(place), arguments.quick)
    arguments.results.write_text(json.dumps(results, indent=4) + "\n")


if __name__ == "__main__":
    main()

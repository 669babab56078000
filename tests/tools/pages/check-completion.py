#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Types lines into a real shell and looks at what it offers: every verb, option and choice of the command table, and rows
for what depends on the line, real SKUs among them.

    check-completion.py bash|zsh|fish PREFIX CATALOGUE

PREFIX is an installed one: the script is taken from where the shell looks for it.
"""
import contextlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile

from shells import SHELLS, ShellFailure

PLACES = {"bash": "share/bash-completion/completions/zrsupply", "zsh": "share/zsh/site-functions/_zrsupply",
          "fish": "share/fish/vendor_completions.d/zrsupply.fish"}

# What stands on the line, some of what is offered, some of what is not.
ROWS = [
    ("a roll by its beginning", "zrsupply roll 0014346", ["00143465"], ["00144463", "R530901"]),
    ("a ribbon", "zrsupply ribbon RW5309", ["RW530901", "RW530903"], ["R530901", "00143465"]),
    ("a ribbon behind the first", "zrsupply explain --ribbons R530901 RW53", ["RW530901"], ["R530901", "00143465"]),
    ("the roll of an option", "zrsupply ribbon R530901 --on 0014346", ["00143465"], ["R530901"]),
    ("a roll behind an equals sign", "zrsupply explain --roll=0014346", ["00143465"], ["R530901"]),
    ("options before the verb", "zrsupply --language 1 --json roll 0014346", ["00143465"], []),
    ("the second word of a verb", "zrsupply tag ", ["decode", "encode"], ["roll", "check"]),
    ("a verb to be explained", "zrsupply help tag ", ["decode", "encode"], ["roll"]),
    ("the first word of a verb to be explained", "zrsupply help ro", ["roll"], ["tag", "decode"]),
    ("choices of an argument", "zrsupply list r", ["rolls", "ribbons"], ["languages", "colours"]),
    ("a language", "zrsupply roll 00143465 --language ", ["0", "1", "5"], ["00143465"]),
    ("one SKU is enough", "zrsupply roll 00143465 0014", [], ["00143465", "00144463"]),
    ("a file", "zrsupply catalogue info on", ["one.sqlite"], ["00143465"]),
    ("a file of an option", "zrsupply roll 00143465 --catalogue on", ["one.sqlite"], ["00143465"]),
    ("the catalogue of the line", "zrsupply roll --catalogue one.sqlite ", ["ONLY-1", "ONLY-2"], ["00143465"]),
    ("the catalogue of the line, behind an equals sign", "zrsupply roll --catalogue=one.sqlite ", ["ONLY-1"],
     ["00143465"]),
    ("the catalogue of the line, before the verb", "zrsupply --catalogue one.sqlite roll ", ["ONLY-1"], ["00143465"]),
    ("a catalogue that is none", "zrsupply roll --catalogue empty.txt ", [], ["00143465", "ONLY-1"]),
    ("nothing behind a text", "zrsupply roll 00143465 --printer ", [], ["00143465", "one.sqlite"]),
    ("nothing but arguments behind two dashes", "zrsupply roll -- 0014346", ["00143465"], ["--json"]),
]


def verb_rows(table):
    """A row for every list that the command table holds."""
    paths = [verb["path"] for verb in table["verbs"]]
    yield "every first word", "zrsupply ", sorted({path.split()[0] for path in paths})
    for group in table["groups"]:
        words = [path.split()[1] for path in paths if path.startswith(group + " ")]
        yield f"every word behind {group}", f"zrsupply {group} ", sorted(words)
    for verb in table["verbs"]:
        options = verb["options"] + table["globalOptions"]
        names = [f"--{option['name']}" for option in options]
        yield f"every option of {verb['path']}", f"zrsupply {verb['path']} --", sorted(names)
        for option in options if verb is table["verbs"][0] else verb["options"]:
            if option["value"] == "choice":
                yield (f"choices of {verb['path']} --{option['name']}", f"zrsupply {verb['path']} --{option['name']} ",
                       sorted(option["choices"]))
            if option["letter"]:
                yield f"-{option['letter']} of {verb['path']}", f"zrsupply {verb['path']} -", \
                    sorted([*names, f"-{option['letter']}"])


def plain(offered):
    """Without what a shell adds to go on typing."""
    return sorted({word.rstrip(" =") for word in offered})


def check(shell, table):
    failures = []
    count = 0
    for name, line, expected in verb_rows(table):
        count += 1
        offered = plain(shell.offers(line))
        if offered != expected:
            failures.append(f"{name}: {line!r}: not offered {sorted(set(expected) - set(offered))}, offered beside "
                            f"them {sorted(set(offered) - set(expected))}")
    for name, line, expected, others in ROWS:
        count += 1
        offered = plain(shell.offers(line))
        missing = [word for word in expected if word not in offered]
        wrong = [word for word in others if word in offered]
        if missing or wrong:
            failures.append(f"{name}: {line!r}: not offered {missing}, wrongly offered {wrong}, of {offered[:20]}")
    return count, failures


def main():
    name, prefix, catalogue = sys.argv[1], pathlib.Path(sys.argv[2]).resolve(), sys.argv[3]
    command = prefix / "bin/zrsupply"
    environment = {"PATH": f"{command.parent}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8", "HOME": os.environ["HOME"],
                   "ZRSUPPLY_CATALOGUE": str(pathlib.Path(catalogue).resolve())}
    table = json.loads(subprocess.run([command, "help", "--json"], capture_output=True, check=True).stdout)
    with tempfile.TemporaryDirectory() as folder, contextlib.chdir(folder):
        # A catalogue of two rolls that no other one has.
        subprocess.run([command, "catalogue", "dump", catalogue, "-o", "sources"], check=True, capture_output=True)
        sources = pathlib.Path("sources")
        rolls = (sources / "roll.csv").read_text().splitlines()
        rows = [f"ONLY-{number}," + ",".join(rolls[1].split(",")[1:]) for number in (1, 2)]
        (sources / "roll.csv").write_text("\n".join([rolls[0], *rows]) + "\n")
        for table_file in ("continuousstripe.csv", "noncontinuous.csv"):
            (sources / table_file).write_text((sources / table_file).read_text().splitlines()[0] + "\n")
        subprocess.run([command, "catalogue", "build", "sources", "-o", "one.sqlite"], check=True, capture_output=True)
        pathlib.Path("empty.txt").touch()
        try:
            count, failures = check(SHELLS[name](str(prefix / PLACES[name]), environment), table)
        except ShellFailure as failure:
            count, failures = 0, [str(failure)]
    for failure in failures:
        print(failure)
    print(f"{name}: {count} lines completed, {len(failures)} wrongly")
    if failures:
        print(f"The script is made from the command table by tools/zrsupply/pages/{name}.py; a new kind of value needs a "
              "word in table.py there")
    return 1 if failures or not count else 0


if __name__ == "__main__":
    sys.exit(main())

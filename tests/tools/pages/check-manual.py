#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Reads the installed manual pages with man and mandoc, without a warning, and looks whether they name everything that
the command table holds.

    check-manual.py PREFIX
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

SECTIONS = ["NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "ENVIRONMENT", "FILES", "EXAMPLES", "SEE ALSO"]
ENVIRONMENT = {**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "1000", "MAN_KEEP_FORMATTING": ""}


def said(words):
    """What the program says and what it complains of."""
    if not shutil.which(words[0]):
        raise SystemExit(f"{words[0]} is not installed; scripts/bootstrap test installs it")
    done = subprocess.run(words, capture_output=True, text=True, env=ENVIRONMENT, check=False)
    return done.stdout, done.stderr


def plain(text):
    """One line, without what a terminal shows in bold, with the keyboard's signs."""
    text = re.sub(r".\x08|\x1b\[[0-9;]*m", "", text)
    for sign, typed in (("‐", "-"), ("−", "-"), ("’", "'"), ("‘", "'"), ("“", '"'), ("”", '"')):
        text = text.replace(sign, typed)
    return " ".join(text.split()).replace("- ", "-")  # a line may end behind a hyphen


def sentences(row):
    return plain(row).rstrip(".")


def expected_words(table, verb):
    """Each with what it is, for the message."""
    for option in verb["options"] + table["globalOptions"]:
        label = f"-{option['letter']}, --{option['name']}" if option["letter"] else f"--{option['name']}"
        yield "option", f"{label} {option['valueName']}".strip()
        yield "help of an option", sentences(option["help"])
    for argument in verb["arguments"]:
        yield "argument", argument["name"]
        yield "help of an argument", sentences(argument["help"])
    for row in verb["arguments"] + verb["options"]:
        for choice in row["choices"]:
            yield "choice", choice
    for use in verb["exitStatuses"]:
        yield "exit status", f"{use['status']} {sentences(use['when'][0].upper() + use['when'][1:])}"
    for example in verb["examples"]:
        yield "example", f"{plain(example['commandLine'])} {plain(example['says'])}"
    for paragraph in verb["description"].split("\n\n"):
        yield "description", plain(paragraph)


def check_page(path, sections):
    """The page's text, and what is wrong with how it is written."""
    lint, _ = said(["mandoc", "-Tlint", "-Wwarning", str(path)])
    text, warnings = said(["man", "--warnings", "--nh", "--nj", "-E", "UTF-8", "-l", "-Tutf8", str(path)])
    _, unnamed = said(["lexgrog", str(path)])
    wrong = [line for line in (lint + warnings + unnamed).splitlines() if line.strip()]
    headings = re.findall(r"^\.SH (.*)$", path.read_text(), re.M)
    if headings != sections:
        wrong.append(f"{path.name}: its sections are {headings}, not {sections}")
    return plain(text), wrong


def main():
    prefix = pathlib.Path(sys.argv[1])
    folder = prefix / "share/man/man1"
    table = json.loads(subprocess.run([prefix / "bin/zrsupply", "help", "--json"], capture_output=True,
                                      check=True).stdout)
    pages = {"zrsupply": None, **{"zrsupply-" + verb["path"].replace(" ", "-"): verb for verb in table["verbs"]}}
    wrong = []
    found = {path.name.removesuffix(".1") for path in folder.iterdir()}
    if found != set(pages):
        wrong.append(f"no page for {sorted(set(pages) - found)}, pages for no verb: {sorted(found - set(pages))}")
    for name in sorted(found & set(pages)):
        verb = pages[name]
        examples = verb is None or verb["examples"]
        sections = [section for section in SECTIONS if examples or section != "EXAMPLES"]
        if verb is None:
            sections.insert(sections.index("OPTIONS"), "VERBS")
        text, problems = check_page(folder / f"{name}.1", sections)
        wrong += problems
        rows = expected_words(table, verb) if verb else [
            row for other in table["verbs"]
            for row in (("verb", f"{other['path']} {sentences(other['summary'])}"),
                        ("page", f"zrsupply-{other['path'].replace(' ', '-')}(1)"))]
        wrong += [f"{name}.1 does not name the {kind}: {words}" for kind, words in rows if words not in text]
    for line in wrong:
        print(line)
    print(f"{len(found)} manual pages read, {len(wrong)} complaints")
    if wrong:
        print("The pages are made from the command table by tools/zrsupply/pages/manual.py; mend that or the verb's row")
    return 1 if wrong or not found else 0


if __name__ == "__main__":
    sys.exit(main())

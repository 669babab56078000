#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes docs/interface.md from the public header and the golden list of meta-methods.

    docs/make-interface.py [--check]

--check writes nothing and ends with status 1 when docs/interface.md is not what would be written. The golden list is
compared with the running meta-object by the tests, so the three say the same.
"""
import csv
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADER = ROOT / "src/zrsupplydatabase.h"
GOLDEN = ROOT / "tests/data/metamethods.tsv"
TARGET = ROOT / "docs/interface.md"

ACCESS = {"public:": "public", "Q_SIGNALS:": "signal", "public Q_SLOTS:": "slot", "private Q_SLOTS:": "private slot"}


def split_parameters(text):
    """The parameters between a declaration's parentheses; a comma inside brackets does not part them."""
    parts, depth, current = [], 0, ""
    for c in text:
        depth += c in "(<" and 1 or c in ")>" and -1 or 0
        if c == "," and depth == 0:
            parts.append(current.strip())
            current = ""
        else:
            current += c
    return parts + ([current.strip()] if current.strip() else [])


def parse(header):
    """(kind, section, declaration, comment) of every member, in order."""
    lines = header.read_text().splitlines()
    start = next(i for i, line in enumerate(lines) if line.startswith("class ZRSUPPLYDATABASE_EXPORT"))
    kind, section, comment, members, declaration, section_open = "", "", [], [], "", False
    for line in lines[start + 1:]:
        text = line.strip()
        access = next((k for k in ACCESS if text.startswith(k)), None)
        if access:
            kind, section, comment = ACCESS[access], "", []
        elif text == "private:":
            break
        elif not text:
            comment, section_open = ([] if not declaration else comment), False
        elif text.startswith("///") and not declaration:
            comment.append(text[3:].strip())
        elif text.startswith("//") and not declaration:
            words = text[2:].strip()
            section = section + " " + words if section_open else words
            section_open = True
        elif text not in ("{", "};", "Q_OBJECT"):
            code, _, trailing = text.partition("///<")
            declaration = (declaration + " " + code).strip()
            if trailing:
                comment = [trailing.strip()]
            if declaration.endswith(";"):
                if "(" in declaration:
                    members.append((kind, re.sub(r"\s+", " ", section), declaration[:-1], " ".join(comment)))
                declaration, comment = "", []
    return members


def signatures(declaration):
    """Name, return type, and the parameter lists a host can call: without each trailing default in turn."""
    match = re.match(r"(?:(.*?) )?([~\w]+)\((.*)\)(?: override)?$", declaration)
    returns, name, parameters = match.group(1) or "", match.group(2), split_parameters(match.group(3))
    lists = [parameters]
    while lists[-1] and "=" in lists[-1][-1]:
        lists.append(lists[-1][:-1])
    return name, returns, lists


def type_of(parameter):
    without_default = parameter.split("=")[0].strip()
    return re.sub(r"^const |\s*&$", "", without_default.rsplit(" ", 1)[0]).strip()


def write():
    with GOLDEN.open() as file:
        golden = list(csv.DictReader(file, delimiter="\t"))
    members = sorted(parse(HEADER), key=lambda member: member[0] == "public")  # ordinary members come last
    out = ["# The interface", "",
           "Every operation of `ZrSupplyDatabase`: what it answers, its unit, its default, and what an empty SKU means.",
           "Written by `docs/make-interface.py` from the header's comments and from the list of meta-methods; edit those.",
           ""]
    intro = HEADER.read_text()
    held = re.search(r"/// What holds for every lookup:\n((?:/// .*\n)+)", intro).group(1)
    out += ["What holds for every lookup:", ""] + [l[4:] for l in held.splitlines()] + [""]

    index, previous = 0, None
    for kind, section, declaration, comment in members:
        section = re.sub(r"^(\d+(?:-\d+)?) +", r"\1, ", section)
        name, returns, lists = signatures(declaration)
        heading = (kind, section)
        if heading != previous:
            title = {"signal": "Signals", "slot": "Slots", "private slot": "Private slots, callable by name",
                     "public": "Ordinary members"}[kind]
            short = re.split(r"[;:.(]| \(", section, maxsplit=1)[0].strip()
            out += ["" if out[-1] else None, f"## {title}" + (f": {short}" if short and kind != "signal" else "")]
            if short != section:
                out += ["", section]
            out += ["", "| index | operation | returns | |", "|---|---|---|---|"]
            previous = heading
        indices = []
        if kind != "public":
            for parameters in lists:
                row = golden[index]
                expected = f"{name}({','.join(map(type_of, parameters))})"
                if row["signature"] != expected or row["return type"] != returns:
                    sys.exit(f"index {index}: the header has {returns} {expected}, "
                             f"the golden list {row['return type']} {row['signature']}")
                indices.append(str(index))
                index += 1
        shown = ", ".join(re.sub(r'QLatin1String\((".*?")\)', r"\1", parameter).replace("QString()", '""') for parameter in lists[0])
        out.append(f"| {', '.join(indices)} | `{name}({shown})` | {f'`{returns}`' if returns else ''} | {comment} |")
    if index != len(golden):
        sys.exit(f"the header has {index} meta-methods, the golden list {len(golden)}")
    return "\n".join(line for line in out if line is not None) + "\n"


def main():
    text = write()
    if "--check" in sys.argv[1:]:
        if not TARGET.exists() or TARGET.read_text() != text:
            sys.exit("docs/interface.md is out of date; run docs/make-interface.py and commit what it writes")
    else:
        TARGET.write_text(text)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the tables of docs/tag-layout.md and the picture docs/tag-layout.svg from the decoder's own layout table.

    docs/make-tag-layout.py [--check]

--check writes nothing and ends with status 1 when one of the files is not what would be written.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LAYOUT = ROOT / "src/tag/taglayout_p.h"
RECORD = ROOT / "src/tag/supplyc.h"
PAGE = ROOT / "docs/tag-layout.md"
PICTURE = ROOT / "docs/tag-layout.svg"

WHEN = {
    "Always": "always", "MultiUp": "revision 2 and later", "SingleUp": "revision 0 and 1",
    "Continuous": "format 1 or 2", "NonContinuous": "any other format",
    "NonContinuousMultiUp": "any other format, revision 2 and later",
    "NonContinuousSingleUp": "any other format, revision 0 and 1",
}
SHORT = {  # where a box has no room for the name
    "tagFlagBit9": "f9", "tagFlagBit11": "f11", "tagFlagBit25": "f25", "tagFlagBit72": "f72", "tagFlagBit73": "f73",
    "swiftLift": "lift", "secColorWidthSixteenths": "sec… Sixteenths", "not read": "-",
    "separatorWidthCode": "gap", "nonContinuousLengthSixteenths": "nonC… Sixteenths",
    "nonContinuousLengthInches": "nonContinuous… Inches", "multiUpGapCode": "gap", "typeIndex": "type",
}
COLORS = {"head": "#dbe9f6", "continuous": "#fde7c7", "diecut": "#dff0d8", "multi": "#eadcf4", "unread": "#eeeeee"}


def rows():
    found = re.findall(r"Field\{\s*(\d+),\s*(\d+),\s*When::(\w+)(?:,\s*&SupplyC::(\w+))?\s*\}", LAYOUT.read_text())
    return [(int(first), int(width), when, field) for first, width, when, field in found]


def meanings():
    found = re.findall(r"^    (?:int|bool) (\w+) = [^;]+;\s*///< (.*)$", RECORD.read_text(), re.M)
    return dict(found)


def table():
    says = meanings()
    lines = ["| bits | width | read | field | |", "|---|---|---|---|---|"]
    for first, width, when, field in rows():
        bits = str(first) if width == 1 else f"{first}-{first + width - 1}"
        lines.append(f"| {bits} | {width} | {WHEN[when]} | {f'`{field}`' if field else 'not read'} | {says.get(field, '')} |")
    return "\n".join(lines)


def picture():
    """Twelve bytes, eight bits each, in four rows; the block that depends on the format is drawn twice."""
    cell, height, left, top = 28, 46, 16, 34
    per_line = 24
    width = left * 2 + cell * per_line
    parts = []

    def box(first, bits, label, color, lane, lanes, y0):
        """A field as one box a line; `lane` of `lanes` stacks the two forms of one block."""
        while bits:
            line, column = divmod(first, per_line)
            here = min(bits, per_line - column)
            x, y = left + column * cell, y0(line) + lane * height / lanes
            h = height / lanes
            parts.append(f'<rect x="{x}" y="{y:.1f}" width="{here * cell}" height="{h:.1f}" fill="{color}" stroke="#555"/>')
            room = int(here * cell / 6.6)
            text = next((t for t in (label, SHORT.get(label, ""), "…") if len(t) <= room), "")
            parts.append(f'<text x="{x + here * cell / 2:.1f}" y="{y + h / 2 + 3.5:.1f}" text-anchor="middle">'
                         f'<title>{label}, bits {first} to {first + here - 1}</title>{text}</text>')
            first, bits = first + here, bits - here

    def y_of(line):
        return top + line * (height + 34)

    for line in range(4):
        for column in range(per_line):
            bit = line * per_line + column
            parts.append(f'<text x="{left + column * cell + cell / 2}" y="{y_of(line) - 5}" text-anchor="middle" '
                         f'class="bit">{bit}</text>')
    for first, bits, when, field in rows():
        label = field or "not read"
        if when == "Always":
            box(first, bits, label, COLORS["head"] if field else COLORS["unread"], 0, 1, y_of)
        elif when == "MultiUp":
            box(first, bits, label, COLORS["multi"], 0, 1, y_of)
        elif when == "Continuous":
            box(first, bits, label, COLORS["continuous"], 0, 2, y_of)
        elif when in ("NonContinuous", "NonContinuousMultiUp"):
            box(first, bits, label, COLORS["diecut"] if field else COLORS["unread"], 1, 2, y_of)
    total = y_of(4) + 4
    legend = [("head", "always read"), ("continuous", "format 1 or 2"), ("diecut", "any other format"),
              ("multi", "revision 2 and later"), ("unread", "not read")]
    for i, (name, says) in enumerate(legend):
        x = left + i * 132
        parts.append(f'<rect x="{x}" y="{total - 24}" width="14" height="14" fill="{COLORS[name]}" stroke="#555"/>')
        parts.append(f'<text x="{x + 20}" y="{total - 12}">{says}</text>')
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {total}" role="img" '
            f'aria-label="The 96 bits of a tag">\n'
            '<style>text{font:11px sans-serif;fill:#111}.bit{font-size:8px;fill:#555}</style>\n'
            f'<rect width="{width}" height="{total}" fill="#ffffff"/>\n' + "\n".join(parts) + "\n</svg>\n")


def page():
    text = PAGE.read_text()
    begin, end = "<!-- layout: written by make-tag-layout.py -->\n", "<!-- end of layout -->"
    head, rest = text.split(begin)
    return head + begin + table() + "\n" + end + rest.split(end)[1]


def main():
    wanted = {PAGE: page(), PICTURE: picture()}
    if "--check" in sys.argv[1:]:
        for path, text in wanted.items():
            if not path.exists() or path.read_text() != text:
                sys.exit(f"docs/{path.name} is out of date; run docs/make-tag-layout.py and commit what it writes")
    else:
        for path, text in wanted.items():
            path.write_text(text)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Checks the table of supported versions in SECURITY.md: it has the version that is built, with the date of its release
and an end that is at least two years later.

    check-security.py SOURCE_DIR
"""
import datetime
import email.utils
import pathlib
import re
import sys


def main():
    root = pathlib.Path(sys.argv[1])
    version = re.search(r"^    VERSION (\d+\.\d+)", (root / "CMakeLists.txt").read_text(), re.M)[1]
    changelog = (root / "packaging/debian/changelog").read_text()
    entries = re.findall(r"^\S+ \((\d+\.\d+)[^)]*\).*?^ -- .*?>  (.*?)$", changelog, re.M | re.S)
    released = min(email.utils.parsedate_to_datetime(when).date() for found, when in entries if found == version)
    rows = re.findall(r"^\| (\d+\.\d+) \| (\d{4}-\d\d-\d\d) \| (\d{4}-\d\d-\d\d) \|$",
                      (root / "SECURITY.md").read_text(), re.M)
    dates = {found: [datetime.date.fromisoformat(text) for text in texts] for found, *texts in rows}
    if version not in dates:
        raise SystemExit(f"SECURITY.md does not list version {version}")
    if dates[version][0] != released:
        raise SystemExit(f"SECURITY.md has {version} released on {dates[version][0]}, packaging/debian/changelog has {released}")
    for found, (begin, end) in dates.items():
        if end < begin.replace(year=begin.year + 2):
            raise SystemExit(f"SECURITY.md: {found} is supported for less than two years, {begin} to {end}")
    print(f"{len(dates)} versions, {version} until {dates[version][1]}")


if __name__ == "__main__":
    main()

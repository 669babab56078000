#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the seeds of the fuzz targets, tests/trust/fuzz/corpus/*/seed-*; needs no argument. Everything in them is invented.

With --check nothing is written: ends with status 1 when a seed of the tree is not what this writes. The catalogues are
compared only in what they hold, since their bytes depend on the version of SQLite.
"""
import pathlib
import random
import sqlite3
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent.parent

TAGS = {
    "empty": "",
    "zeros": "0" * 48,
    "ones": "F" * 48,
    "striped": "96660E52C02100D060892D80" * 2,
    "multi-up": "FFE641096254004082E91F80" "3203021900A180A031493880",
    "odd": "F81" "123456789abcdef0123456789",
    "strays": "12 34:56-78\tgG\u00e9\uff11",
    "reset": "-1-1",
    "wide-digit": "12345678901\u0131234567890123" * 2,
    "beyond": "xxxx12345678901234567890FFFF" * 2,
    "landscape": "000000000000000002000000" "000000000000800000000000",
}

TEXTS = {
    "sku": "CONT-4",
    "quote": "it's",
    "union": "x' UNION SELECT name FROM sqlite_master --",
    "numbers": "x' UNION ALL SELECT 1 ORDER BY 1 DESC --",
    "stacked": "x'; ATTACH 'a' AS b; --",
    "vacuum": "x'; VACUUM INTO 'a'; --",
    "pragma": "x' UNION SELECT name FROM pragma_table_info('roll') --",
    "recursive": "x' UNION SELECT (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n LIMIT 9) SELECT max(i)"
                 " FROM n) --",
    "function": "x' UNION SELECT load_extension('a') --",
    "comment": "x' /* -- ",
    "places": "%1%2%3%L1",
    "blob": "x' UNION SELECT randomblob(9)||zeroblob(9) --",
    "json": "x' UNION SELECT value FROM json_each('[1,\"a\"]') --",
    "window": "x' UNION SELECT row_number() OVER () FROM roll --",
}

ODD_CATALOGUES = {
    "plain": "",
    "views": "ALTER TABLE color RENAME TO color_rows; CREATE VIEW color AS SELECT * FROM color_rows;",
    "triggers": "CREATE TRIGGER t AFTER INSERT ON roll BEGIN SELECT 1; END; CREATE INDEX i ON roll(itemNum);",
    "types": "UPDATE roll SET nUpCount='many', landscape=x'00', colorId=1.5; UPDATE ribbon SET width='inf', length='nan';",
    "without-rowid": "CREATE TABLE w (a PRIMARY KEY, b) WITHOUT ROWID; INSERT INTO w VALUES (1, 2);",
}


def catalogue(sql, encoding):
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "catalogue.sqlite"
        file = sqlite3.connect(path)
        rows = (HERE / "catalogue.sql").read_text(encoding="utf-8")
        file.executescript(f"PRAGMA page_size=512; PRAGMA encoding='{encoding}';" + rows + sql + "VACUUM;")
        file.close()
        return path.read_bytes()


def seeds():
    for name, text in TAGS.items():
        yield "tag", name, text.encode()
    yield "tag", "wide", b"\xff" + "\u0131\ud83c1F".encode("utf-16-le", "surrogatepass") * 4
    for place, (name, text) in enumerate(TEXTS.items()):
        yield "sku", name, bytes([place * 5 % 72]) + text.encode()
    yield "sku", "wide", b"\x06\xff" + "x' \ud800\0--".encode("utf-16-le", "surrogatepass")
    for name, sql in ODD_CATALOGUES.items():
        yield "catalogue", name, catalogue(sql, "UTF-8")
    yield "catalogue", "utf-16", catalogue("", "UTF-16be")
    yield "catalogue", "empty", b""
    yield "catalogue", "header", catalogue("", "UTF-8")[:100]
    yield "catalogue", "text", b"This is not a catalogue.\n"
    for number in range(6):
        choices = random.Random(number)
        yield "calls", f"random-{number}", bytes(choices.randrange(256) for _ in range(80 * (number + 1)))


def holds(content):
    """What a catalogue holds, as SQL; a header without SQLite's version, its last four bytes; other inputs as they are."""
    if not content.startswith(b"SQLite format 3\0"):
        return content
    if len(content) == 100:
        return content[:96]
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "catalogue.sqlite"
        path.write_bytes(content)
        file = sqlite3.connect(path)
        try:
            encoding = file.execute("PRAGMA encoding").fetchone()
            return encoding, list(file.iterdump())
        finally:
            file.close()


def main():
    check = sys.argv[1:] == ["--check"]
    if sys.argv[1:] and not check:
        sys.exit(__doc__)
    expected = set()
    wrong = []
    for target, name, content in seeds():
        path = HERE / "corpus" / target / f"seed-{name}"
        expected.add(path)
        if not check:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
        elif not path.exists() or holds(path.read_bytes()) != holds(content):
            wrong.append(path)
    for path in sorted(HERE.glob("corpus/*/seed-*")):
        if path not in expected:
            wrong.append(path)
    for path in wrong:
        print(f"{path.relative_to(ROOT)} is not what tests/trust/fuzz/make-seeds.py writes; run it", file=sys.stderr)
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: LGPL-2.1-or-later
"""The fenced blocks of all documents, and a folder in which their commands can be typed."""
import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


@dataclasses.dataclass
class Block:
    page: pathlib.Path
    line: int  # of its fence
    language: str
    text: str

    def place(self):
        return f"{self.page.relative_to(ROOT)}:{self.line}"

    def is_transcript(self):
        """Lines with "$ " are typed, the others are what is printed."""
        return not self.language and self.text.startswith("$ ")


def pages():
    """The README first; not what is built, nor what tools keep in folders of their own."""
    found = []
    for path in ROOT.rglob("*.md"):
        parts = path.relative_to(ROOT).parts
        if parts[0] != "build" and not any(part.startswith(".") for part in parts):
            found.append(path)
    return sorted(found, key=lambda path: (len(path.parts), path))


def blocks(page):
    fence = re.compile(r"^( *)(`{3,}|~{3,})(\S*)[^\n]*\n(.*?)^ *\2 *$", re.M | re.S)
    text = page.read_text(encoding="utf-8")
    return [Block(page, text[:match.start()].count("\n") + 1, match[3], match[4]) for match in fence.finditer(text)]


def make_tree(folder, build, whole=True):
    """`folder` as a clone in which the preset release was built: links to the sources and, as build/release, `build`."""
    folder = pathlib.Path(folder)
    if whole:
        for path in ROOT.iterdir():
            if path.name not in ("build", ".git"):
                (folder / path.name).symlink_to(path)
    (folder / "build").mkdir()
    (folder / "build/release").symlink_to(pathlib.Path(build).resolve())

# SPDX-License-Identifier: LGPL-2.1-or-later
"""The command table (table.json) in the words that the pages and completions are made of."""
import json

# What completes the value of an option or an argument, by the table's word for the value. Choices bring their own.
OFFERS = {"none": "flag", "text": "nothing", "integer": "nothing", "hex": "nothing", "file": "files",
          "folder": "folders", "rollSku": "rolls", "ribbonSku": "ribbons", "language": "languages", "verb": "verbs"}


def offer(row):
    """What is offered for a row's value: a word of OFFERS, or the list of its choices."""
    if row["value"] == "choice":
        return row["choices"]
    try:
        return OFFERS[row["value"]]
    except KeyError:
        raise SystemExit(f"make-pages.py: the command table has a value '{row['value']}' that OFFERS in "
                         "tools/zrsupply/pages/table.py does not name: add what completes it") from None


def spellings(option):
    """How an option is typed: "-o", "--output"."""
    return ([f"-{option['letter']}"] if option["letter"] else []) + [f"--{option['name']}"]


class Table:
    def __init__(self, path, version):
        with open(path, encoding="utf-8") as file:
            self.json = json.load(file)
        self.program = self.json["program"]
        self.version = version
        self.verbs = self.json["verbs"]
        self.globals = self.json["globalOptions"]
        self.groups = self.json["groups"]

    def options(self, verb):
        """The verb's own, then those of every verb."""
        return verb["options"] + self.globals

    def first_words(self):
        """Each first word of a verb with its explanation, in the table's order."""
        words = {}
        for verb in self.verbs:
            first = verb["path"].split()[0]
            words.setdefault(first, self.groups.get(first, verb["summary"]))
        return words

    def second_words(self, group):
        return {verb["path"].split()[1]: verb["summary"] for verb in self.verbs
                if verb["path"].startswith(group + " ")}

    def notes(self, kind, path):
        """The rows of "environment" or "files" that a verb's page shows: the common ones and its own."""
        return [note for note in self.json[kind] if note["verb"] in ("", path)]

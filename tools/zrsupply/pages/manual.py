# SPDX-License-Identifier: LGPL-2.1-or-later
"""Manual pages, in the macros of man(7)."""
import re
import textwrap

from table import offer, spellings

COLUMNS = 78
SECTION = "1"


def literal(text):
    """Text that is typed: hyphens and quotes as they are on the keyboard."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    for sign, name in (("'", "aq"), ("`", "ga"), ("^", "ha"), ("~", "ti"), ('"', "dq")):
        text = text.replace(sign, f"\\({name}")
    return text


def prose(text):
    """Paragraph lines: options in them as they are typed, no line that looks like a request."""
    text = text.replace("\\", "\\e").replace("~", "\\(ti").replace("^", "\\(ha")
    text = re.sub(r"(?<![\w-])--?(?=\w)[\w-]*", lambda match: match[0].replace("-", "\\-"), text)
    lines = textwrap.wrap(text, COLUMNS, break_long_words=False, break_on_hyphens=False)
    return "\n".join("\\&" + line if line[0] in ".'" else line for line in lines)


def paragraphs(text):
    return "\n.PP\n".join(prose(part) for part in text.split("\n\n") if part.strip())


def entry(label, text):
    return f".TP\n{label}\n{prose(text)}\n"


def bold(text):
    return f"\\fB{literal(text)}\\fR"


def italic(text):
    return f"\\fI{literal(text)}\\fR"


def sentence(text):
    return text if text.endswith((".", "!", "?")) else text + "."


def argument_text(argument):
    dots = "..." if argument["repeats"] else ""
    text = italic(argument["name"]) + dots
    return text if argument["required"] else f"[{text}]"


def value_help(row):
    choices = offer(row)
    named = row.get("valueName") == "|".join(row["choices"])
    says = row["help"]
    return sentence(f"{says}: {', '.join(choices)}" if isinstance(choices, list) and not named else says)


def option_label(option):
    label = ", ".join(bold(spelling) for spelling in spellings(option))
    return label if option["value"] == "none" else f"{label} {italic(option['valueName'])}"


def options_text(options):
    text = ""
    group = ""
    for option in options:
        if option["group"] != group:
            group = option["group"]
            text += f".SS {literal(group)}\n" if group else ""
        text += entry(option_label(option), value_help(option))
    return text


def header(name, table, date, summary):
    return (f'.\\" Made from the command table of {table.program}.\n'
            f'.TH {name.upper()} {SECTION} {date} "{table.program} {table.version}" "Media rolls and ribbons"\n'
            f".SH NAME\n{literal(name)} \\- {prose(summary[0].lower() + summary[1:])}\n")


def notes_text(heading, notes):
    return f".SH {heading}\n" + "".join(entry(bold(note["name"]), sentence(note["says"])) for note in notes)


def see_also(names):
    lines = [f".BR {literal(name)} ({SECTION})" for name in names]
    return ".SH SEE ALSO\n" + ",\n".join(lines) + "\n"


def page_name(table, path):
    return "-".join([table.program, *path.split()])


def related(table, verb):
    """The other verbs of its group, and those that its page names."""
    group = verb["path"].split()[0]
    says = " ".join([verb["description"], *(example["commandLine"] for example in verb["examples"])])
    return [page_name(table, other["path"]) for other in table.verbs if other is not verb and (
        other["path"].startswith(group + " ") or f"{table.program} {other['path']} " in says + " ")]


def verb_page(table, verb, date):
    name = page_name(table, verb["path"])
    words = " ".join([bold(f"{table.program} {verb['path']}"), *map(argument_text, verb["arguments"]),
                      f"[{italic('options')}]"])
    text = header(name, table, date, verb["summary"])
    text += f".SH SYNOPSIS\n{words}\n.SH DESCRIPTION\n{paragraphs(verb['description'])}\n"
    text += "".join(entry(italic(argument["name"]), value_help(argument)) for argument in verb["arguments"])
    text += ".SH OPTIONS\n" + options_text(verb["options"])
    text += (".SS Options of every verb\n" if verb["options"] else "") + options_text(table.globals)
    text += ".SH EXIT STATUS\n"
    text += "".join(entry(bold(str(use["status"])), sentence(use["when"][0].upper() + use["when"][1:]))
                    for use in verb["exitStatuses"])
    text += notes_text("ENVIRONMENT", table.notes("environment", verb["path"]))
    text += notes_text("FILES", table.notes("files", verb["path"]))
    if verb["examples"]:
        text += ".SH EXAMPLES\n"
        text += "".join(entry(bold(example["commandLine"]), example["says"]) for example in verb["examples"])
    return name, text + see_also([table.program, *related(table, verb)])


def overview_page(table, date):
    pages = {verb["path"]: page_name(table, verb["path"]) for verb in table.verbs}
    text = header(table.program, table, date, table.json["summary"])
    text += (f".SH SYNOPSIS\n{bold(table.program)} {italic('VERB')} [{italic('arguments')}] [{italic('options')}]\n"
             f".SH DESCRIPTION\n{prose(table.json['description'])}\n.SH VERBS\n")
    text += "".join(entry(bold(verb["path"]), sentence(verb["summary"])) for verb in table.verbs)
    text += ".SH OPTIONS\nEvery verb takes these.\n" + options_text(table.globals)
    text += ".SH EXIT STATUS\n"
    text += "".join(entry(bold(str(use["status"])), sentence(use["when"])) for use in table.json["exitStatuses"])
    text += notes_text("ENVIRONMENT", table.notes("environment", ""))
    text += notes_text("FILES", table.notes("files", ""))
    text += ".SH EXAMPLES\n" + "".join(
        entry(bold(example["commandLine"]), example["says"]) for example in table.verbs[0]["examples"])
    return table.program, text + see_also(pages.values())


def pages(table, date):
    """File name and text of each."""
    made = [overview_page(table, date), *(verb_page(table, verb, date) for verb in table.verbs)]
    return {f"man1/{name}.{SECTION}": text for name, text in made}

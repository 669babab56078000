# SPDX-License-Identifier: LGPL-2.1-or-later
"""Completion for fish: a line for each verb, option and argument, with its explanation."""
from table import offer

SCRIPT = r'''# Completion of @program@ for fish, made from its command table.

# Prints the verb on the line before the cursor, then the arguments behind it, a word a line.
function __@program@_words
    set -l takes_value @takes_value@
    set -l groups @groups@
    set -l verb
    set -l arguments
    set -l taking no
    set -l plain no
    for word in (commandline -opc)[2..-1]
        if test $taking = yes
            set taking no
        else if test $plain = no; and test "$word" = --
            set plain yes
        else if test $plain = no; and string match -qr -- '^-.' $word
            contains -- $word $takes_value; and set taking yes
        else if test -z "$verb"; or contains -- "$verb" $groups
            set verb (string join ' ' $verb $word)
        else
            set -a arguments $word
        end
    end
    printf '%s\n' "$verb" $arguments
end

# Whether the verb is $argv[1] and, where $argv[2] is given, argument number $argv[2] comes next; for "2+" also a later one.
function __@program@_at
    set -l words (__@program@_words)
    test "$words[1]" = "$argv[1]"; or return 1
    set -q argv[2]; or return 0
    set -l number (string replace + '' -- $argv[2])
    test (count $words) -eq $number; and return 0
    string match -q '*+' -- $argv[2]; and test (count $words) -gt $number
end

# Whether the words behind the verb $argv[1] are the remaining arguments.
function __@program@_behind
    set -l words (__@program@_words)
    test "$words" = "$argv"
end

# The rolls, ribbons or languages of the catalogue that the line names, else of the default one.
function __@program@_list
    set -l words (commandline -op)
    set -l program (string replace -r '^~/' "$HOME/" -- $words[1])
    set -l from
    for index in (seq 2 (count $words))
        set -l file
        if test "$words[$index]" = --catalogue; and set -q words[(math $index + 1)]
            set file $words[(math $index + 1)]
        else if string match -q -- '--catalogue=*' $words[$index]
            set file (string replace -- --catalogue= '' $words[$index])
        end
        test -n "$file"; and set from --catalogue (string replace -r '^~/' "$HOME/" -- $file)
    end
    $program list $argv[1] --plain $from 2>/dev/null
end

complete -c @program@ -f
@rows@
'''


def quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def offered(table, row):
    kind = offer(row)
    if isinstance(kind, list):
        return f"-x -a {quoted(' '.join(kind))}"
    return {"flag": "", "files": "-r -F", "nothing": "-x",
            "folders": "-x -a '(__fish_complete_directories (commandline -ct))'"}.get(
                kind, f"-x -a '(__{table.program}_list {kind})'")


def option_row(table, option, condition):
    letter = f" -s {option['letter']}" if option["letter"] else ""
    words = [f"complete -c {table.program}", condition, f"-l {option['name']}{letter}", offered(table, option),
             f"-d {quoted(option['help'])}"]
    return " ".join(filter(None, words))


def word_rows(table, behind, words):
    condition = quoted(f'__{table.program}_at "{behind}"')
    return [f"complete -c {table.program} -n {condition} -a {word} -d {quoted(says)}" for word, says in words.items()]


def argument_rows(table, verb):
    for number, argument in enumerate(verb["arguments"], 1):
        more = "+" if argument["repeats"] else ""
        condition = quoted(f'__{table.program}_at "{verb["path"]}" {number}{more}')
        kind = offer(argument)
        if kind == "verbs":
            places = {"": table.first_words(), **{group: table.second_words(group) for group in table.groups}}
            for behind, words in places.items():
                here = quoted(f"__{table.program}_behind {verb['path']} {behind}".rstrip())
                for word, says in words.items():
                    yield f"complete -c {table.program} -n {here} -a {word} -d {quoted(says)}"
        elif kind == "files":
            yield f"complete -c {table.program} -n {condition} -F"
        elif kind != "nothing":
            yield f"complete -c {table.program} -n {condition} {offered(table, argument).replace('-x ', '')}"


def taking_values(table):
    """The options that take a value. fish looks at a line without knowing its verb, so they must agree everywhere."""
    takes = {}
    for verb in table.verbs:
        for option in table.options(verb):
            for name in [f"--{option['name']}"] + ([f"-{option['letter']}"] if option["letter"] else []):
                if takes.setdefault(name, option["value"] != "none") != (option["value"] != "none"):
                    raise SystemExit(f"make-pages.py: {name} takes a value for some verbs and none for others; give "
                                     "one of them another name, completion and people tell them apart by it")
    return [name for name, with_value in takes.items() if with_value]


def script(table):
    rows = [option_row(table, option, "") for option in table.globals]
    rows += word_rows(table, "", table.first_words())
    for group in table.groups:
        rows += word_rows(table, group, table.second_words(group))
    for verb in table.verbs:
        condition = "-n " + quoted(f'__{table.program}_at "{verb["path"]}"')
        rows += [option_row(table, option, condition) for option in verb["options"]]
        rows += argument_rows(table, verb)
    parts = {"takes_value": " ".join(taking_values(table)), "groups": " ".join(table.groups), "rows": "\n".join(rows),
             "program": table.program}
    text = SCRIPT
    for name, part in parts.items():
        text = text.replace(f"@{name}@", part)
    return text

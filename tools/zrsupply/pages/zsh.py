# SPDX-License-Identifier: LGPL-2.1-or-later
"""Completion for zsh, with its own _arguments: every verb's options and arguments with their explanations."""
import re

from table import offer, spellings

SCRIPT = r'''#compdef @program@
# Completion of @program@ for zsh, made from its command table.

# The rolls, ribbons or languages ($1) of the catalogue that the line names, else of the default one.
_@program@_list()
{
    local -a from found
    local place=${_@program@_line[(I)--catalogue]} file
    (( place )) && file=${_@program@_line[place + 1]}
    place=${_@program@_line[(I)--catalogue=*]}
    (( place )) && file=${_@program@_line[place]#*=}
    # The word as it was typed, without its quotes; nothing in it is run.
    [[ -n $file ]] && from=(--catalogue ${(Q)file/#\~\//$HOME/})
    found=(${(f)"$(${(Q)_@program@_line[1]/#\~\//$HOME/} list $1 --plain $from 2>/dev/null)"})
    _wanted $1 expl $1 compadd -a found
}

# What may stand behind the words $1 of a verb.
_@program@_words()
{
    local -a found
    case $1 in
@word_rows@
    esac
    (( $#found )) && _describe -t verbs verb found
}

# The same for a verb that is an argument.
_@program@_verb()
{
    _@program@_words "${(j: :)${(@)words[2,CURRENT - 1]:#-*}}"
}

_@program@()
{
    local curcontext=$curcontext verb='' word taking='' ret=1
    local -a line every own
    local -A opt_args
    local -a _@program@_line=("${words[@]}") kept=("$words[1]")
    local -i index taken=0
    every=(
@globals@
    )

    # The verb is the first words that are no options; what is left is the verb's own.
    for (( index = 2; index <= $#words; ++index )); do
        word=$words[index]
        if [[ -n $taking ]]; then
            taking=''
        elif [[ $word == -?* ]]; then
            [[ -z $verb && " @global_values@ " == *" $word "* ]] && taking=yes
        elif (( index < CURRENT )) && [[ -z $verb || " @groups@ " == *" $verb "* ]]; then
            verb=${verb:+$verb }$word
            (( ++taken ))
            continue
        fi
        kept+=("$word")
    done
    words=("${kept[@]}")
    (( CURRENT -= taken ))

    case $verb in
@verb_rows@
    *) own=("*: : _@program@_words ${(qq)verb}") ;;
    esac
    _arguments -s -S $every $own && ret=0
    return ret
}

_@program@ "$@"
'''


def quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def message(text):
    return re.sub(r"([:\[\]\\])", r"\\\1", text)


def action(table, row):
    kind = offer(row)
    if isinstance(kind, list):
        return f"({' '.join(kind)})"
    return {"files": "_files", "folders": "_files -/", "nothing": " ",
            "verbs": f" _{table.program}_verb"}.get(kind, f" _{table.program}_list {kind}")


def option_lines(table, option):
    value = "" if option["value"] == "none" else f":{message(option['valueName'])}:{action(table, option)}"
    names = spellings(option)
    both = f"({' '.join(names)})" if len(names) > 1 else ""
    for name in names:
        sign = "" if not value else "=" if name.startswith("--") else "+"
        yield quoted(f"{both}{name}{sign}[{message(option['help'])}]{value}")


def verb_row(table, verb):
    rows = [row for option in verb["options"] for row in option_lines(table, option)]
    for number, argument in enumerate(verb["arguments"], 1):
        place = "*" if argument["repeats"] else str(number)
        sign = "" if argument["required"] or place == "*" else ":"
        rows.append(quoted(f"{place}{sign}:{message(argument['name'])}:{action(table, argument)}"))
    lines = "\n".join(f"            {row}" for row in rows)
    return f"    {quoted(verb['path'])})\n        own=(\n{lines}\n        )\n        ;;"


def word_row(behind, words):
    rows = "\n".join(f"            {quoted(message(word) + ':' + says)}" for word, says in words.items())
    return f"    {quoted(behind)})\n        found=(\n{rows}\n        )\n        ;;"


def script(table):
    words = {"": table.first_words(), **{group: table.second_words(group) for group in table.groups}}
    parts = {
        "word_rows": "\n".join(word_row(behind, found) for behind, found in words.items()),
        "globals": "\n".join(f"        {row}" for option in table.globals for row in option_lines(table, option)),
        "global_values": " ".join(f"--{option['name']}" for option in table.globals if option["value"] != "none"),
        "groups": " ".join(table.groups),
        "verb_rows": "\n".join(verb_row(table, verb) for verb in table.verbs),
        "program": table.program,
    }
    text = SCRIPT
    for name, part in parts.items():
        text = text.replace(f"@{name}@", part)
    return text

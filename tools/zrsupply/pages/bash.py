# SPDX-License-Identifier: LGPL-2.1-or-later
"""Completion for bash, without helpers of other packages."""
from table import offer, spellings

SCRIPT = r'''# Completion of @program@ for bash, made from its command table.

# Sets `offer` to what the value of option $2 of the verb $1 is; to "flag" where it has none.
_@program@_option()
{
    case "$1 $2" in
@option_rows@
    *) offer=flag ;;
    esac
}

# Sets `offer` to what argument number $2 of the verb $1 is.
_@program@_argument()
{
    local offers=
    case "$1" in
@argument_rows@
    esac
    local -a list=()
    IFS='|' read -r -a list <<<"$offers"
    local index=$(($2 - 1)) last=$((${#list[@]} - 1))
    ((index > last && last >= 0)) && [[ ${list[last]} == +* ]] && index=$last
    offer=${list[index]-nothing}
    offer=${offer#+}
}

# Sets `words` to what may stand behind the words $1.
_@program@_words()
{
    words=()
    case "$1" in
@word_rows@
    esac
}

# Sets `words` to the options of the verb $1.
_@program@_options()
{
    words=()
    case "$1" in
@options_rows@
    *) words=(@global_options@) ;;
    esac
}

# Adds those of the remaining arguments that begin with $1. Nothing in them is expanded, a catalogue may hold anything.
_@program@_add()
{
    local begin=$1 word
    shift
    for word; do
        [[ -n $word && $word == "$begin"* ]] && COMPREPLY+=("$(printf '%q' "$word")")
    done
}

# Sets `words` to the rolls, ribbons or languages ($1) of the catalogue that the line names, else of the default one.
_@program@_list()
{
    local -a from=()
    local program=${COMP_WORDS[0]/#\~\//$HOME/} index file
    for ((index = 1; index < ${#COMP_WORDS[@]} - 1; ++index)); do
        [[ ${COMP_WORDS[index]} == --catalogue ]] || continue
        file=${COMP_WORDS[index + 1]}
        [[ $file == = ]] && file=${COMP_WORDS[index + 2]-}
        file=${file/#\~\//$HOME/}
        file=${file//[\\\"\']/}
        from=(--catalogue "$file")
    done
    mapfile -t words < <("$program" list "$1" --plain "${from[@]}" 2>/dev/null)
}

# Offers what `offer` says for the word $1.
_@program@_offer()
{
    local -a words=()
    case $offer in
    files)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$1")
        ;;
    folders)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$1")
        ;;
    rolls | ribbons | languages)
        _@program@_list "$offer"
        _@program@_add "$1" "${words[@]}"
        ;;
    =*)
        read -r -a words <<<"${offer#=}"
        _@program@_add "$1" "${words[@]}"
        ;;
    esac
}

_@program@()
{
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local verb='' argument=1 takes='' plain='' offer index word
    local -a words=()
    COMPREPLY=()
    # --option=value comes as three words.
    [[ $current == = ]] && current=
    for ((index = 1; index < COMP_CWORD; ++index)); do
        word=${COMP_WORDS[index]}
        if [[ -n $takes ]]; then
            [[ $word == = ]] || takes=
        elif [[ -z $plain && $word == -- ]]; then
            plain=yes
        elif [[ -z $plain && $word == -?* ]]; then
            _@program@_option "$verb" "$word"
            [[ $offer == flag ]] || takes=$word
        else
            _@program@_words "$verb"
            if ((${#words[@]})); then verb=${verb:+$verb }$word; else ((++argument)); fi
        fi
    done

    _@program@_words "$verb"
    if [[ -n $takes ]]; then
        _@program@_option "$verb" "$takes"
    elif [[ -z $plain && $current == -* ]]; then
        _@program@_options "$verb"
        _@program@_add "$current" "${words[@]}"
        return
    elif ((${#words[@]})); then
        _@program@_add "$current" "${words[@]}"
        return
    else
        _@program@_argument "$verb" "$argument"
        if [[ $offer == verbs ]]; then
            # The verb so far stands behind the words of the one that asks.
            local so_far=${COMP_WORDS[*]:COMP_CWORD-argument+1:argument-1}
            _@program@_words "$so_far"
            _@program@_add "$current" "${words[@]}"
            return
        fi
    fi
    _@program@_offer "$current"
}

complete -F _@program@ @program@
'''


def said(row):
    kind = offer(row)
    return "=" + " ".join(kind) if isinstance(kind, list) else kind


def option_rows(table):
    def row(verb, option):
        patterns = " | ".join(f'"{verb} {name}"' if verb != "*" else f'*" {name}"' for name in spellings(option))
        return f"    {patterns}) offer='{said(option)}' ;;"

    rows = [(verb["path"], option) for verb in table.verbs for option in verb["options"]]
    rows += [("*", option) for option in table.globals]
    return "\n".join(row(verb, option) for verb, option in rows if option["value"] != "none")


def argument_rows(table):
    rows = []
    for verb in table.verbs:
        offers = "|".join(("+" if argument["repeats"] else "") + said(argument) for argument in verb["arguments"])
        if offers:
            rows.append(f"    '{verb['path']}') offers='{offers}' ;;")
    return "\n".join(rows)


def word_rows(table):
    rows = [f"    '') words=({' '.join(table.first_words())}) ;;"]
    rows += [f"    '{group}') words=({' '.join(table.second_words(group))}) ;;" for group in table.groups]
    return "\n".join(rows)


def options_rows(table):
    def row(verb):
        names = " ".join(name for option in table.options(verb) for name in spellings(option))
        return f"    '{verb['path']}') words=({names}) ;;"

    return "\n".join(map(row, table.verbs))


def script(table):
    parts = {"program": table.program, "option_rows": option_rows(table), "argument_rows": argument_rows(table),
             "word_rows": word_rows(table), "options_rows": options_rows(table),
             "global_options": " ".join(name for option in table.globals for name in spellings(option))}
    text = SCRIPT
    for name, part in parts.items():
        text = text.replace(f"@{name}@", part)
    return text

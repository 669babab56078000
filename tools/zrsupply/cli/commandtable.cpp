// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/command.h"

#include <QtCore/QHash>

#include <algorithm>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

// A new verb: a file verbs/<name>.cpp that defines its row, its declaration in command.h, and a line here.
constexpr Command (*rows[])() = {
    demoCommand,
    rollCommand,
    ribbonCommand,
    listCommand,
    tagDecodeCommand,
    tagEncodeCommand,
    explainCommand,
    statusCommand,
    sessionCommand,
    replayCommand,
    catalogueBuildCommand,
    catalogueCheckCommand,
    catalogueDiffCommand,
    catalogueDumpCommand,
    catalogueInfoCommand,
    catalogueGenerateCommand,
    catalogueReportCommand,
    helpCommand,
};

/// The first words that several verbs share.
const QHash<QString, QString> &groups()
{
    static const QHash<QString, QString> table = {
        {u"catalogue"_s, u"Build, check and understand catalogue files"_s},
        {u"tag"_s, u"Read and write the 96 bits of a media roll's tag"_s},
    };
    return table;
}

} // namespace

const QList<Command> &commandTable()
{
    static const QList<Command> table = [] {
        QList<Command> all;
        for (const auto row : rows)
            all.append(row());
        return all;
    }();
    return table;
}

const QList<Option> &globalOptions()
{
    static const QList<Option> options = {
        {u"catalogue"_s, u"Catalogue file; else the one that ZRSUPPLY_CATALOGUE names, else the sample catalogue"_s,
         Value::File, u"FILE"_s},
        {u"language"_s, u"Language of the names; 0, English, when not given"_s, Value::Language, u"N"_s},
        {u"printer"_s, u"Printer model that the type index is asked for"_s, Value::Text, u"NAME"_s},
        {u"json"_s, u"Answer, and report errors, as JSON"_s},
        {u"color"_s,
         u"Colours in the answer; auto: on a terminal, unless NO_COLOR is set"_s,
         Value::Choice,
         u"WHEN"_s,
         {u"auto"_s, u"always"_s, u"never"_s}},
        {u"no-guard"_s, u"Ask the bare library: take catalogues that the guard refuses, and lift its bounds"_s},
        {u"help"_s, u"Explain the verb and end"_s},
        {u"version"_s, u"Print the version and end"_s},
    };
    return options;
}

QString programSummary()
{
    return u"Answers questions about the media rolls and ribbons of a thermal-transfer label printer"_s;
}

QString programDescription()
{
    return u"Looks up rolls and ribbons in a catalogue, decodes and encodes the tags of rolls, tells whether a roll and"
           " its ribbons suit each other and why, plays the host of a printer, and builds and checks catalogues. The"
           " answer goes to standard output, an error with its remedy to standard error."_s;
}

const QList<StatusUse> &statusMeanings()
{
    static const QList<StatusUse> meanings = {
        {Status::Ok, u"Done"_s},
        {Status::Failed, u"It could not be done"_s},
        {Status::Usage, u"The command line is wrong"_s},
        {Status::NotFound, u"What was asked for is not in the catalogue"_s},
    };
    return meanings;
}

const QList<Note> &environmentNotes()
{
    static const QList<Note> notes = {
        {u"ZRSUPPLY_CATALOGUE"_s, u"The catalogue file where --catalogue does not name one"_s},
        {u"NO_COLOR"_s, u"Set to anything: no colours, unless --color says always"_s},
        {u"COLORTERM"_s, u"truecolor or 24bit: the terminal shows colours as patches"_s},
        {u"XDG_STATE_HOME"_s, u"The folder of the file of typed lines, else ~/.local/state"_s, u"session"_s},
    };
    return notes;
}

const QList<Note> &fileNotes()
{
    static const QList<Note> notes = {
        {u"../share/zrsupplydatabase/sample.sqlite"_s,
         u"The sample catalogue, sought from the folder that the command is in"_s},
        {u"~/.local/state/zrsupply/history"_s, u"The lines that were typed, for the next session on a terminal"_s,
         u"session"_s},
    };
    return notes;
}

QString groupSummary(const QString &group)
{
    return groups().value(group);
}

const Command *findCommand(const QString &path)
{
    const auto row = std::find_if(commandTable().begin(), commandTable().end(),
                                  [&path](const Command &command) { return command.path == path; });
    return row == commandTable().end() ? nullptr : &*row;
}

QList<const Command *> commandsInGroup(const QString &group)
{
    QList<const Command *> found;
    for (const Command &command : commandTable()) {
        if (command.path.startsWith(group + u' '))
            found.append(&command);
    }
    return found;
}

} // namespace zrsupply

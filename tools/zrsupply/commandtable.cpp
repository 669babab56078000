#include "command.h"

#include <QtCore/QHash>

#include <algorithm>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

// A new verb: a file verb_<name>.cpp that defines its row, the row's declaration in command.h, and a line here.
constexpr Command (*rows[])() = {
    demoCommand,
    rollCommand,
    ribbonCommand,
    listCommand,
    tagDecodeCommand,
    tagEncodeCommand,
    explainCommand,
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
        {u"help"_s, u"Explain the verb and end"_s},
        {u"version"_s, u"Print the version and end"_s},
    };
    return options;
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

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/help.h"

#include <QtCore/QCoreApplication>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype textColumns = 96;
constexpr qsizetype nameColumns = 26;

QString argumentText(const Argument &argument)
{
    switch (argument.need) {
    case Need::Required:
        return argument.name;
    case Need::Optional:
        return u'[' + argument.name + u']';
    case Need::Any:
        return u'[' + argument.name + u"...]"_s;
    case Need::Some:
        return argument.name + u"..."_s;
    }
    return {};
}

QString optionText(const Option &option)
{
    const QString letter = option.letter.isEmpty() ? QString() : u'-' + option.letter + u", "_s;
    const QString name = letter + u"--"_s + option.name;
    return option.value == Value::None ? name : name + u' ' + option.valueName;
}

QString statusText(Status status)
{
    return QString::number(int(status));
}

/// A name and its explanation side by side, the explanation broken into lines below each other.
QString entry(const QString &name, const QString &says)
{
    const QString text = wrapped(says, textColumns - nameColumns, nameColumns);
    const QString label = u"  "_s + name;
    if (displayWidth(label) + 1 >= nameColumns)
        return label + u'\n' + text + u'\n';
    return padded(label, nameColumns) + text.mid(nameColumns) + u'\n';
}

QString withChoices(const QString &help, const QStringList &choices)
{
    return choices.isEmpty() ? help : help + u": "_s + choices.join(", "_L1);
}

QString optionsText(const QList<Option> &options, const QString &heading, const Style &style)
{
    QString text;
    QString group = u"\n"_s; // no option has this one
    for (const Option &option : options) {
        if (option.group != group) {
            group = option.group;
            text += u'\n' + emphasised(group.isEmpty() ? heading : group, style) + u'\n';
        }
        const bool named = option.valueName == option.choices.join(u'|');
        text += entry(optionText(option), withChoices(option.help, named ? QStringList() : option.choices));
    }
    return text;
}

QString paragraphs(const QString &description)
{
    QString text;
    for (const QString &paragraph : description.split("\n\n"_L1, Qt::SkipEmptyParts))
        text += u'\n' + wrapped(paragraph, textColumns) + u'\n';
    return text;
}

QString verbLines(const QList<const Command *> &commands)
{
    QString text;
    for (const Command *command : commands)
        text += entry(command->path, command->summary);
    return text;
}

QString valueName(Value value)
{
    switch (value) {
    case Value::None:
        return u"none"_s;
    case Value::Text:
        return u"text"_s;
    case Value::Integer:
        return u"integer"_s;
    case Value::Choice:
        return u"choice"_s;
    case Value::Hex:
        return u"hex"_s;
    case Value::File:
        return u"file"_s;
    case Value::Folder:
        return u"folder"_s;
    case Value::RollSku:
        return u"rollSku"_s;
    case Value::RibbonSku:
        return u"ribbonSku"_s;
    case Value::Language:
        return u"language"_s;
    case Value::Verb:
        return u"verb"_s;
    }
    return {};
}

QJsonObject optionJson(const Option &option)
{
    return {{u"name"_s, option.name},
            {u"help"_s, option.help},
            {u"value"_s, valueName(option.value)},
            {u"valueName"_s, option.valueName},
            {u"choices"_s, QJsonArray::fromStringList(option.choices)},
            {u"group"_s, option.group},
            {u"letter"_s, option.letter}};
}

QString notesText(const QList<Note> &notes, const QString &heading, const QString &verb, const Style &style)
{
    QString text;
    for (const Note &note : notes) {
        if (note.verb == verb)
            text += entry(note.name, note.says);
    }
    return text.isEmpty() ? text : u'\n' + emphasised(heading, style) + u'\n' + text;
}

QJsonArray notesJson(const QList<Note> &notes)
{
    QJsonArray list;
    for (const Note &note : notes)
        list.append(QJsonObject{{u"name"_s, note.name}, {u"says"_s, note.says}, {u"verb"_s, note.verb}});
    return list;
}

QJsonArray statusesJson(const QList<StatusUse> &uses)
{
    QJsonArray list;
    for (const StatusUse &use : uses)
        list.append(QJsonObject{{u"status"_s, int(use.status)}, {u"when"_s, use.when}});
    return list;
}

QJsonArray optionsJson(const QList<Option> &options)
{
    QJsonArray list;
    for (const Option &option : options)
        list.append(optionJson(option));
    return list;
}

} // namespace

QString usageLine(const Command &command)
{
    QString line = u"zrsupply "_s + command.path;
    for (const Argument &argument : command.arguments)
        line += u' ' + argumentText(argument);
    return line + u" [options]"_s;
}

QString overviewText(const Style &style)
{
    QList<const Command *> all;
    for (const Command &command : commandTable())
        all.append(&command);

    QString text = u"zrsupply "_s + programSummary().at(0).toLower() + programSummary().mid(1) + u".\n"_s;
    text += u'\n' + emphasised(u"Usage"_s, style) + u"\n  zrsupply VERB [arguments] [options]\n"_s;
    text += u'\n' + emphasised(u"Verbs"_s, style) + u'\n' + verbLines(all);
    text += optionsText(globalOptions(), u"Options of every verb"_s, style);
    text += notesText(environmentNotes(), u"Environment"_s, {}, style);
    text += notesText(fileNotes(), u"Files"_s, {}, style);
    text += u"\nzrsupply VERB --help explains a verb.\n"_s;
    return text;
}

QString groupText(const QString &group, const Style &style)
{
    QString text = groupSummary(group) + u".\n"_s;
    text += u'\n' + emphasised(u"Verbs"_s, style) + u'\n' + verbLines(commandsInGroup(group));
    text += u"\nzrsupply %1 VERB --help explains a verb.\n"_s.arg(group);
    return text;
}

QString commandText(const Command &command, const Style &style)
{
    QString text = command.summary + u".\n"_s;
    text += u'\n' + emphasised(u"Usage"_s, style) + u"\n  "_s + usageLine(command) + u'\n';
    text += paragraphs(command.description);
    if (!command.arguments.isEmpty()) {
        text += u'\n' + emphasised(u"Arguments"_s, style) + u'\n';
        for (const Argument &argument : command.arguments)
            text += entry(argument.name, withChoices(argument.help, argument.choices));
    }
    text += optionsText(command.options, u"Options"_s, style);
    text += optionsText(globalOptions(), u"Options of every verb"_s, style);
    text += notesText(environmentNotes(), u"Environment"_s, command.path, style);
    text += notesText(fileNotes(), u"Files"_s, command.path, style);
    if (!command.examples.isEmpty()) {
        text += u'\n' + emphasised(u"Examples"_s, style) + u'\n';
        for (const Example &example : command.examples)
            text += u"  zrsupply "_s + example.commandLine + u"\n      "_s + example.says + u'\n';
    }
    if (!command.statuses.isEmpty()) {
        text += u'\n' + emphasised(u"Exit status"_s, style) + u'\n';
        for (const StatusUse &use : command.statuses)
            text += u"  "_s + statusText(use.status) + u"  "_s + use.when + u'\n';
    }
    return text;
}

QJsonObject commandJson(const Command &command)
{
    QJsonArray arguments;
    for (const Argument &argument : command.arguments) {
        const bool required = argument.need == Need::Required || argument.need == Need::Some;
        const bool repeats = argument.need == Need::Any || argument.need == Need::Some;
        arguments.append(QJsonObject{{u"name"_s, argument.name},
                                     {u"help"_s, argument.help},
                                     {u"value"_s, valueName(argument.value)},
                                     {u"required"_s, required},
                                     {u"repeats"_s, repeats},
                                     {u"choices"_s, QJsonArray::fromStringList(argument.choices)}});
    }
    QJsonArray examples;
    for (const Example &example : command.examples)
        examples.append(
            QJsonObject{{u"commandLine"_s, u"zrsupply "_s + example.commandLine}, {u"says"_s, example.says}});
    return {{u"path"_s, command.path},        {u"summary"_s, command.summary},
            {u"usage"_s, usageLine(command)}, {u"description"_s, command.description},
            {u"arguments"_s, arguments},      {u"options"_s, optionsJson(command.options)},
            {u"examples"_s, examples},        {u"exitStatuses"_s, statusesJson(command.statuses)}};
}

QJsonObject tableJson()
{
    QJsonArray verbs;
    QJsonObject groups;
    for (const Command &command : commandTable()) {
        verbs.append(commandJson(command));
        const QString group = command.path.section(u' ', 0, 0);
        if (group != command.path)
            groups.insert(group, groupSummary(group));
    }
    return {{u"program"_s, u"zrsupply"_s},
            {u"version"_s, QCoreApplication::applicationVersion()},
            {u"summary"_s, programSummary()},
            {u"description"_s, programDescription()},
            {u"exitStatuses"_s, statusesJson(statusMeanings())},
            {u"globalOptions"_s, optionsJson(globalOptions())},
            {u"groups"_s, groups},
            {u"environment"_s, notesJson(environmentNotes())},
            {u"files"_s, notesJson(fileNotes())},
            {u"verbs"_s, verbs}};
}

} // namespace zrsupply

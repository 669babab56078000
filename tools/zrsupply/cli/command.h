// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "text/failure.h"
#include "usekit.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// One row of the command table per verb. Parsing, --help, usage errors, `help --json`, man pages and completions all
/// read these rows, so a verb says everything about itself here and nowhere else.
namespace zrsupply {

class Invocation;
class Output;

/// What a word on the command line stands for: checked when parsing, offered by completions.
enum class Value { None, Text, Integer, Choice, Hex, File, Folder, RollSku, RibbonSku, Language, Verb };

enum class Need { Required, Optional, Any /* none or more */, Some /* one or more */ };

struct Argument
{
    QString name; ///< In capitals, as shown in the usage line.
    QString help;
    Value value = Value::Text;
    Need need = Need::Required;
    QStringList choices = {}; ///< Of `Value::Choice`.
};

struct Option
{
    QString name; ///< Without dashes.
    QString help;
    Value value = Value::None; ///< `None`: a flag.
    QString valueName = {};    ///< As shown in the usage line.
    QStringList choices = {};  ///< Of `Value::Choice`.
    QString group = {};        ///< Heading in --help, none for the verb's ordinary options.
    QString letter = {};       ///< Short form, "o" for -o; most options have none.
};

struct Example
{
    QString commandLine; ///< Without the leading `zrsupply`.
    QString says;
};

struct StatusUse
{
    Status status;
    QString when;
};

/// A variable of the environment or a file that the command knows.
struct Note
{
    QString name;
    QString says;
    QString verb = {}; ///< The verb that it is about; empty: all of them.
};

struct Command
{
    QString path; ///< The words of the verb: "roll", "tag decode".
    QString summary;
    QString description; ///< Paragraphs, separated by an empty line.
    QList<Argument> arguments;
    QList<Option> options; ///< Beside `globalOptions()`.
    QList<Example> examples;
    QList<StatusUse> statuses;
    Status (*run)(const Invocation &call, Output &out) = nullptr;
};

/// Every verb, in the order of --help.
const QList<Command> &commandTable();
/// What every verb takes beside its own options.
const QList<Option> &globalOptions();
/// What the command is for, in a sentence and at length, and what its exit statuses mean whatever the verb.
QString programSummary();
QString programDescription();
const QList<StatusUse> &statusMeanings();
/// What the environment decides, and the files that are read and written without being named.
const QList<Note> &environmentNotes();
const QList<Note> &fileNotes();
/// What the first words of several verbs have in common ("tag"), for --help.
QString groupSummary(const QString &group);

const Command *findCommand(const QString &path);
/// The verbs whose path begins with the word `group` and has more words; empty when there are none.
QList<const Command *> commandsInGroup(const QString &group);

// The rows, each in the file of its verb.
Command demoCommand();              // verbs/demo.cpp
Command explainCommand();           // verbs/explain.cpp
Command catalogueBuildCommand();    // verbs/catalogue_build.cpp
Command catalogueDumpCommand();     // verbs/catalogue_dump.cpp
Command catalogueGenerateCommand(); // verbs/catalogue_generate.cpp
Command catalogueInfoCommand();     // verbs/catalogue_info.cpp
Command catalogueCheckCommand();    // verbs/catalogue_check.cpp
Command catalogueDiffCommand();     // verbs/catalogue_diff.cpp
Command catalogueReportCommand();   // verbs/catalogue_report.cpp
Command helpCommand();              // verbs/help.cpp
Command listCommand();              // verbs/list.cpp
Command replayCommand();            // verbs/replay.cpp
Command ribbonCommand();            // verbs/ribbon.cpp
Command rollCommand();              // verbs/roll.cpp
Command sessionCommand();           // verbs/session.cpp
Command statusCommand();            // verbs/status.cpp
Command tagDecodeCommand();         // verbs/tag_decode.cpp
Command tagEncodeCommand();         // verbs/tag_encode.cpp

} // namespace zrsupply

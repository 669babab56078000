// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/commandline.h"

#include "cli/help.h"
#include "cli/output.h"
#include "text/nearest.h"
#include "usekit.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <algorithm>
#include <unistd.h>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

QString Invocation::value(const QString &option, const QString &otherwise) const
{
    const QStringList given = m_options.value(option);
    return given.isEmpty() ? otherwise : given.last();
}

bool Invocation::json() const
{
    return has(u"json"_s);
}

int Invocation::language() const
{
    return value(u"language"_s, u"0"_s).toInt();
}

QString Invocation::printer() const
{
    return value(u"printer"_s);
}

Failure usageFailure(const Command &command, const QString &message)
{
    return {Status::Usage,
            message,
            u"usage: %1; zrsupply %2 --help explains it"_s.arg(usageLine(command), command.path),
            {{u"usage"_s, usageLine(command)}}};
}

/// A command line on its way from words to an invocation.
class CommandLine
{
public:
    explicit CommandLine(const QStringList &words)
        : m_words(words)
    {
        const qsizetype end = m_words.indexOf("--"_L1);
        m_optionWords = m_words.mid(0, end);
        m_json = m_optionWords.contains("--json"_L1);
    }

    /// Known before anything else is: an error in the command line is reported as JSON too.
    bool json() const { return m_json; }
    ColorMode colorMode() const;

    int run();

private:
    bool has(QLatin1StringView option) const { return m_optionWords.contains(option); }
    void findVerb();
    void printHelp(Output &out) const;
    void printVersion(Output &out) const;
    Failure noSuchVerb(const QStringList &verb) const;
    Invocation parse() const;
    void checkOptions(const QCommandLineParser &parser, const QList<Option> &options) const;
    void checkArguments(const QStringList &given) const;
    void checkValue(const QString &what, const QString &text, Value value, const QStringList &choices) const;

    QStringList m_words;
    QStringList m_optionWords; // up to "--"
    bool m_json = false;
    const Command *m_command = nullptr;
    QString m_group;         // its verb was not given
    QStringList m_remaining; // the words without those of the verb
};

ColorMode CommandLine::colorMode() const
{
    QString mode = u"auto"_s;
    for (qsizetype i = 0; i < m_optionWords.size(); ++i) {
        if (m_optionWords[i] == "--color"_L1)
            mode = m_optionWords.value(i + 1);
        else if (m_optionWords[i].startsWith("--color="_L1))
            mode = m_optionWords[i].section(u'=', 1);
    }
    return mode == "always"_L1 ? ColorMode::Always : mode == "never"_L1 ? ColorMode::Never : ColorMode::Auto;
}

Failure CommandLine::noSuchVerb(const QStringList &verb) const
{
    QStringList candidates;
    for (const Command &command : commandTable()) {
        candidates.append(command.path);
        const QString group = command.path.section(u' ', 0, 0);
        if (!candidates.contains(group))
            candidates.append(group);
    }
    const QString whole = verb.mid(0, 2).join(u' ');
    QStringList near = nearest(whole, candidates);
    if (near.isEmpty())
        near = nearest(verb.first(), candidates);
    return {Status::Usage,
            u"there is no verb \"%1\""_s.arg(near.isEmpty() ? verb.first() : whole),
            near.isEmpty() ? u"zrsupply --help lists the verbs"_s
                           : u"did you mean zrsupply %1? zrsupply --help lists the verbs"_s.arg(orList(near)),
            {{u"nearest"_s, QJsonArray::fromStringList(near)}}};
}

void CommandLine::findVerb()
{
    // The verb is the first words that are neither an option nor the value of an option of every verb.
    QList<qsizetype> places;
    QStringList plain;
    for (qsizetype i = 0; i < m_words.size() && m_words[i] != "--"_L1; ++i) {
        if (!m_words[i].startsWith(u'-') || m_words[i] == "-"_L1) {
            places.append(i);
            plain.append(m_words[i]);
            continue;
        }
        const QString &word = m_words[i];
        const bool takesValue =
            std::any_of(globalOptions().begin(), globalOptions().end(), [&word](const Option &option) {
                return option.value != Value::None && word == "--"_L1 + option.name;
            });
        if (takesValue)
            ++i;
    }
    if (plain.isEmpty())
        return;

    for (qsizetype length = qMin<qsizetype>(plain.size(), 2); length > 0; --length) {
        m_command = findCommand(plain.mid(0, length).join(u' '));
        if (m_command == nullptr)
            continue;
        m_remaining = m_words;
        for (qsizetype word = length; word-- > 0;)
            m_remaining.removeAt(places[word]);
        return;
    }
    const bool groupAlone = plain.size() == 1 || has("--help"_L1);
    if (groupAlone && !commandsInGroup(plain.first()).isEmpty()) {
        m_group = plain.first();
        return;
    }
    throw noSuchVerb(plain);
}

void CommandLine::printHelp(Output &out) const
{
    if (out.json())
        out.write(m_command != nullptr ? commandJson(*m_command) : tableJson());
    else if (m_command != nullptr)
        out.write(commandText(*m_command, out.style()));
    else
        out.write(m_group.isEmpty() ? overviewText(out.style()) : groupText(m_group, out.style()));
}

void CommandLine::printVersion(Output &out) const
{
    const QString version = QCoreApplication::applicationVersion();
    if (out.json())
        out.write(QJsonObject{
            {u"program"_s, u"zrsupply"_s}, {u"version"_s, version}, {u"qt"_s, QString::fromLatin1(qVersion())}});
    else
        out.write(u"zrsupply %1\n"_s.arg(version));
}

void CommandLine::checkValue(const QString &what, const QString &text, Value value, const QStringList &choices) const
{
    if (value == Value::Integer || value == Value::Language) {
        bool isNumber = false;
        static_cast<void>(text.toInt(&isNumber));
        if (!isNumber)
            throw usageFailure(*m_command, u"%1 is a whole number, not \"%2\""_s.arg(what, text));
    }
    if (value == Value::Choice && !choices.contains(text)) {
        Failure failure = usageFailure(*m_command, u"%1 is %2, not \"%3\""_s.arg(what, orList(choices), text));
        const QStringList near = nearest(text, choices, 1);
        if (!near.isEmpty())
            failure.remedy = u"did you mean %1? "_s.arg(near.first()) + failure.remedy;
        throw failure;
    }
}

void CommandLine::checkOptions(const QCommandLineParser &parser, const QList<Option> &options) const
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) {
        QStringList names;
        for (const Option &option : options)
            names.append(u"--"_s + option.name);
        const QStringList near = nearest(u"--"_s + unknown.first(), names);
        Failure failure = usageFailure(*m_command, u"%1 has no option --%2"_s.arg(m_command->path, unknown.first()));
        if (!near.isEmpty())
            failure.remedy = u"did you mean %1? "_s.arg(orList(near)) + failure.remedy;
        failure.details.insert(u"nearest"_s, QJsonArray::fromStringList(near));
        throw failure;
    }
    for (const Option &option : options) {
        if (option.value == Value::None || !parser.isSet(option.name))
            continue;
        for (const QString &text : parser.values(option.name))
            checkValue(u"--"_s + option.name, text, option.value, option.choices);
    }
}

void CommandLine::checkArguments(const QStringList &given) const
{
    qsizetype next = 0;
    for (const Argument &argument : m_command->arguments) {
        const bool required = argument.need == Need::Required || argument.need == Need::Some;
        if (required && next == given.size())
            throw usageFailure(*m_command, u"%1 is missing: %2"_s.arg(argument.name, argument.help));
        const bool repeats = argument.need == Need::Any || argument.need == Need::Some;
        const qsizetype end = repeats ? given.size() : qMin(next + 1, given.size());
        for (; next < end; ++next)
            checkValue(argument.name, given[next], argument.value, argument.choices);
    }
    if (next < given.size())
        throw usageFailure(*m_command, u"\"%1\" is one word too many"_s.arg(given[next]));
}

Invocation CommandLine::parse() const
{
    const QList<Option> options = m_command->options + globalOptions();
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const Option &option : options) {
        const QStringList names =
            option.letter.isEmpty() ? QStringList{option.name} : QStringList{option.name, option.letter};
        parser.addOption(QCommandLineOption(names, option.help, option.valueName));
    }

    const QStringList program = {u"zrsupply"_s};
    const bool parsed = parser.parse(program + m_remaining);
    checkOptions(parser, options);
    if (!parsed) {
        QString message = parser.errorText();
        message = message.left(1).toLower() + message.mid(1);
        while (message.endsWith(u'.'))
            message.chop(1);
        throw usageFailure(*m_command, message);
    }
    checkArguments(parser.positionalArguments());

    Invocation call;
    call.m_command = m_command;
    call.m_arguments = parser.positionalArguments();
    for (const Option &option : options) {
        if (parser.isSet(option.name))
            call.m_options.insert(option.name, parser.values(option.name));
    }
    return call;
}

int CommandLine::run()
{
    Output out(m_json, colorMode());
    findVerb();
    if (has("--help"_L1) || has("-h"_L1)) {
        printHelp(out);
    } else if (has("--version"_L1)) {
        printVersion(out);
    } else if (m_command != nullptr) {
        const Invocation call = parse();
        const Status status = m_command->run(call, out);
        out.flush();
        return int(status);
    } else if (!m_group.isEmpty()) {
        QStringList verbs;
        for (const Command *command : commandsInGroup(m_group))
            verbs.append(command->path);
        throw Failure{Status::Usage,
                      u"\"%1\" alone is not a verb"_s.arg(m_group),
                      u"say zrsupply %1; zrsupply %2 --help explains them"_s.arg(orList(verbs), m_group),
                      {}};
    } else if (m_words.isEmpty()) {
        throw Failure{Status::Usage, u"no verb is given"_s, u"zrsupply --help lists the verbs"_s, {}};
    } else {
        QStringList names;
        for (const Option &option : globalOptions())
            names.append(u"--"_s + option.name);
        QStringList near;
        for (const QString &word : m_words) {
            if (near.isEmpty() && word.startsWith(u'-') && !names.contains(word))
                near = nearest(word, names);
        }
        throw Failure{Status::Usage,
                      u"no verb is given"_s,
                      near.isEmpty() ? u"zrsupply --help lists the verbs"_s
                                     : u"did you mean %1? zrsupply --help lists the verbs"_s.arg(orList(near)),
                      {}};
    }
    out.flush();
    return int(Status::Ok);
}

int runCommandLine(const QStringList &words)
{
    CommandLine line(words);
    try {
        return line.run();
    } catch (const Failure &failure) {
        return report(failure, line.json(), terminalStyle(line.colorMode(), ::isatty(STDERR_FILENO) != 0));
    }
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "check/rules.h"

#include "check/coderules.h"
#include "text/failure.h"
#include "usekit.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <algorithm>

/// Outside any namespace: the macro declares a global function. Resources of a static library are linked in only when
/// something names them.
static void initResource()
{
    Q_INIT_RESOURCE(checks);
}

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr Severity severities[] = {Severity::Hint, Severity::Warning, Severity::Error};

/// Goes through a rule file line by line.
class RuleParser
{
public:
    RuleParser(const QString &text, const QString &fileName)
        : m_lines(text.split(u'\n'))
        , m_fileName(fileName)
    {
    }

    bool next(CheckRule &rule, QString &statement);

private:
    [[noreturn]] void fail(const QString &message, const QString &remedy) const;
    void readHeading(CheckRule &rule);
    void setField(CheckRule &rule, const QString &field, const QString &value);
    QString readStatement();
    void requireFields(const CheckRule &rule) const;

    QStringList m_lines;
    QString m_fileName;
    qsizetype m_next = 0;
};

void RuleParser::fail(const QString &message, const QString &remedy) const
{
    throw Failure{Status::Failed, u"%1, line %2: %3"_s.arg(m_fileName, QString::number(m_next), message), remedy, {}};
}

/// The next rule, or a statement of the preparation, for which the rule's id stays empty. False at the end.
bool RuleParser::next(CheckRule &rule, QString &statement)
{
    rule = {};
    for (; m_next < m_lines.size(); ++m_next) {
        const QString &line = m_lines[m_next];
        if (line.startsWith("-- rule:"_L1)) {
            readHeading(rule);
            if (rule.code.isEmpty())
                rule.select = readStatement();
            requireFields(rule);
            return true;
        }
        if (!line.trimmed().isEmpty() && !line.startsWith("--"_L1)) {
            statement = readStatement();
            return true;
        }
    }
    return false;
}

void RuleParser::readHeading(CheckRule &rule)
{
    static const QRegularExpression fieldLine(u"^-- ([a-z]+): *(.*)$"_s);
    QString field;
    QString value;
    for (; m_next < m_lines.size() && m_lines[m_next].startsWith("--"_L1); ++m_next) {
        const QString &line = m_lines[m_next];
        if (line.startsWith("--   "_L1)) {
            value += u' ' + line.mid(2).trimmed();
            continue;
        }
        const QRegularExpressionMatch match = fieldLine.match(line);
        if (!match.hasMatch()) {
            ++m_next; // counted from 1
            fail(
                u"a heading holds a line that is no field"_s,
                u"write -- field: value, or begin the line with -- and three blanks to go on with the field above"_s);
        }
        if (!field.isEmpty())
            setField(rule, field, value);
        field = match.captured(1);
        value = match.captured(2);
    }
    setField(rule, field, value);
}

void RuleParser::setField(CheckRule &rule, const QString &field, const QString &value)
{
    const std::pair<QLatin1StringView, QString *> texts[] = {{"title"_L1, &rule.title},
                                                             {"message"_L1, &rule.message},
                                                             {"because"_L1, &rule.because},
                                                             {"remedy"_L1, &rule.remedy}};
    for (const auto &[name, text] : texts) {
        if (field == name) {
            *text = value;
            return;
        }
    }
    static const QRegularExpression idForm(u"^[a-z0-9]+(-[a-z0-9]+)*$"_s);
    if (field == "rule"_L1) {
        if (!idForm.match(value).hasMatch())
            fail(u"\"%1\" is no rule id"_s.arg(value), u"write small letters and digits, words joined by dashes"_s);
        rule.id = value;
    } else if (field == "severity"_L1) {
        const auto severity = std::find_if(std::begin(severities), std::end(severities),
                                           [&value](Severity known) { return severityName(known) == value; });
        if (severity == std::end(severities))
            fail(u"\"%1\" is no severity"_s.arg(value), u"write error, warning or hint"_s);
        rule.severity = *severity;
    } else if (field == "code"_L1) {
        if (codeRule(value) == nullptr)
            fail(u"there is no function \"%1\""_s.arg(value), u"write the rule as a SELECT"_s);
        rule.code = value;
    } else {
        fail(u"there is no field \"%1\""_s.arg(field),
             u"the fields are rule, severity, title, message, because and remedy"_s);
    }
}

QString RuleParser::readStatement()
{
    QStringList lines;
    for (; m_next < m_lines.size(); ++m_next) {
        lines.append(m_lines[m_next]);
        const QString line = m_lines[m_next].trimmed();
        if (!line.startsWith("--"_L1) && line.endsWith(u';')) {
            ++m_next;
            return lines.join(u'\n');
        }
    }
    fail(u"the last statement has no end"_s, u"end it with a semicolon at the end of a line"_s);
}

void RuleParser::requireFields(const CheckRule &rule) const
{
    for (const QString &field : {rule.title, rule.message, rule.because, rule.remedy}) {
        if (field.isEmpty())
            fail(u"the heading of rule %1 is not complete"_s.arg(rule.id),
                 u"give it the fields severity, title, message, because and remedy"_s);
    }
}

} // namespace

QString severityName(Severity severity)
{
    switch (severity) {
    case Severity::Hint:
        return u"hint"_s;
    case Severity::Warning:
        return u"warning"_s;
    case Severity::Error:
        return u"error"_s;
    }
    return {};
}

CheckRules CheckRules::standard()
{
    initResource();
    QFile file(u":/schema/checks.sql"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("checks.sql is not part of this program");
    return parse(QString::fromUtf8(file.readAll()), u"checks.sql"_s);
}

CheckRules CheckRules::parse(const QString &text, const QString &fileName)
{
    CheckRules parsed;
    RuleParser parser(text, fileName);
    CheckRule rule;
    QString statement;
    while (parser.next(rule, statement)) {
        if (rule.id.isEmpty()) {
            parsed.m_preparation.append(statement);
            continue;
        }
        if (parsed.find(rule.id) != nullptr) {
            throw Failure{Status::Failed,
                          u"%1: there are two rules %2"_s.arg(fileName, rule.id),
                          u"give one of them another id"_s,
                          {}};
        }
        parsed.m_rules.append(rule);
    }
    return parsed;
}

void CheckRules::add(const CheckRules &others)
{
    m_preparation += others.m_preparation;
    for (const CheckRule &rule : others.m_rules) {
        const auto same =
            std::find_if(m_rules.begin(), m_rules.end(), [&rule](const CheckRule &own) { return own.id == rule.id; });
        if (same != m_rules.end())
            *same = rule;
        else
            m_rules.append(rule);
    }
}

QStringList CheckRules::ids() const
{
    QStringList all;
    for (const CheckRule &rule : m_rules)
        all.append(rule.id);
    return all;
}

const CheckRule *CheckRules::find(const QString &id) const
{
    const auto found =
        std::find_if(m_rules.begin(), m_rules.end(), [&id](const CheckRule &rule) { return rule.id == id; });
    return found == m_rules.end() ? nullptr : &*found;
}

} // namespace zrsupply

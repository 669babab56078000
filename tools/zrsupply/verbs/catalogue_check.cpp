// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/interrupt.h"
#include "check/checker.h"
#include "check/sources.h"
#include "cli/catalogue.h"
#include "cli/output.h"
#include "text/nearest.h"
#include "usekit.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int shownFindings = 20;
constexpr qsizetype textColumns = 100;

QString counted(qsizetype count, const QString &what)
{
    return u"%1 %2%3"_s.arg(QLocale::c().toString(count), what, count == 1 ? QString() : u"s"_s);
}

const CheckRule &requireRule(const CheckRules &rules, const QString &id)
{
    const CheckRule *const rule = rules.find(id);
    if (rule != nullptr)
        return *rule;
    const QStringList near = nearest(id, rules.ids());
    throw Failure{Status::Usage,
                  u"there is no rule \"%1\""_s.arg(id),
                  (near.isEmpty() ? QString() : u"did you mean %1? "_s.arg(orList(near))) +
                      u"zrsupply catalogue check --list shows the rules"_s,
                  {{u"nearest"_s, QJsonArray::fromStringList(near)}}};
}

CheckRules rulesOf(const Invocation &call)
{
    CheckRules rules = CheckRules::standard();
    for (const QString &path : call.values(u"rules"_s)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            throw Failure{Status::Failed,
                          u"%1 cannot be read: %2"_s.arg(path, file.errorString()),
                          u"name a file of rules in the form of checks.sql"_s,
                          {}};
        }
        rules.add(CheckRules::parse(QString::fromUtf8(file.readAll()), path));
    }
    return rules;
}

QStringList idsOf(const Invocation &call, const CheckRules &rules)
{
    if (!call.has(u"only"_s))
        return rules.ids();
    QStringList ids;
    for (const QString &joined : call.values(u"only"_s)) {
        for (const QString &id : joined.split(u',', Qt::SkipEmptyParts))
            ids.append(requireRule(rules, id.trimmed()).id);
    }
    return ids;
}

QJsonObject ruleJson(const CheckRule &rule)
{
    return {{u"id"_s, rule.id},
            {u"severity"_s, severityName(rule.severity)},
            {u"title"_s, rule.title},
            {u"because"_s, rule.because},
            {u"remedy"_s, rule.remedy}};
}

void explain(const CheckRule &rule, Output &out)
{
    Answer answer(u"%1: %2"_s.arg(rule.id, rule.title));
    answer.add(u"id"_s, {}, {rule.id, {}});
    answer.add(u"title"_s, {}, {rule.title, {}});
    answer.add(u"severity"_s, u"Severity"_s, {severityName(rule.severity), severityName(rule.severity)});
    answer.add(u"because"_s, u"Why"_s, {rule.because, rule.because});
    answer.add(u"remedy"_s, u"Remedy"_s, {rule.remedy, rule.remedy});
    if (rule.code.isEmpty())
        answer.addJson(u"select"_s, rule.select);
    if (out.json())
        out.write(answer);
    else
        out.write(answer.toText(out.style()) +
                  (rule.code.isEmpty() ? u'\n' + rule.select + u'\n' : u"\nThe rule is not SQL.\n"_s));
}

void list(const CheckRules &rules, Output &out)
{
    Table table({{u"id"_s, u"Rule"_s}, {u"severity"_s, u"Severity"_s}, {u"title"_s, u"Finds"_s}});
    for (const CheckRule &rule : rules.rules()) {
        const QString severity = severityName(rule.severity);
        table.addRow({{rule.id, rule.id}, {severity, severity}, {rule.title, rule.title}});
    }
    Answer answer;
    answer.addTable({}, u"rules"_s, table);
    out.write(answer);
}

/// What a check found, as a person and as a program reads it.
class CheckReport
{
public:
    CheckReport(const Invocation &call, const QString &path, const QString &sources, QList<RuleResult> results,
                QStringList unusedIgnores)
        : m_path(path)
        , m_sources(sources)
        , m_results(std::move(results))
        , m_unusedIgnores(std::move(unusedIgnores))
        , m_isStrict(call.has(u"strict"_s))
        , m_showsHints(m_isStrict || call.has(u"only"_s))
        , m_limit(call.value(u"limit"_s, QString::number(call.json() ? 0 : shownFindings)).toInt())
    {
        for (const RuleResult &result : m_results) {
            m_counts[size_t(result.rule.severity)] += result.findings.size();
            m_ignored += result.ignored;
            m_notAsked += result.error.isEmpty() ? 0 : 1;
        }
    }

    bool isClean() const
    {
        return count(Severity::Error) == 0 && count(Severity::Warning) == 0 && m_notAsked == 0 &&
               (!m_isStrict || count(Severity::Hint) == 0);
    }
    QJsonObject toJson() const;
    QString toText(const Style &style) const;

private:
    qsizetype count(Severity severity) const { return m_counts[size_t(severity)]; }
    qsizetype shown(const RuleResult &result) const
    {
        return m_limit > 0 ? qMin<qsizetype>(m_limit, result.findings.size()) : result.findings.size();
    }
    QString place(const CheckFinding &finding) const;
    QString resultText(const RuleResult &result, const Style &style) const;
    QString summary() const;

    QString m_path;
    QString m_sources;
    QList<RuleResult> m_results;
    QStringList m_unusedIgnores;
    bool m_isStrict;
    bool m_showsHints;
    int m_limit;
    std::array<qsizetype, 3> m_counts = {};
    qsizetype m_ignored = 0;
    qsizetype m_notAsked = 0;
};

/// "sources/roll.csv:12: " for a row of sources, "roll 00143465: " for one of a file.
QString CheckReport::place(const CheckFinding &finding) const
{
    QString place = (finding.table + u' ' + finding.key).trimmed();
    if (!finding.file.isEmpty()) {
        place = QDir::cleanPath(QDir(m_sources).filePath(finding.file));
        if (finding.line > 0)
            place += u":%1"_s.arg(finding.line);
        if (finding.column > 0)
            place += u":%1"_s.arg(finding.column);
        if (!finding.key.isEmpty())
            place += u": "_s + finding.key;
    }
    return place == "sqlite_schema"_L1 || finding.table == "sqlite_schema"_L1 ? QString() : place + u": "_s;
}

QString CheckReport::resultText(const RuleResult &result, const Style &style) const
{
    const CheckRule &rule = result.rule;
    const QString heading = u"%1  %2: %3"_s.arg(severityName(rule.severity), rule.id, rule.title);
    if (rule.severity == Severity::Hint && !m_showsHints)
        return heading + u" (%1)\n"_s.arg(result.findings.size());
    QString text = emphasised(heading, style) + u'\n';
    for (qsizetype i = 0; i < shown(result); ++i)
        text += u"  "_s + place(result.findings[i]) + result.message(result.findings[i]) + u'\n';
    if (shown(result) < result.findings.size())
        text += u"  and %1 more; --limit 0 shows all\n"_s.arg(
            QLocale::c().toString(result.findings.size() - shown(result)));
    text += wrapped(u"Why: "_s + rule.because, textColumns, 4) + u'\n';
    return text + wrapped(u"Remedy: "_s + rule.remedy, textColumns, 4) + u'\n';
}

QString CheckReport::summary() const
{
    QString text = u"%1: %2, %3, %4"_s.arg(m_path, counted(count(Severity::Error), u"error"_s),
                                           counted(count(Severity::Warning), u"warning"_s),
                                           counted(count(Severity::Hint), u"hint"_s));
    if (m_ignored > 0)
        text += u", %1 ignored"_s.arg(m_ignored);
    if (m_notAsked > 0)
        text += u", %1 not asked"_s.arg(counted(m_notAsked, u"rule"_s));
    return text + (isClean() ? u": clean\n"_s : u": not clean\n"_s);
}

QString CheckReport::toText(const Style &style) const
{
    QString text;
    QStringList notAsked;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Hint}) {
        for (const RuleResult &result : m_results) {
            if (result.rule.severity != severity)
                continue;
            if (!result.error.isEmpty())
                notAsked.append(u"%1 (%2)"_s.arg(result.rule.id, result.error));
            if (!result.findings.isEmpty())
                text += resultText(result, style) + (severity == Severity::Hint && !m_showsHints ? u""_s : u"\n"_s);
        }
    }
    if (count(Severity::Hint) > 0 && !m_showsHints)
        text += u"  --strict shows the hints\n\n"_s;
    if (!notAsked.isEmpty())
        text += wrapped(u"Not asked: "_s + notAsked.join(", "_L1), textColumns) + u"\n\n"_s;
    for (const QString &line : m_unusedIgnores)
        text += wrapped(u"Note: nothing to ignore for "_s + line, textColumns) + u'\n';
    return text + summary();
}

QJsonObject CheckReport::toJson() const
{
    QJsonArray rules;
    QJsonArray notAsked;
    for (const RuleResult &result : m_results) {
        if (!result.error.isEmpty())
            notAsked.append(QJsonObject{{u"id"_s, result.rule.id}, {u"error"_s, result.error}});
        if (result.findings.isEmpty())
            continue;
        QJsonArray findings;
        for (qsizetype i = 0; i < shown(result); ++i) {
            const CheckFinding &finding = result.findings[i];
            QJsonObject object{{u"table"_s, finding.table},
                               {u"key"_s, finding.key},
                               {u"message"_s, result.message(finding)},
                               {u"values"_s, finding.values}};
            if (!finding.file.isEmpty())
                object.insert(u"file"_s, QDir::cleanPath(QDir(m_sources).filePath(finding.file)));
            if (finding.line > 0)
                object.insert(u"line"_s, finding.line);
            if (finding.column > 0)
                object.insert(u"column"_s, finding.column);
            findings.append(object);
        }
        QJsonObject rule = ruleJson(result.rule);
        rule.insert(u"count"_s, result.findings.size());
        rule.insert(u"findings"_s, findings);
        rules.append(rule);
    }
    return {{u"catalogue"_s, m_path},
            {u"clean"_s, isClean()},
            {u"errors"_s, count(Severity::Error)},
            {u"warnings"_s, count(Severity::Warning)},
            {u"hints"_s, count(Severity::Hint)},
            {u"ignored"_s, m_ignored},
            {u"unusedIgnores"_s, QJsonArray::fromStringList(m_unusedIgnores)},
            {u"notAsked"_s, notAsked},
            {u"rules"_s, rules}};
}

Status check(const Invocation &call, Output &out)
{
    const CheckRules rules = rulesOf(call);
    if (call.has(u"explain"_s)) {
        explain(requireRule(rules, call.value(u"explain"_s)), out);
        return Status::Ok;
    }
    if (call.has(u"list"_s)) {
        list(rules, out);
        return Status::Ok;
    }

    const QStringList ids = idsOf(call, rules);
    IgnoreList ignored;
    for (const QString &path : call.values(u"ignore"_s))
        ignored.add(path, rules.ids());

    const QString path = call.argument(0).isEmpty() ? cataloguePath(call) : call.argument(0);
    Progress progress(!call.json());
    std::optional<CheckedSources> sources;
    if (QFileInfo(path).isDir())
        sources.emplace(path, progress);
    const QString filePath = sources ? sources->file() : path;
    std::optional<CheckedFile> file;
    if (!filePath.isEmpty())
        file.emplace(filePath);
    const CheckSubject subject{filePath, file ? file->database() : QSqlDatabase(),
                               sources ? sources->problems() : QList<CheckFinding>(),
                               sources ? sources->unused() : QList<CheckFinding>()};
    QList<RuleResult> results = askRules(rules, ids, subject, ignored, progress);
    if (sources) {
        for (RuleResult &result : results)
            sources->locate(result.findings);
    }

    const CheckReport found(call, path, sources ? path : QString(), results, ignored.unused());
    if (out.json())
        out.write(found.toJson());
    else
        out.write(found.toText(out.style()));
    return found.isClean() ? Status::Ok : Status::Failed;
}

Status run(const Invocation &call, Output &out)
{
    return cleaningUpAfterSignals([&] { return check(call, out); });
}

} // namespace

Command catalogueCheckCommand()
{
    return {
        u"catalogue check"_s,
        u"Say what is wrong with a catalogue file or its sources"_s,
        u"The library never complains: a wrong row is a wrong answer. This verb asks every rule of checks.sql, which "
        "is installed with the command, and says for each row that breaks one what is wrong, what the library makes "
        "of it, and what to do.\n\n"
        "Errors are wrong answers, warnings hardly meant, hints worth knowing and often intended. Sources are built "
        "into a temporary file first; findings then name the CSV file and the line.\n\n"
        "An ignore file holds one rule on a line, alone or followed by the key of a row; # begins a remark."_s,
        {{u"FILE"_s, u"Catalogue file or folder of sources; the catalogue of --catalogue when it is left out"_s,
          Value::File, Need::Optional}},
        {{u"only"_s, u"Ask these rules alone, joined by commas"_s, Value::Text, u"ID,..."_s},
         {u"ignore"_s, u"Leave out the findings that this file names"_s, Value::File, u"FILE"_s},
         {u"strict"_s, u"Show hints in full, and hold a catalogue with hints for not clean"_s},
         {u"limit"_s, u"Show this many findings a rule; 0: all, as with --json. 20 when not given"_s, Value::Integer,
          u"N"_s},
         {u"rules"_s, u"Ask the rules of this file too, in the form of checks.sql"_s, Value::File, u"FILE"_s},
         {u"list"_s, u"List the rules and end"_s},
         {u"explain"_s, u"Explain a rule and end"_s, Value::Text, u"ID"_s}},
        {{u"catalogue check schema/sample"_s, u"Check the sources, with the line of every finding."_s},
         {u"catalogue check new.sqlite --only tag-width,tag-length"_s, u"Ask two rules of a built file."_s},
         {u"catalogue check --explain supply-id-shared"_s, u"What a rule is about, and its SELECT."_s}},
        {{Status::Ok, u"clean: no error and no warning, with --strict no hint either"_s},
         {Status::Failed, u"something was found, a rule could not be asked, or the file does not open"_s},
         {Status::Usage, u"no such rule"_s}},
        run,
    };
}

} // namespace zrsupply

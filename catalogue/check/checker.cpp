// SPDX-License-Identifier: LGPL-2.1-or-later
#include "check/checker.h"

#include "check/cataloguecheck.h"

#include <QtCore/QFileInfo>
#include <QtSql/QSqlError>
#include <QtSql/QSqlField>
#include <QtSql/QSqlQuery>
#include <QtSql/QSqlRecord>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

const auto connectionName = "zrsupply-catalogue-check"_L1;

QJsonValue jsonValue(const QVariant &value)
{
    return value.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue::fromVariant(value);
}

/// As the library would have it in a text: sizes without a tail of digits.
QString valueText(const QJsonValue &value)
{
    return value.isNull() ? u"NULL"_s : value.toVariant().toString();
}

/// Empty when all went well.
QString prepare(const CheckRules &rules, const CheckSubject &subject)
{
    QString error;
    QSqlQuery query(subject.database);
    for (const QString &statement : rules.preparation()) {
        // The others still serve the rules that do not need this one.
        if (!query.exec(statement) && error.isEmpty())
            error = query.lastError().databaseText();
    }
    return error;
}

void askSelect(RuleResult &result, const QSqlDatabase &database)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(result.rule.select)) {
        result.error = query.lastError().databaseText();
        return;
    }
    const QSqlRecord columns = query.record();
    const int table = columns.indexOf(u"table"_s);
    const int key = columns.indexOf(u"key"_s);
    while (query.next()) {
        CheckFinding finding{query.value(table).toString(), query.value(key).toString(), {}};
        for (int column = 0; column < columns.count(); ++column) {
            if (column != table && column != key)
                finding.values.insert(columns.fieldName(column), jsonValue(query.value(column)));
        }
        result.findings.append(finding);
    }
    if (query.lastError().isValid())
        result.error = query.lastError().databaseText();
    else if (table < 0 || key < 0)
        result.error = u"the SELECT has no columns \"table\" and \"key\""_s;
}

} // namespace

QString RuleResult::message(const CheckFinding &finding) const
{
    QString text;
    qsizetype end = 0;
    for (qsizetype begin = rule.message.indexOf(u'{'); begin >= 0; begin = rule.message.indexOf(u'{', end)) {
        text += QStringView(rule.message).sliced(end, begin - end);
        end = rule.message.indexOf(u'}', begin) + 1;
        if (end == 0)
            end = rule.message.size();
        const QString column = rule.message.sliced(begin + 1, end - begin - 2);
        if (column == "key"_L1)
            text += finding.key;
        else if (column == "table"_L1)
            text += finding.table;
        else
            text += valueText(finding.values.value(column));
    }
    return text += QStringView(rule.message).sliced(end);
}

QList<RuleResult> askRules(const CheckRules &rules, const QStringList &ids, const CheckSubject &subject,
                           IgnoreList &ignored, Progress &progress)
{
    QList<RuleResult> results;
    const bool hasFile = subject.database.isValid();
    progress.stage(u"preparing"_s);
    const QString unprepared = hasFile ? prepare(rules, subject) : QString();
    for (const CheckRule &rule : rules.rules()) {
        if (!ids.contains(rule.id))
            continue;
        progress.stage(rule.id);
        RuleResult result{rule, {}, 0, {}};
        if (!rule.code.isEmpty() && (hasFile || rule.code == "sourcesFail"_L1))
            result.findings = codeRule(rule.code)(subject);
        else if (hasFile)
            askSelect(result, subject.database);
        if (!result.error.isEmpty() && !unprepared.isEmpty())
            result.error = unprepared;
        const qsizetype found = result.findings.size();
        result.findings.removeIf([&](const CheckFinding &finding) { return ignored.ignores(rule.id, finding.key); });
        result.ignored = found - result.findings.size();
        results.append(result);
    }
    progress.clear();
    return results;
}

CheckedFile::CheckedFile(const QString &path)
    : m_database(QSqlDatabase::addDatabase(u"QSQLITE"_s, connectionName))
{
    m_database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    m_database.setDatabaseName(path);
    // SQLite takes an empty file for a database without tables, which is not what is wrong with it.
    const bool isOpen = QFileInfo(path).size() > 0 && m_database.open();
    QSqlQuery query(m_database);
    if (isOpen && query.exec(u"SELECT count(*) FROM sqlite_schema"_s))
        return;
    const QString why = query.lastError().databaseText();
    query = QSqlQuery();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
    // Whatever can be told about the file itself is more help than what SQLite says.
    if (const auto problem = catalogueProblem(path))
        throw *problem;
    throw Failure{Status::Failed,
                  u"%1 cannot be opened: %2"_s.arg(path, why),
                  u"name a catalogue file, or the folder with its sources"_s,
                  {}};
}

CheckedFile::~CheckedFile()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
}

} // namespace zrsupply

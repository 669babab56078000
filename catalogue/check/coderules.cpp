// SPDX-License-Identifier: LGPL-2.1-or-later
#include "check/coderules.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QXmlStreamReader>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <cataloguesql_p.h>

#include <utility>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int explainedColumn = 3; // of EXPLAIN QUERY PLAN

bool isKeyed(QLatin1StringView statement)
{
    return statement.contains("%1"_L1);
}

/// A number stands for every value, quoted or bare.
QString filled(QLatin1StringView statement)
{
    QString text = statement;
    for (const auto placeholder : {"%1"_L1, "%2"_L1, "%3"_L1})
        text.replace(placeholder, "1"_L1);
    return text;
}

CheckFinding statementFinding(QLatin1StringView statement, const QString &column, const QString &says)
{
    return {u"sqlite_schema"_s, QString(statement).trimmed(), {{column, says}}};
}

QList<CheckFinding> writeAheadLog(const CheckSubject &subject)
{
    // Bytes 18 and 19 of the header: the versions needed to write and to read, 2 for a write-ahead log.
    constexpr qsizetype versionsOffset = 18;
    QFile file(subject.path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray header = file.read(versionsOffset + 2);
    if (header.size() < versionsOffset + 2 || header[versionsOffset] != 2)
        return {};
    return {{u"sqlite_schema"_s, u"header"_s, {}}};
}

/// What SQLite puts beside a file while it is written.
QList<CheckFinding> sideFiles(const CheckSubject &subject)
{
    // A file with a write-ahead log has them made by whoever reads it, as we do here.
    const bool areOurs = !writeAheadLog(subject).isEmpty();
    QList<CheckFinding> findings;
    for (const auto suffix : {"-journal"_L1, "-wal"_L1, "-shm"_L1}) {
        const QFileInfo beside(subject.path + suffix);
        if (beside.exists() && (suffix == "-journal"_L1 || !areOurs))
            findings.append({u"sqlite_schema"_s, beside.fileName(), {}});
    }
    return findings;
}

QList<CheckFinding> statementFails(const CheckSubject &subject)
{
    QList<CheckFinding> findings;
    QSqlQuery query(subject.database);
    for (const QLatin1StringView statement : sql::allStatements) {
        if (!query.exec(u"EXPLAIN "_s + filled(statement)))
            findings.append(statementFinding(statement, u"error"_s, query.lastError().databaseText()));
    }
    return findings;
}

/// The step of a statement's plan that reads a whole table, or builds an index for it; empty when none does.
QString scanOf(const QSqlDatabase &database, QLatin1StringView statement)
{
    QSqlQuery query(database);
    if (!query.exec(u"EXPLAIN QUERY PLAN "_s + filled(statement)))
        return {};
    while (query.next()) {
        QString step = query.value(explainedColumn).toString();
        if (step.startsWith("SCAN"_L1) || step.contains("AUTOMATIC"_L1))
            return step;
    }
    return {};
}

/// The tables of a catalogue with their keys and indexes, without a row and without statistics. Those of a table with
/// few rows tell the planner, rightly, to read it whole; here it has nothing but the keys to go by.
class BareTables
{
public:
    explicit BareTables(const QSqlDatabase &catalogue)
        : m_database(QSqlDatabase::addDatabase(catalogue.driverName(), m_name))
    {
        m_database.setDatabaseName(u":memory:"_s);
        if (!m_database.open())
            return;
        QSqlQuery definitions(catalogue);
        definitions.setForwardOnly(true);
        m_isComplete =
            definitions.exec(u"SELECT sql FROM main.sqlite_schema WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite%'"
                             " ORDER BY type IN ('index', 'trigger'), rowid"_s);
        QSqlQuery maker(m_database);
        while (definitions.next())
            m_isComplete = maker.exec(definitions.value(0).toString()) && m_isComplete;
    }
    ~BareTables()
    {
        m_database = {};
        QSqlDatabase::removeDatabase(m_name);
    }
    Q_DISABLE_COPY_MOVE(BareTables)

    /// Whether the keys lead every step of a statement to its rows.
    bool searches(QLatin1StringView statement) const
    {
        return m_isComplete && scanOf(m_database, statement).isEmpty();
    }

private:
    const QString m_name = u"zrsupply-bare-tables"_s;
    QSqlDatabase m_database;
    bool m_isComplete = false;
};

QList<CheckFinding> statementScans(const CheckSubject &subject)
{
    QList<CheckFinding> findings;
    const BareTables bare(subject.database);
    for (const QLatin1StringView statement : sql::allStatements) {
        const QString step = isKeyed(statement) ? scanOf(subject.database, statement) : QString();
        if (!step.isEmpty() && !bare.searches(statement))
            findings.append(statementFinding(statement, u"plan"_s, step));
    }
    return findings;
}

QString svgError(const QByteArray &bytes)
{
    if (bytes.trimmed().isEmpty())
        return u"There is no picture in it"_s;
    QXmlStreamReader reader(bytes);
    if (reader.readNextStartElement()) {
        if (reader.name() != "svg"_L1)
            return u"The document begins with the element %1, not with svg"_s.arg(reader.name());
        if (reader.namespaceUri() != "http://www.w3.org/2000/svg"_L1)
            return u"The element svg lacks xmlns=\"http://www.w3.org/2000/svg\""_s;
        while (!reader.atEnd())
            reader.readNext();
    }
    if (!reader.hasError())
        return {};
    return u"Line %1, column %2 of the picture: %3"_s.arg(
        QString::number(reader.lineNumber()), QString::number(reader.columnNumber()), reader.errorString());
}

QList<CheckFinding> svgUnreadable(const CheckSubject &subject)
{
    QList<CheckFinding> findings;
    QSqlQuery query(subject.database);
    query.setForwardOnly(true);
    const bool isThere = query.exec(u"SELECT id, svg FROM background"_s);
    while (isThere && query.next()) {
        const QString error = svgError(query.value(1).toByteArray());
        if (!error.isEmpty())
            findings.append({u"background"_s, query.value(0).toString(), {{u"error"_s, error}}});
    }
    return findings;
}

QList<CheckFinding> sourcesFail(const CheckSubject &subject)
{
    return subject.sources;
}

QList<CheckFinding> sourcesUnused(const CheckSubject &subject)
{
    return subject.unused;
}

constexpr std::pair<QLatin1StringView, CodeRule> codeRules[] = {
    {"writeAheadLog"_L1, writeAheadLog}, {"statementFails"_L1, statementFails}, {"statementScans"_L1, statementScans},
    {"svgUnreadable"_L1, svgUnreadable}, {"sourcesFail"_L1, sourcesFail},       {"sourcesUnused"_L1, sourcesUnused},
    {"sideFiles"_L1, sideFiles},
};

} // namespace

CodeRule codeRule(const QString &name)
{
    for (const auto &[known, rule] : codeRules) {
        if (known == name)
            return rule;
    }
    return nullptr;
}

} // namespace zrsupply

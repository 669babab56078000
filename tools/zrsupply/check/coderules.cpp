#include "check/coderules.h"

#include <QtCore/QFile>
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

QList<CheckFinding> statementScans(const CheckSubject &subject)
{
    QList<CheckFinding> findings;
    QSqlQuery query(subject.database);
    for (const QLatin1StringView statement : sql::allStatements) {
        if (!isKeyed(statement) || !query.exec(u"EXPLAIN QUERY PLAN "_s + filled(statement)))
            continue;
        while (query.next()) {
            const QString step = query.value(explainedColumn).toString();
            if (step.startsWith("SCAN"_L1) || step.contains("AUTOMATIC"_L1)) {
                findings.append(statementFinding(statement, u"plan"_s, step));
                break;
            }
        }
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

constexpr std::pair<QLatin1StringView, CodeRule> codeRules[] = {
    {"writeAheadLog"_L1, writeAheadLog}, {"statementFails"_L1, statementFails}, {"statementScans"_L1, statementScans},
    {"svgUnreadable"_L1, svgUnreadable}, {"sourcesFail"_L1, sourcesFail},
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

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "statementlist.h"

#include "datatable.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QList<Statement> readList()
{
    QList<Statement> list;
    for (const QStringList &row : dataTable("statements.tsv", 5))
        list.append({row[0], row[1], row[2].toInt(), row[3], row[4].split(u", "_s)});
    return list;
}

} // namespace

const QList<Statement> &statementList()
{
    static const QList<Statement> list = readList();
    return list;
}

QString filled(const char *name, const QStringList &values)
{
    for (const Statement &statement : statementList()) {
        if (statement.name != QLatin1StringView(name))
            continue;
        if (values.size() != statement.placeholders)
            qFatal("%s takes %d values", name, statement.placeholders);
        const QStringList pieces = statement.text.split(u'%');
        QString text = pieces.first();
        for (qsizetype i = 1; i < pieces.size(); ++i)
            text += values.at(pieces[i].front().digitValue() - 1) + pieces[i].sliced(1);
        return text;
    }
    qFatal("no statement is called %s", name);
}

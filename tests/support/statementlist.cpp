// SPDX-License-Identifier: LGPL-2.1-or-later
#include "statementlist.h"

#include <QtCore/QFile>

using namespace Qt::Literals::StringLiterals;

namespace {

QList<Statement> readList()
{
    QFile file(QStringLiteral(ZR_SOURCE_DIR "/tests/data/statements.tsv"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeFirst(); // headings
    QList<Statement> list;
    for (const QString &line : std::as_const(lines)) {
        const QStringList columns = line.split(u'\t');
        if (columns.size() != 5)
            qFatal("a line without five columns: %s", qPrintable(line));
        list.append({columns[0], columns[1], columns[2].toInt(), columns[3], columns[4].split(u", "_s)});
    }
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

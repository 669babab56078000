// SPDX-License-Identifier: LGPL-2.1-or-later
#include "datatable.h"

#include <QtCore/QFile>

QList<QStringList> dataTable(const char *name, qsizetype columns)
{
    QFile file(QStringLiteral(ZR_SOURCE_DIR "/tests/data/") + QLatin1StringView(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeFirst(); // headings
    QList<QStringList> rows;
    for (const QString &line : std::as_const(lines)) {
        rows.append(line.split(u'\t'));
        if (rows.last().size() != columns)
            qFatal("%s: %lld columns instead of %lld: %s", name, qlonglong(rows.last().size()), qlonglong(columns),
                   qPrintable(line));
    }
    return rows;
}

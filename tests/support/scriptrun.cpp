// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/scriptrun.h"

#include "support/commandrun.h"

#include <QtCore/QFile>

#include <sqlite3.h>

QString runScript(const QString &file, const QString &script)
{
    sqlite3 *database = nullptr;
    QString complaint;
    if (sqlite3_open(QFile::encodeName(file).constData(), &database) != SQLITE_OK ||
        sqlite3_exec(database, script.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        complaint = QString::fromUtf8(sqlite3_errmsg(database));
    }
    sqlite3_close(database);
    return complaint;
}

void copySample(const QString &path)
{
    QFile::remove(path);
    if (!QFile::copy(sampleCatalogue(), path))
        qFatal("cannot copy the sample to %s", qPrintable(path));
}

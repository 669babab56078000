// SPDX-License-Identifier: LGPL-2.1-or-later
#include "smallcatalogue.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <sqlite3.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QString sourceText(const QString &name)
{
    return QString::fromUtf8(bytesOfFile(QStringLiteral(ZR_SOURCE_DIR) + u'/' + name));
}

/// The schema without what a file need not hold: comments, and the settings that a small catalogue has of its own.
QString shortSchema()
{
    static const QRegularExpression comment(u" *--[^\n]*"_s);
    static const QRegularExpression setting(u"PRAGMA (page_size|encoding)[^\n]*"_s);
    static const QRegularExpression blanks(u"\\s+"_s);
    return sourceText(u"schema/catalogue.sql"_s).remove(comment).remove(setting).replace(blanks, u" "_s);
}

} // namespace

void SmallCatalogue::make(const QString &path) const
{
    QFile::remove(path);
    mustRunSql(path, "PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY; PRAGMA page_size = " +
                         QByteArray::number(pageSize) + "; PRAGMA encoding = '" + encoding + "';" +
                         shortSchema().toUtf8() + sourceText(u"tests/data/fixture.sql"_s).toUtf8());
}

QByteArray SmallCatalogue::bytes() const
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"small.sqlite"_s);
    make(path);
    return bytesOfFile(path);
}

QString runSql(const QString &path, const QByteArray &script)
{
    sqlite3 *file = nullptr;
    char *message = nullptr;
    QString complaint;
    if (sqlite3_open(QFile::encodeName(path).constData(), &file) != SQLITE_OK ||
        sqlite3_exec(file, script.constData(), nullptr, nullptr, &message) != SQLITE_OK)
        complaint = QString::fromUtf8(message ? message : sqlite3_errmsg(file));
    sqlite3_free(message);
    sqlite3_close(file);
    return complaint;
}

void mustRunSql(const QString &path, const QByteArray &script)
{
    const QString complaint = runSql(path, script);
    if (!complaint.isEmpty())
        qFatal("%s\nin the script\n%s", qPrintable(complaint), script.left(2000).constData());
}

QByteArray bytesOfFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

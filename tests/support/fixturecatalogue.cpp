// SPDX-License-Identifier: LGPL-2.1-or-later
#include "fixturecatalogue.h"

#include <QtCore/QFile>

#include <sqlite3.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QString fileText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

} // namespace

FixtureCatalogue::FixtureCatalogue(Rows rows)
{
    if (!m_folder.isValid())
        qFatal("no temporary folder: %s", qPrintable(m_folder.errorString()));
    run(fileText(QStringLiteral(ZR_SOURCE_DIR "/schema/catalogue.sql")));
    if (rows == Rows::Fixture)
        run(fileText(QStringLiteral(ZR_SOURCE_DIR "/tests/data/fixture.sql")));
}

QString FixtureCatalogue::path() const
{
    return m_folder.filePath(u"catalogue.sqlite"_s);
}

void FixtureCatalogue::run(const QString &sql) const
{
    sqlite3 *file = nullptr;
    char *message = nullptr;
    // A test's file need not outlive a power failure: without waiting for the disk it is made in milliseconds.
    const QByteArray script = "PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY;" + sql.toUtf8();
    if (sqlite3_open(QFile::encodeName(path()).constData(), &file) != SQLITE_OK ||
        sqlite3_exec(file, script.constData(), nullptr, nullptr, &message) != SQLITE_OK) {
        qFatal("%s\nin the script\n%s", message ? message : sqlite3_errmsg(file), qPrintable(sql.left(2000)));
    }
    sqlite3_close(file);
}

QByteArray FixtureCatalogue::bytes() const
{
    QFile file(path());
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path()));
    return file.readAll();
}

QuietQt::QuietQt()
    : m_previous(qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {}))
{
}

QuietQt::~QuietQt()
{
    qInstallMessageHandler(m_previous);
}

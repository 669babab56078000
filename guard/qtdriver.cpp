// SPDX-License-Identifier: LGPL-2.1-or-later
#include "qtdriver_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QUuid>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlDriver>

#include <sqlite3.h>

#include <cstring>
#include <mutex>

namespace ZrSupplyGuard {

using namespace Qt::Literals::StringLiterals;

namespace {

thread_local bool wasOpened = false;

/// SQLite registers an entry point once, so the trial that ends first would take it from another thread's.
/// Never destroyed: the guard may be installed while the process ends.
std::mutex &trialMutex()
{
    static auto *const only = new std::mutex;
    return *only;
}

int noteOpened(sqlite3 *, char **, const void *)
{
    wasOpened = true;
    return SQLITE_OK;
}

} // namespace

bool qtDriverIsInReach()
{
    const QString driver = u"QSQLITE"_s;
    // Qt loads drivers for an application alone.
    if (!QCoreApplication::instance() || !QSqlDatabase::isDriverAvailable(driver))
        return true;
    const std::lock_guard lock(trialMutex());
    const auto entryPoint = reinterpret_cast<void (*)()>(noteOpened);
    if (sqlite3_auto_extension(entryPoint) != SQLITE_OK)
        return false;
    const QString name = u"zrsupplyguard "_s + QUuid::createUuid().toString();
    wasOpened = false;
    {
        QSqlDatabase trial = QSqlDatabase::addDatabase(driver, name);
        trial.setDatabaseName(u":memory:"_s);
        trial.open();
    }
    QSqlDatabase::removeDatabase(name);
    sqlite3_cancel_auto_extension(entryPoint);
    return wasOpened;
}

sqlite3 *qtConnection(const QString &connectionName)
{
    if (!QCoreApplication::instance() || !QSqlDatabase::contains(connectionName))
        return nullptr;
    const QSqlDatabase database = QSqlDatabase::database(connectionName, false);
    const QVariant handle = database.driver()->handle();
    if (!database.isOpen() || !handle.isValid() || std::strcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(handle.constData());
}

} // namespace ZrSupplyGuard

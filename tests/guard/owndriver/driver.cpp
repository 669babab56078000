// SPDX-License-Identifier: LGPL-2.1-or-later
// Qt's SQLite driver as a firmware image may bring it: with a copy of SQLite of its own, which no other library sees.
// It opens files and hands out the connection; no test runs a statement through it.

#include <QtSql/QSqlDriver>
#include <QtSql/QSqlDriverPlugin>
#include <QtSql/QSqlRecord>
#include <QtSql/QSqlResult>

#include <sqlite3.h>

Q_DECLARE_OPAQUE_POINTER(sqlite3 *)
Q_DECLARE_METATYPE(sqlite3 *)

class OwnDriver : public QSqlDriver
{
    Q_OBJECT

public:
    ~OwnDriver() override { OwnDriver::close(); }
    bool hasFeature(DriverFeature) const override { return false; }
    bool open(const QString &name, const QString &, const QString &, const QString &, int, const QString &) override
    {
        const bool isOpened = sqlite3_open(name.toUtf8().constData(), &m_connection) == SQLITE_OK;
        setOpen(isOpened);
        setOpenError(!isOpened);
        return isOpened;
    }
    void close() override
    {
        sqlite3_close(std::exchange(m_connection, nullptr));
        setOpen(false);
    }
    QSqlResult *createResult() const override { return nullptr; }
    QVariant handle() const override { return QVariant::fromValue(m_connection); }

private:
    sqlite3 *m_connection = nullptr;
};

class OwnDriverPlugin : public QSqlDriverPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QSqlDriverFactoryInterface_iid FILE "driver.json")

public:
    QSqlDriver *create(const QString &) override { return new OwnDriver; }
};

#include "driver.moc"

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "recordingdriver.h"

#include <QtCore/QVariant>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <QtSql/QSqlRecord>
#include <QtSql/QSqlResult>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A connection outside Qt's registry. The registry is locked while it destroys a driver, so a driver that
/// registered a connection of its own could not take it back.
class UnregisteredDatabase : public QSqlDatabase
{
public:
    explicit UnregisteredDatabase(const QString &path)
        : QSqlDatabase(u"QSQLITE"_s)
    {
        setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        setDatabaseName(path);
    }
};

/// Passes a text on to a query of the real connection, and the rows back.
class RecordingResult : public QSqlResult
{
public:
    RecordingResult(const QSqlDriver *driver, const QSqlDatabase &inner, QStringList *texts)
        : QSqlResult(driver)
        , m_query(inner)
        , m_texts(texts)
    {
    }

protected:
    QVariant data(int index) override { return m_query.value(index); }
    bool isNull(int index) override { return m_query.isNull(index); }
    bool reset(const QString &text) override
    {
        m_texts->append(text);
        const bool executed = m_query.exec(text);
        setActive(executed);
        setSelect(m_query.isSelect());
        setAt(QSql::BeforeFirstRow);
        if (!executed)
            setLastError(m_query.lastError());
        return executed;
    }
    bool fetch(int index) override
    {
        const bool found = m_query.seek(index);
        setAt(found ? index : int(QSql::AfterLastRow));
        return found;
    }
    bool fetchFirst() override { return fetch(0); }
    bool fetchLast() override
    {
        const bool found = m_query.last();
        setAt(found ? m_query.at() : int(QSql::AfterLastRow));
        return found;
    }
    int size() override { return -1; }
    int numRowsAffected() override { return m_query.numRowsAffected(); }
    QSqlRecord record() const override { return m_query.record(); }

private:
    QSqlQuery m_query;
    QStringList *m_texts;
};

} // namespace

RecordingDriver::RecordingDriver(const QString &databasePath, QStringList *texts)
    : m_inner(UnregisteredDatabase(databasePath))
    , m_texts(texts)
{
}

void RecordingDriver::install(const QString &databasePath, QStringList *texts, const QString &connectionName)
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(new RecordingDriver(databasePath, texts), connectionName);
    if (!connection.open())
        qFatal("the recording connection does not open %s", qPrintable(databasePath));
}

bool RecordingDriver::hasFeature(DriverFeature feature) const
{
    return feature == Unicode || feature == BLOB || feature == SimpleLocking;
}

bool RecordingDriver::open(const QString &, const QString &, const QString &, const QString &, int, const QString &)
{
    const bool opened = m_inner.open();
    setOpen(opened);
    setOpenError(!opened);
    return opened;
}

void RecordingDriver::close()
{
    setOpen(false);
    setOpenError(false);
}

QSqlResult *RecordingDriver::createResult() const
{
    return new RecordingResult(this, m_inner, m_texts);
}

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QStringList>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlDriver>

/// A driver that answers from a real SQLite file and keeps every text it is asked, in order.
///
/// Registered under the catalogue's connection name it shows exactly what the library asks. The connection owns it.
class RecordingDriver : public QSqlDriver
{
    Q_OBJECT

public:
    /// `texts` outlives the driver and grows with every statement that is executed.
    RecordingDriver(const QString &databasePath, QStringList *texts);

    /// Registers a recording connection under `connectionName` and opens it.
    static void install(const QString &databasePath, QStringList *texts,
                        const QString &connectionName = QStringLiteral("SUPPLY_INFO_QT_SQL_CONNECTION_NAME"));

    bool hasFeature(DriverFeature feature) const override;
    bool open(const QString &db, const QString &user, const QString &password, const QString &host, int port,
              const QString &options) override;
    void close() override;
    QSqlResult *createResult() const override;

private:
    QSqlDatabase m_inner;
    QStringList *m_texts;
};

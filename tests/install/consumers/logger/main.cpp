// SPDX-License-Identifier: LGPL-2.1-or-later
// Where the reason of a failed setup() arrives: at the host's appender, and without a logger in Qt's connection.

#include <AbstractAppender.h>
#include <Logger.h>
#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>

#include <cstdio>

class HostAppender : public AbstractAppender
{
protected:
    void append(const QDateTime &, Logger::LogLevel level, const char *file, int line, const char *function,
                const QString &, const QString &message) override
    {
        std::printf("record: %s, %s:%d, %s\n  %s\n", qPrintable(Logger::levelToString(level)), file, line, function,
                    qPrintable(message));
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Logger::globalInstance()->registerAppender(new HostAppender);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &message) {
        std::printf("handler: %s\n", qPrintable(message));
    });

    ZrSupplyDatabase supplies;
    const bool opened = supplies.setup("/nowhere/catalogue.sqlite");
    std::printf("setup: %s\n", opened ? "true" : "false");
    const QSqlDatabase connection = QSqlDatabase::database("SUPPLY_INFO_QT_SQL_CONNECTION_NAME", false);
    std::printf("reason: %s\n", qPrintable(connection.lastError().text()));
    qWarning("the host's own");
    return 0;
}

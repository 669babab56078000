// SPDX-License-Identifier: LGPL-2.1-or-later
// What starting costs, a program a step, each with CATALOGUE SKU as arguments: start_empty is a QCoreApplication with
// the SQLite driver loaded, start_bare also opens the catalogue and asks for a width by QSqlQuery alone,
// start_library asks the library the same. Prints its private memory in kB: what it has written itself. Pages of
// libraries that it only reads belong to the page cache, which every process shares.

#if defined(ZR_PROBE_LIBRARY)
#include <zrsupplydatabase.h>
#elif defined(ZR_PROBE_BARE)
#include "cataloguesql_p.h"

#include <QtSql/QSqlQuery>
#endif

#include <QtCore/QCoreApplication>
#include <QtSql/QSqlDatabase>

#include <cstdio>
#include <cstring>

namespace {

long privateKilobytes()
{
    std::FILE *file = std::fopen("/proc/self/smaps_rollup", "r");
    char line[256];
    long sum = 0;
    while (file && std::fgets(line, sizeof line, file)) {
        long value = 0;
        if (std::sscanf(line, "Private_Dirty: %ld", &value) == 1)
            sum += value;
    }
    if (file)
        std::fclose(file);
    return sum;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
#if defined(ZR_PROBE_LIBRARY)
    ZrSupplyDatabase database;
    if (!database.setup(arguments.value(1)) || database.supplyWidth(arguments.value(2)) <= 0.0)
        return 1;
#else
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    connection.setDatabaseName(arguments.value(1));
#ifdef ZR_PROBE_BARE
    connection.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    connection.open();
    QSqlQuery query(sql::rollWidth.arg(arguments.value(2)), connection);
    if (!query.next() || query.value(0).toReal() <= 0.0)
        return 1;
#endif
#endif
    std::printf("%ld\n", privateKilobytes());
    return 0;
}

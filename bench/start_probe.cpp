// What starting costs: `start_probe empty CATALOGUE` is a QCoreApplication with the SQLite driver loaded,
// `start_probe library CATALOGUE SKU` also asks the library its first question. Prints its private memory in kB: what
// it has written itself. Pages of libraries that it only reads belong to the page cache, which every process shares.

#ifdef ZR_PROBE_LIBRARY
#include <zrsupplydatabase.h>
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
#ifdef ZR_PROBE_LIBRARY
    ZrSupplyDatabase database;
    if (!database.setup(arguments.value(1)) || database.supplyWidth(arguments.value(2)) <= 0.0)
        return 1;
#else
    QSqlDatabase::addDatabase(QStringLiteral("QSQLITE")).setDatabaseName(arguments.value(1));
#endif
    std::printf("%ld\n", privateKilobytes());
    return 0;
}

// SPDX-License-Identifier: LGPL-2.1-or-later
// One lookup of the library under the guard, beside the same without: guard/<text>/<rolls>, a counter for each says
// nanoseconds.

#include "benchtag.h"
#include "catalogues.h"
#include "keyedlookups.h"

#include <zrsupplydatabase.h>
#include <zrsupplyguard.h>

#include <QtCore/QCoreApplication>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlDriver>
#include <QtSql/QSqlQuery>
#include <QtSql/QSqlResult>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <string>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr size_t warmUpCount = 1024;
constexpr size_t blockSize = 64;
constexpr int roundCount = 200;
constexpr size_t sides = 2; // bare, guarded

/// The library knows one connection by its name. This driver is that connection and hands every question to the one
/// of two real ones that is chosen, at the same cost for both.
class SwitchDriver : public QSqlDriver
{
public:
    explicit SwitchDriver(const Catalogue &catalogue)
        : m_inner{opened(catalogue, u"bare"_s), guarded(catalogue)}
    {
        setOpen(true);
    }
    void choose(size_t side) { m_chosen = side; }

    bool hasFeature(DriverFeature feature) const override { return m_inner[m_chosen].driver()->hasFeature(feature); }
    bool open(const QString &, const QString &, const QString &, const QString &, int, const QString &) override
    {
        return true;
    }
    void close() override {}
    QSqlResult *createResult() const override { return m_inner[m_chosen].driver()->createResult(); }

private:
    static QSqlDatabase opened(const Catalogue &catalogue, const QString &name)
    {
        QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        connection.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        connection.setDatabaseName(catalogue.path);
        if (!connection.open())
            qFatal("%s does not open", qPrintable(catalogue.path));
        return connection;
    }
    static QSqlDatabase guarded(const Catalogue &catalogue)
    {
        if (!ZrSupplyGuard::install(catalogue.path))
            qFatal("no guard");
        QSqlDatabase connection = opened(catalogue, u"guarded"_s);
        ZrSupplyGuard::remove();
        QSqlQuery write(connection);
        if (write.exec(u"CREATE TEMP TABLE t (x)"_s))
            qFatal("the guard does not reach Qt's driver");
        return connection;
    }

    std::array<QSqlDatabase, sides> m_inner;
    size_t m_chosen = 0;
};

double threadNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
}

/// Both sides in turn, a block of the same questions each, the first side of a round changing: what disturbs the
/// machine disturbs both. Each counter is the median of its blocks.
void compare(benchmark::State &state, const KeyedLookup &lookup, long rolls)
{
    const Catalogue &catalogue = Catalogue::ofRolls(rolls);
    auto *driver = new SwitchDriver(catalogue); // the connection owns it
    QSqlDatabase connection = QSqlDatabase::addDatabase(driver, u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s);
    connection.open();
    ZrSupplyDatabase library;
    QMetaObject::invokeMethod(&library, "updateCachedSupplyCData",
                              Q_ARG(QString, plainTag(catalogue.materials.front())));

    std::array<std::vector<double>, sides> blocks;
    size_t position = 0;
    const auto ask = [&](size_t side, size_t count) {
        driver->choose(side);
        const double start = threadNanoseconds();
        for (size_t n = 0; n < count; ++n)
            lookup.ask(library, catalogue, position + n);
        return threadNanoseconds() - start;
    };
    for (size_t side = 0; side < sides; ++side)
        ask(side, warmUpCount);
    position += warmUpCount;
    size_t first = 0;
    for (auto _ : state) {
        for (size_t turn = 0; turn < sides; ++turn) {
            const size_t side = (first + turn) % sides;
            blocks[side].push_back(ask(side, blockSize));
        }
        position += blockSize;
        ++first;
    }
    constexpr std::array names = {"bare", "guarded"};
    for (size_t side = 0; side < sides; ++side) {
        const auto middle = blocks[side].begin() + std::ptrdiff_t(blocks[side].size() / 2);
        std::nth_element(blocks[side].begin(), middle, blocks[side].end());
        state.counters[names[side]] = *middle / double(blockSize);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    mallopt(M_TRIM_THRESHOLD, 256 << 20); // as bench_lookups
    for (const KeyedLookup &lookup : keyedLookups()) {
        constexpr long rolls = 1000;
        const std::string name = std::string("guard/") + lookup.name + '/' + std::to_string(rolls);
        benchmark::RegisterBenchmark(name.c_str(), [&lookup](benchmark::State &state) {
            compare(state, lookup, rolls);
        })->Iterations(roundCount);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

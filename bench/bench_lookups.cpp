// SPDX-License-Identifier: LGPL-2.1-or-later
// One lookup, each of the 39 keyed texts: the library beside the SQLite C interface and beside others, in one run.
// Names are lookup/<text>/<rolls> and growth/<text>/<rolls>; a counter for each way says nanoseconds.

#include "benchtag.h"
#include "catalogues.h"
#include "keyedlookups.h"
#include "ways.h"

#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>
#include <QtSql/QSqlDatabase>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr size_t questionCount = 4096;
constexpr size_t warmUpCount = 1024;
constexpr size_t blockSize = 64;
constexpr int roundCount = 100;

/// The library with a catalogue open and a tag loaded whose material ribbons print on.
class Library
{
public:
    explicit Library(const Catalogue &catalogue)
    {
        if (!database.setup(catalogue.path))
            qFatal("%s does not open", qPrintable(catalogue.path));
        QMetaObject::invokeMethod(&database, "updateCachedSupplyCData",
                                  Q_ARG(QString, plainTag(catalogue.materials.front())));
    }
    ZrSupplyDatabase database;
};

/// One that answers: the library, or another way to ask the same.
struct Contestant
{
    std::string name;
    std::function<void(size_t)> ask;
    std::vector<double> blocks; ///< Nanoseconds of processor time for each block of questions.
};

double threadNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// All contestants in turn, a block of the same questions each, round after round: what disturbs the machine disturbs
/// them all. A warm-up leaves each with the page cache of a host that has run for a while: all of a small file, a
/// part of a large one. A counter for each says the nanoseconds of one lookup, the median of its blocks.
void compare(benchmark::State &state, size_t &position, const KeyedLookup &lookup, const std::vector<WayRow> &rows,
             long rolls)
{
    const Catalogue &catalogue = Catalogue::ofRolls(rolls);
    std::vector<Question> questions;
    for (size_t n = 0; n < questionCount; ++n)
        questions.push_back(lookup.texts(catalogue, n));

    Library library(catalogue);
    std::vector<std::unique_ptr<Way>> others;
    std::vector<Contestant> contestants = {
        {"library", [&](size_t n) { lookup.ask(library.database, catalogue, n); }, {}}};
    for (const WayRow &row : rows) {
        others.push_back(row.make(catalogue));
        Way *way = others.back().get();
        way->prepare(questions);
        contestants.push_back({row.name, [way](size_t n) { way->ask(n); }, {}});
    }
    for (const Contestant &contestant : contestants) {
        for (size_t n = 0; n < warmUpCount; ++n)
            contestant.ask(position + n);
    }
    position += warmUpCount;

    for (auto _ : state) {
        for (Contestant &contestant : contestants) {
            const double start = threadNanoseconds();
            for (size_t n = 0; n < blockSize; ++n)
                contestant.ask(position + n);
            contestant.blocks.push_back(threadNanoseconds() - start);
        }
        position += blockSize;
        std::rotate(contestants.begin(), contestants.begin() + 1, contestants.end());
    }
    for (const Contestant &contestant : contestants)
        state.counters[contestant.name] = median(contestant.blocks) / double(blockSize);
}

/// Benchmarks of the form KIND/TEXT/ROLLS, which compare the library with `rows`.
void registerComparison(const char *kind, const std::vector<WayRow> &rows, const std::vector<long> &sizes)
{
    for (const long rolls : sizes) {
        for (const KeyedLookup &lookup : keyedLookups()) {
            const std::string name = kind + std::string("/") + lookup.name + '/' + std::to_string(rolls);
            benchmark::RegisterBenchmark(name.c_str(), [&lookup, rows, rolls,
                                                        position = size_t(0)](benchmark::State &state) mutable {
                compare(state, position, lookup, rows, rolls);
            })->Iterations(roundCount);
        }
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    // Else a heap that happens to end beside its limit is given back and fetched again by every question of one of
    // them.
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
    registerComparison("lookup", ways(), {1000, 100000});
    registerComparison("growth", {ways().front()}, Catalogue::sizes()); // beside raw alone
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

// One lookup, each of the 39 keyed texts: the library beside the SQLite C interface and beside others, in one run.
// Names are lookup/<text>/<way>/<rolls>.

#include "benchtag.h"
#include "catalogues.h"
#include "keyedlookups.h"
#include "ways.h"

#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>
#include <QtSql/QSqlDatabase>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr size_t questionCount = 256;

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

void askLibrary(benchmark::State &state, const KeyedLookup *lookup, long rolls)
{
    const Catalogue &catalogue = Catalogue::ofRolls(rolls);
    Library library(catalogue);
    size_t n = 0;
    for (auto _ : state)
        lookup->ask(library.database, catalogue, n++);
}

void askOtherwise(benchmark::State &state, const KeyedLookup *lookup, const WayRow *row, long rolls)
{
    const Catalogue &catalogue = Catalogue::ofRolls(rolls);
    const std::unique_ptr<Way> way = row->make(catalogue);
    std::vector<Question> questions;
    for (size_t n = 0; n < questionCount; ++n)
        questions.push_back(lookup->texts(catalogue, n));
    way->prepare(questions);
    size_t n = 0;
    for (auto _ : state)
        way->ask(n++);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const long rolls : Catalogue::sizes()) {
        for (const KeyedLookup &lookup : keyedLookups()) {
            const auto name = [&](const char *way) {
                return "lookup/" + std::string(lookup.name) + '/' + way + '/' + std::to_string(rolls);
            };
            benchmark::RegisterBenchmark(name("library").c_str(), askLibrary, &lookup, rolls);
            for (const WayRow &row : ways())
                benchmark::RegisterBenchmark(name(row.name).c_str(), askOtherwise, &lookup, &row, rolls);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

// SPDX-License-Identifier: LGPL-2.1-or-later
// What a host does: lists for its pickers, a roll taken in, ribbons taken in, a mileage reading, a tag, a call by
// name. Names are list/<slot>/<way>/<rolls>, flow/<what>/<way>, tag/<way>, call/<way>.

#include "benchtag.h"
#include "catalogues.h"
#include "cataloguesql_p.h"
#include "supplyconstants_p.h"
#include "ways.h"

#include <tag/supplyc.h>
#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>
#include <QtSql/QSqlDatabase>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include <array>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr long flowRolls = 1000;

QString textOf(sqlite3_stmt *row, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(row, column)),
                             sqlite3_column_bytes(row, column));
}

// Lists

template <typename Visit>
void rawRows(const Catalogue &catalogue, QLatin1StringView text, Visit visit)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(rawConnection(catalogue), text.data(), int(text.size()), &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW)
        visit(statement);
    sqlite3_finalize(statement);
}

QStringList rawList(const Catalogue &catalogue, QLatin1StringView text)
{
    QStringList list;
    rawRows(catalogue, text, [&](sqlite3_stmt *row) { list.append(textOf(row, 0)); });
    return list;
}

QVariantHash rawHash(const Catalogue &catalogue, QLatin1StringView text)
{
    QVariantHash hash;
    rawRows(catalogue, text,
            [&](sqlite3_stmt *row) { hash.insert(textOf(row, 0), QVariant(sqlite3_column_int(row, 1))); });
    return hash;
}

/// What stays on the heap for one answer: a second copy of the texts would show.
template <typename Answer>
void countBytes(benchmark::State &state, Answer answer)
{
    const auto inUse = [] {
        const struct mallinfo2 heap = mallinfo2();
        return heap.uordblks + heap.hblkhd;
    };
    const size_t before = inUse();
    const auto list = answer();
    state.counters["bytes"] = double(inUse() - before);
}

template <typename Slot>
void listBySlot(benchmark::State &state, Slot slot, long rolls)
{
    ZrSupplyDatabase database;
    if (!database.setup(Catalogue::ofRolls(rolls).path))
        state.SkipWithError("the catalogue does not open");
    for (auto _ : state) {
        auto list = (database.*slot)();
        benchmark::DoNotOptimize(list);
    }
    state.counters["entries"] = double((database.*slot)().size());
    countBytes(state, [&] { return (database.*slot)(); });
}

template <typename Make>
void listRaw(benchmark::State &state, Make make, QLatin1StringView text, long rolls)
{
    const Catalogue &catalogue = Catalogue::ofRolls(rolls);
    for (auto _ : state) {
        auto list = make(catalogue, text);
        benchmark::DoNotOptimize(list);
    }
    countBytes(state, [&] { return make(catalogue, text); });
}

template <typename Slot, typename Make>
void registerList(const std::string &name, Slot slot, Make make, QLatin1StringView text, long rolls)
{
    const auto full = [&](const char *way) { return "list/" + name + '/' + way + '/' + std::to_string(rolls); };
    benchmark::RegisterBenchmark(full("library").c_str(), [=](benchmark::State &s) { listBySlot(s, slot, rolls); });
    benchmark::RegisterBenchmark(full("raw").c_str(), [=](benchmark::State &s) { listRaw(s, make, text, rolls); });
}

// Flows

using Flow = void (*)(ZrSupplyDatabase &, const Catalogue &, size_t);

QString idOf(const Catalogue &catalogue, size_t n, int revision)
{
    // The id of a roll decodes as its tag; a revision 2 tag is looked up by nobody.
    return revision < 2 ? catalogue.supplyIds[qsizetype(n) % catalogue.supplyIds.size()]
                        : plainTag(catalogue.materials.front(), revision);
}

/// The texts of a roll taken in, in order: eight names and colours of its codes, its SKU, its sensor.
Question rollTexts(const Catalogue &catalogue, size_t n, int revision)
{
    const QString id = idOf(catalogue, n, revision);
    const SupplyC tag(id);
    const auto code = [](QLatin1StringView text, int value) { return Text{text, {QString::number(value)}}; };
    const auto name = [](QLatin1StringView text, int value) { return Text{text, {QString::number(value), u"0"_s}}; };
    Question texts = {code(sql::secColorRgb, tag.secColorEnum),  name(sql::secColorName, tag.secColorEnum),
                      name(sql::secColorName, tag.secColorEnum), name(sql::materialName, tag.materialEnum),
                      name(sql::formatName, tag.formatEnum),     code(sql::colorRgb, tag.colorEnum),
                      name(sql::colorName, tag.colorEnum),       name(sql::colorName, tag.colorEnum)};
    if (revision < 2)
        texts.push_back({sql::skuBySupplyId, {id.left(20)}});
    texts.push_back({sql::rollSensor, {catalogue.rolls.front()}});
    return texts;
}

/// The texts of ribbons taken in: SKUs, lengths, panel colours, then the combination check.
Question ribbonTexts(const Catalogue &catalogue, size_t n)
{
    const QString roll = catalogue.rolls.front();
    Question texts;
    QStringList skus;
    for (size_t i = 0; i < 2; ++i) {
        const QString id = catalogue.ribbonIds[qsizetype(n + i) % catalogue.ribbonIds.size()];
        texts.push_back({sql::ribbonSkuById, {id}});
        skus.append(rawList(catalogue, QLatin1StringView(texts.back().filled().toLatin1())).value(0));
    }
    for (const QString &sku : skus)
        texts.push_back({sql::ribbonLength, {sku}});
    for (const QString &sku : skus) {
        for (const QString &panel : {u"1"_s, u"2"_s})
            texts.push_back({sql::ribbonPanelRgb, {sku, panel}});
    }
    for (const QString &sku : skus) {
        texts.push_back({sql::rollMaterial, {roll}});
        texts.push_back({sql::ribbonHeat, {sku, u"1"_s, QString::number(catalogue.materials.front())}});
    }
    for (const QString &sku : skus)
        texts.push_back({sql::ribbonWidth, {sku}});
    texts.push_back({sql::rollWidth, {roll}});
    return texts;
}

void flowByLibrary(benchmark::State &state, Flow flow)
{
    const Catalogue &catalogue = Catalogue::ofRolls(flowRolls);
    ZrSupplyDatabase database;
    if (!database.setup(catalogue.path))
        state.SkipWithError("the catalogue does not open");
    database.setSupplySKU(catalogue.rolls.front());
    size_t n = 0;
    for (auto _ : state)
        flow(database, catalogue, n++);
}

void flowRaw(benchmark::State &state, const std::function<Question(const Catalogue &, size_t)> &texts)
{
    const Catalogue &catalogue = Catalogue::ofRolls(flowRolls);
    const std::unique_ptr<Way> raw = ways().front().make(catalogue);
    std::vector<Question> questions;
    for (size_t n = 0; n < 256; ++n)
        questions.push_back(texts(catalogue, n));
    raw->prepare(questions);
    size_t n = 0;
    for (auto _ : state)
        raw->ask(n++);
}

void mileage(benchmark::State &state)
{
    ZrSupplyDatabase database;
    int reading = 0;
    for (auto _ : state)
        database.setSupplyMileage(++reading);
}

void signalAlone(benchmark::State &state)
{
    ZrSupplyDatabase database;
    for (auto _ : state)
        Q_EMIT database.supplyPercentChanged(0.5);
}

// Tags

std::vector<QString> randomTags(bool strays)
{
    std::mt19937_64 random(1);
    std::vector<QString> tags;
    for (int i = 0; i < 1000; ++i) {
        QString tag;
        for (int digit = 0; digit < 24; ++digit)
            tag.append(u"0123456789ABCDEF"_s[qsizetype(random() % 16)]);
        if (strays)
            tag[qsizetype(random() % 24)] = u'-';
        tags.push_back(tag);
    }
    return tags;
}

/// The floor: the digits straight into two words, the fields by shifts, and nothing else.
struct FloorTag
{
    std::array<int, 24> fields;
};

FloorTag floorDecode(const QString &text)
{
    static const std::array<quint8, 256> digits = [] {
        std::array<quint8, 256> table{};
        for (unsigned i = 0; i < 10; ++i)
            table['0' + i] = quint8(i);
        for (unsigned i = 0; i < 6; ++i)
            table['A' + i] = table['a' + i] = quint8(10 + i);
        return table;
    }();
    const QChar *character = text.constData();
    quint64 head = 0;
    quint32 tail = 0;
    for (int i = 0; i < 16; ++i)
        head = (head << 4) | digits[character[i].unicode() & 0xff];
    for (int i = 16; i < 24; ++i)
        tail = (tail << 4) | digits[character[i].unicode() & 0xff];
    const auto from = [&](int shift, quint64 mask) { return int((head >> shift) & mask); };
    const auto behind = [&](int shift, quint32 mask) { return int((tail >> shift) & mask); };
    return {{from(55, 511),  from(54, 1),   from(53, 1),   from(39, 63),
             from(45, 15),   from(38, 1),   from(29, 511), from(21, 255),
             from(15, 63),   from(6, 511),  from(2, 15),   int(((head & 3) << 4) | (tail >> 28)),
             behind(24, 15), behind(23, 1), behind(22, 1), behind(16, 63),
             behind(11, 31), behind(9, 3),  behind(7, 3),  from(52, 1),
             from(49, 3),    from(43, 63),  from(39, 15),  from(49, 15)}};
}

void tagFloor(benchmark::State &state)
{
    const std::vector<QString> tags = randomTags(false);
    size_t n = 0;
    for (auto _ : state) {
        FloorTag tag = floorDecode(tags[n++ % tags.size()]);
        benchmark::DoNotOptimize(tag);
    }
}

void tagLibrary(benchmark::State &state, bool strays)
{
    const std::vector<QString> tags = randomTags(strays);
    size_t n = 0;
    for (auto _ : state) {
        SupplyC tag(tags[n++ % tags.size()]);
        benchmark::DoNotOptimize(tag);
    }
}

// Calls

void callDirect(benchmark::State &state)
{
    ZrSupplyDatabase database;
    for (auto _ : state) {
        auto length = database.ribbonTagLength();
        benchmark::DoNotOptimize(length);
    }
}

void callByName(benchmark::State &state)
{
    ZrSupplyDatabase database;
    int length = 0;
    for (auto _ : state) {
        QMetaObject::invokeMethod(&database, "ribbonTagLength", Q_RETURN_ARG(int, length));
        benchmark::DoNotOptimize(length);
    }
}

void callByKeptMethod(benchmark::State &state)
{
    ZrSupplyDatabase database;
    const QMetaObject *meta = database.metaObject();
    const QMetaMethod method = meta->method(meta->indexOfMethod("ribbonTagLength()"));
    int length = 0;
    for (auto _ : state) {
        method.invoke(&database, Q_RETURN_ARG(int, length));
        benchmark::DoNotOptimize(length);
    }
}

void callByIndex(benchmark::State &state)
{
    ZrSupplyDatabase database;
    const int index = database.metaObject()->indexOfMethod("ribbonTagLength()");
    int length = 0;
    void *arguments[] = {&length};
    for (auto _ : state) {
        QMetaObject::metacall(&database, QMetaObject::InvokeMetaMethod, index, arguments);
        benchmark::DoNotOptimize(length);
    }
}

void registerAll()
{
    using Db = ZrSupplyDatabase;
    for (const long rolls : {1000L, 100000L}) {
        registerList("supplySKUList", &Db::supplySKUList, rawList, sql::rollSkus, rolls);
        registerList("supplyRibbonSKUList", &Db::supplyRibbonSKUList, rawList, sql::ribbonSkus, rolls);
        registerList("supplyColorHash", &Db::supplyColorHash, rawHash, sql::colorTable, rolls);
        registerList("supplyRibbonColorHash", &Db::supplyRibbonColorHash, rawHash, sql::ribbonColorTable, rolls);
    }

    const auto flow = [](const char *name, Flow library, std::function<Question(const Catalogue &, size_t)> texts) {
        const std::string prefix = std::string("flow/") + name;
        benchmark::RegisterBenchmark((prefix + "/library").c_str(),
                                     [library](benchmark::State &s) { flowByLibrary(s, library); });
        benchmark::RegisterBenchmark((prefix + "/raw").c_str(), [texts](benchmark::State &s) { flowRaw(s, texts); });
    };
    flow(
        "roll-revision-0", [](Db &db, const Catalogue &c, size_t n) { db.setSupplyId(idOf(c, n, 0)); },
        [](const Catalogue &c, size_t n) { return rollTexts(c, n, 0); });
    flow(
        "roll-revision-2", [](Db &db, const Catalogue &c, size_t n) { db.setSupplyId(idOf(c, n, 2)); },
        [](const Catalogue &c, size_t n) { return rollTexts(c, n, 2); });
    flow(
        "ribbons",
        [](Db &db, const Catalogue &c, size_t n) {
            db.setRibbonIds(
                {c.ribbonIds[qsizetype(n) % c.ribbonIds.size()], c.ribbonIds[qsizetype(n + 1) % c.ribbonIds.size()]});
        },
        ribbonTexts);
    benchmark::RegisterBenchmark("flow/mileage/library", mileage);
    benchmark::RegisterBenchmark("flow/mileage/signal-alone", signalAlone);

    benchmark::RegisterBenchmark("tag/floor", tagFloor);
    benchmark::RegisterBenchmark("tag/library", [](benchmark::State &s) { tagLibrary(s, false); });
    benchmark::RegisterBenchmark("tag/library-with-strays", [](benchmark::State &s) { tagLibrary(s, true); });

    benchmark::RegisterBenchmark("call/direct", callDirect);
    benchmark::RegisterBenchmark("call/by-name", callByName);
    benchmark::RegisterBenchmark("call/kept-QMetaMethod", callByKeptMethod);
    benchmark::RegisterBenchmark("call/by-index", callByIndex);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    registerAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

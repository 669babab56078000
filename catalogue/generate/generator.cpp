// SPDX-License-Identifier: LGPL-2.1-or-later
#include "generate/generator.h"

#include "generate/generatedmodel.h"
#include "generate/generatednames.h"

#include <QtCore/QMap>

namespace zrsupply {

namespace {

constexpr std::array sensors = {"EDGE", "GAP", "MARK", "NOTCH"};

using NameOf = QByteArray (*)(int language, int number);

static_assert(GeneratedModel::colors == generatednames::colorCount);
static_assert(GeneratedModel::materials == generatednames::materialCount);
static_assert(GeneratedModel::ribbonTypes == generatednames::ribbonTypeCount);
static_assert(GeneratedModel::ribbonColors <= generatednames::colorCount);

SqlValue integer(qint64 number)
{
    return SqlValue::fromInteger(number);
}

SqlValue sixteenths(int number)
{
    return SqlValue::fromReal(number / 16.0);
}

SqlValue integerOrNull(int number)
{
    return number > 0 ? SqlValue::fromInteger(number) : SqlValue();
}

class Generator
{
public:
    Generator(const GeneratorSettings &settings, RowSink &sink)
        : m_model(settings)
        , m_sink(sink)
    {
    }

    void fill(const QByteArray &table);

private:
    const GeneratorSettings &settings() const { return m_model.settings(); }
    void backgrounds();
    void colors();
    void formatRows();
    void heats();
    void materialWidths();
    void meta();
    void nonContinuous();
    void panels();
    void ribbonColors();
    void ribbons();
    void rolls();
    void sensorRows();
    void stripes();
    void names(NameOf nameOf, int count, int (*idOf)(int));

    template <typename Take>
    void forEachRoll(const Take &take) const;

    GeneratedModel m_model;
    RowSink &m_sink;
};

int sameId(int number)
{
    return number + 1;
}

int formatIdOf(int number)
{
    return generatednames::formats[size_t(number)].id;
}

void Generator::fill(const QByteArray &table)
{
    static const QMap<QByteArray, void (*)(Generator &)> fillers = {
        {"background", [](Generator &g) { g.backgrounds(); }},
        {"color", [](Generator &g) { g.colors(); }},
        {"colorTS",
         [](Generator &g) { g.names(generatednames::color, GeneratedModel::colors, GeneratedModel::colorId); }},
        {"continuousstripe", [](Generator &g) { g.stripes(); }},
        {"format", [](Generator &g) { g.formatRows(); }},
        {"formatTS",
         [](Generator &g) { g.names(generatednames::format, int(generatednames::formats.size()), formatIdOf); }},
        {"materialTS",
         [](Generator &g) {
             g.names(generatednames::material, GeneratedModel::materials, GeneratedModel::materialId);
         }},
        {"materialwidth", [](Generator &g) { g.materialWidths(); }},
        {"meta", [](Generator &g) { g.meta(); }},
        {"noncontinuous", [](Generator &g) { g.nonContinuous(); }},
        {"ribbon", [](Generator &g) { g.ribbons(); }},
        {"ribbon_color", [](Generator &g) { g.ribbonColors(); }},
        {"ribbon_colorTS",
         [](Generator &g) { g.names(generatednames::color, GeneratedModel::ribbonColors, sameId); }},
        {"ribbon_heat", [](Generator &g) { g.heats(); }},
        {"ribbon_panel", [](Generator &g) { g.panels(); }},
        {"ribbon_typeTS",
         [](Generator &g) { g.names(generatednames::ribbonType, GeneratedModel::ribbonTypes, sameId); }},
        {"roll", [](Generator &g) { g.rolls(); }},
        {"supplysensor", [](Generator &g) { g.sensorRows(); }},
    };
    // A table that is new in catalogue.sql and not known here stays empty.
    if (const auto filler = fillers.value(table))
        filler(*this);
}

void Generator::backgrounds()
{
    for (int number = 1; number <= GeneratedModel::backgrounds; ++number) {
        const auto rgb = int(m_model.chance(101, quint64(number) + 1) & 0xFFFFFF);
        const QByteArray color = QByteArray::number(rgb, 16).rightJustified(6, '0');
        const QByteArray count = QByteArray::number(number);
        const QByteArray svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 240 120\">\n"
                               "  <title>Pattern " +
                               count +
                               "</title>\n"
                               "  <rect width=\"240\" height=\"120\" fill=\"#ffffff\"/>\n"
                               "  <circle cx=\"120\" cy=\"60\" r=\"" +
                               QByteArray::number(5 * number + 10) + "\" fill=\"#" + color + "\"/>\n</svg>\n";
        const QByteArray name = "pattern-" + count + ".svg";
        m_sink.addRow({integer(number), SqlValue::fromBlob(svg, name)});
    }
}

void Generator::colors()
{
    for (int number = 0; number < GeneratedModel::colors; ++number) {
        const int id = GeneratedModel::colorId(number);
        const QByteArray name = generatednames::color(0, number);
        const int secId = number < GeneratedModel::stripeColors ? number + 1 : 0;
        m_sink.addRow(
            {integer(id), integerOrNull(secId), integer(generatednames::colorRgb(number)), SqlValue::fromText(name)});
    }
}

void Generator::ribbonColors()
{
    for (int number = 0; number < GeneratedModel::ribbonColors; ++number) {
        const QByteArray name = generatednames::color(0, number);
        m_sink.addRow({integer(number + 1), integer(generatednames::colorRgb(number)), SqlValue::fromText(name)});
    }
}

void Generator::names(NameOf nameOf, int count, int (*idOf)(int))
{
    for (int number = 0; number < count; ++number) {
        const int id = idOf(number);
        for (int language = 0; language < settings().languages; ++language) {
            const QByteArray name = nameOf(language, number);
            m_sink.addRow({integer(id), integer(language), SqlValue::fromText(name)});
        }
    }
}

void Generator::formatRows()
{
    for (const generatednames::Format &format : generatednames::formats)
        m_sink.addRow({integer(format.id), SqlValue::fromText(format.type)});
}

void Generator::sensorRows()
{
    for (size_t number = 0; number < sensors.size(); ++number)
        m_sink.addRow({integer(qint64(number) + 1), SqlValue::fromText(sensors[number])});
}

void Generator::meta()
{
    QMap<QByteArray, QByteArray> facts = {
        {"dataset_name", "Invented catalogue, " + QByteArray::number(settings().rolls) + " rolls, " +
                             QByteArray::number(settings().ribbons) + " ribbons, seed " +
                             QByteArray::number(settings().seed)},
        {"dataset_version", "1.0.0"},
    };
    for (int language = 0; language < settings().languages; ++language)
        facts.insert("language." + QByteArray::number(language), generatednames::languageCode(language));
    for (auto fact = facts.constKeyValueBegin(); fact != facts.constKeyValueEnd(); ++fact)
        m_sink.addRow({SqlValue::fromText(fact->first), SqlValue::fromText(fact->second)});
}

void Generator::materialWidths()
{
    const qint64 count = m_model.products();
    for (qint64 number = 0; number < count; ++number) {
        const GeneratedProduct product = m_model.product(number);
        m_sink.addRow({integer(product.id), integer(product.materialId), sixteenths(product.widthSixteenths),
                       integer(product.length()), sixteenths(product.labelSixteenths),
                       SqlValue::fromText(product.machineId)});
    }
}

template <typename Take>
void Generator::forEachRoll(const Take &take) const
{
    const qint64 count = m_model.products();
    for (qint64 number = 0; number < count; ++number) {
        const GeneratedProduct product = m_model.product(number);
        for (int variant = 0; variant < product.rolls; ++variant)
            take(product, m_model.roll(product, variant));
    }
}

void Generator::rolls()
{
    forEachRoll([this](const GeneratedProduct &product, const GeneratedRoll &roll) {
        m_sink.addRow({SqlValue::fromText(roll.itemNum), SqlValue::fromText(roll.supplyId), integer(product.id),
                       integer(roll.colorId), integer(roll.landscape), integer(roll.nUpCount),
                       integerOrNull(roll.sensorId), integerOrNull(roll.backgroundId)});
    });
}

void Generator::stripes()
{
    forEachRoll([this](const GeneratedProduct &product, const GeneratedRoll &roll) {
        if (product.isStriped())
            m_sink.addRow(
                {SqlValue::fromText(roll.itemNum), sixteenths(product.stripeSixteenths), integer(roll.stripeColor)});
    });
}

void Generator::nonContinuous()
{
    forEachRoll([this](const GeneratedProduct &product, const GeneratedRoll &roll) {
        if (product.isDieCut())
            m_sink.addRow({SqlValue::fromText(roll.itemNum), integer(product.formatId),
                           sixteenths(product.separatorSixteenths)});
    });
}

void Generator::ribbons()
{
    for (int number = 0; number < settings().ribbons; ++number) {
        const GeneratedRibbon ribbon = m_model.ribbon(number);
        m_sink.addRow({integer(ribbon.id), SqlValue::fromText(ribbon.sku), integer(ribbon.panels),
                       SqlValue::fromReal(ribbon.width), SqlValue::fromReal(ribbon.length)});
    }
}

void Generator::panels()
{
    for (int number = 0; number < settings().ribbons; ++number) {
        const GeneratedRibbon ribbon = m_model.ribbon(number);
        for (int panel = 1; panel <= ribbon.panels; ++panel)
            m_sink.addRow({integer(ribbon.id), integer(panel), integer(ribbon.typeId),
                           integer(m_model.panelColor(ribbon, panel))});
    }
}

void Generator::heats()
{
    for (int number = 0; number < settings().ribbons; ++number) {
        const GeneratedRibbon ribbon = m_model.ribbon(number);
        for (int panel = 1; panel <= ribbon.panels; ++panel) {
            for (int material = 0; material < GeneratedModel::materials; ++material) {
                const int materialId = GeneratedModel::materialId(material);
                if (!m_model.prints(ribbon, materialId))
                    continue;
                const quint64 row = quint64(ribbon.id) * 1000 + quint64(panel) * 100 + quint64(material);
                const auto above = [&](int least, int span, quint64 what) {
                    return integer(least + m_model.chanceBelow(span, what, row));
                };
                m_sink.addRow({integer(ribbon.id), integer(panel), integer(materialId), above(90, 40, 104),
                               above(8, 9, 105), integer(25 + 5 * m_model.chanceBelow(20, 106, row)),
                               above(4, 6, 107)});
            }
        }
    }
}

} // namespace

void generateCatalogue(const GeneratorSettings &settings, RowSink &sink)
{
    Generator generator(settings, sink);
    for (const SourceTable &table : SourceSchema::current().tables()) {
        sink.beginTable(table);
        generator.fill(table.name);
        sink.endTable();
    }
}

} // namespace zrsupply

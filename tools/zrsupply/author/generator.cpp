#include "author/generator.h"

#include "author/generatedmodel.h"

#include <QtCore/QMap>

namespace zrsupply {

namespace {

/// A language and its words for what generated names begin with: "Farbe 7".
struct Language
{
    const char *code;
    const char *color;
    const char *material;
    const char *format;
    const char *ribbonType;
    const char *ribbonColor;
};

constexpr std::array languages = {
    Language{"en", "Colour", "Material", "Format", "Ribbon type", "Ribbon colour"},
    Language{"de", "Farbe", "Werkstoff", "Format", "Farbbandart", "Farbbandfarbe"},
    Language{"fr", "Couleur", "Matière", "Format", "Type de ruban", "Couleur de ruban"},
    Language{"es", "Color", "Material", "Formato", "Tipo de cinta", "Color de cinta"},
    Language{"ja", "色", "素材", "形式", "リボンの種類", "リボンの色"},
    Language{"ar", "لون", "خامة", "تنسيق", "نوع الشريط", "لون الشريط"},
    Language{"it", "Colore", "Materiale", "Formato", "Tipo di nastro", "Colore del nastro"},
    Language{"nl", "Kleur", "Materiaal", "Formaat", "Linttype", "Lintkleur"},
    Language{"pl", "Kolor", "Materiał", "Format", "Rodzaj taśmy", "Kolor taśmy"},
    Language{"sv", "Färg", "Material", "Format", "Färgbandstyp", "Färgbandsfärg"},
};

/// Beyond the languages above, codes of the range that is kept free for private use, with English words.
QByteArray languageCode(int language)
{
    if (size_t(language) < languages.size()) {
        const Language &known = languages[size_t(language)];
        return known.code;
    }
    const int number = language - int(languages.size());
    return QByteArray("q") + char('a' + number / 26) + char('a' + number % 26);
}

using Word = const char *Language::*;

QByteArray nameOf(int language, Word word, int number)
{
    const bool isKnown = size_t(language) < languages.size();
    const QByteArray name =
        QByteArray(languages[isKnown ? size_t(language) : 0].*word) + ' ' + QByteArray::number(number);
    return isKnown ? name : name + " (" + languageCode(language) + ')';
}

struct FormatName
{
    int id;
    const char *type;
};

constexpr std::array formats = {
    FormatName{1, "Continuous"}, FormatName{2, "Striped"},      FormatName{3, "Tag"},   FormatName{5, "DieCut"},
    FormatName{39, "Nameplate"}, FormatName{40, "RaisedPanel"}, FormatName{41, "Wrap"}, FormatName{42, "Wrap"},
    FormatName{43, "Wrap"},      FormatName{44, "Wrap"},        FormatName{45, "Wrap"}, FormatName{46, "Wrap"},
    FormatName{47, "Wrap"},      FormatName{48, "Wrap"},        FormatName{49, "Wrap"}, FormatName{50, "Wrap"},
    FormatName{51, "Wrap"},      FormatName{52, "Wrap"},        FormatName{53, "Wrap"}, FormatName{54, "Flag"},
    FormatName{55, "Sleeve"},
};

constexpr std::array sensors = {"EDGE", "GAP", "MARK", "NOTCH"};

constexpr int whiteRgb = 0xFFFFFF;

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
    void names(Word word, int count, int (*idOf)(int));
    int rgb(int number, quint64 what) const;

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
    return formats[size_t(number)].id;
}

void Generator::fill(const QByteArray &table)
{
    static const QMap<QByteArray, void (*)(Generator &)> fillers = {
        {"background", [](Generator &g) { g.backgrounds(); }},
        {"color", [](Generator &g) { g.colors(); }},
        {"colorTS", [](Generator &g) { g.names(&Language::color, GeneratedModel::colors, GeneratedModel::colorId); }},
        {"continuousstripe", [](Generator &g) { g.stripes(); }},
        {"format", [](Generator &g) { g.formatRows(); }},
        {"formatTS", [](Generator &g) { g.names(&Language::format, int(formats.size()), formatIdOf); }},
        {"materialTS",
         [](Generator &g) { g.names(&Language::material, GeneratedModel::materials, GeneratedModel::materialId); }},
        {"materialwidth", [](Generator &g) { g.materialWidths(); }},
        {"meta", [](Generator &g) { g.meta(); }},
        {"noncontinuous", [](Generator &g) { g.nonContinuous(); }},
        {"ribbon", [](Generator &g) { g.ribbons(); }},
        {"ribbon_color", [](Generator &g) { g.ribbonColors(); }},
        {"ribbon_colorTS",
         [](Generator &g) { g.names(&Language::ribbonColor, GeneratedModel::ribbonColors, sameId); }},
        {"ribbon_heat", [](Generator &g) { g.heats(); }},
        {"ribbon_panel", [](Generator &g) { g.panels(); }},
        {"ribbon_typeTS", [](Generator &g) { g.names(&Language::ribbonType, GeneratedModel::ribbonTypes, sameId); }},
        {"roll", [](Generator &g) { g.rolls(); }},
        {"supplysensor", [](Generator &g) { g.sensorRows(); }},
    };
    // A table that is new in catalogue.sql and not known here stays empty.
    if (const auto filler = fillers.value(table))
        filler(*this);
}

int Generator::rgb(int number, quint64 what) const
{
    if (number < 2)
        return number == 0 ? whiteRgb : 0;
    return int(m_model.chance(what, quint64(number)) & 0xFFFFFF);
}

void Generator::backgrounds()
{
    for (int number = 1; number <= GeneratedModel::backgrounds; ++number) {
        const QByteArray color = QByteArray::number(rgb(number + 1, 101), 16).rightJustified(6, '0');
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
        const QByteArray name = nameOf(0, &Language::color, id);
        const int secId = number < GeneratedModel::stripeColors ? number + 1 : 0;
        m_sink.addRow({integer(id), integerOrNull(secId), integer(rgb(number, 102)), SqlValue::fromText(name)});
    }
}

void Generator::ribbonColors()
{
    for (int number = 0; number < GeneratedModel::ribbonColors; ++number) {
        const QByteArray name = nameOf(0, &Language::ribbonColor, number + 1);
        m_sink.addRow({integer(number + 1), integer(rgb(number, 103)), SqlValue::fromText(name)});
    }
}

void Generator::names(Word word, int count, int (*idOf)(int))
{
    for (int number = 0; number < count; ++number) {
        const int id = idOf(number);
        for (int language = 0; language < settings().languages; ++language) {
            const QByteArray name = nameOf(language, word, id);
            m_sink.addRow({integer(id), integer(language), SqlValue::fromText(name)});
        }
    }
}

void Generator::formatRows()
{
    for (const FormatName &format : formats)
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
        facts.insert("language." + QByteArray::number(language), languageCode(language));
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

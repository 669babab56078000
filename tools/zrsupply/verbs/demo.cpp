// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/catalogue.h"
#include "cli/installedtext.h"
#include "cli/output.h"
#include "session/literal.h"
#include "session/methodcall.h"
#include "session/signalrecorder.h"
#include "text/units.h"
#include "usekit.h"

#include <tag/supplyc.h>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype whatColumns = 48;
constexpr qsizetype saysColumns = 50;
constexpr double lowFraction = 0.1; // where this host would warn; the library has no limit of its own

// Of the sample catalogue: a wide striped roll, two ribbons that suit it, one that is too narrow, and the tag of a
// roll that is in no catalogue.
const QString wideRollTag = u"32100C0C8021004060000000"_s;
const QString unknownRollTag = u"3200000C8020824060000000"_s;
constexpr int goodRibbon1 = 14;
constexpr int goodRibbon2 = 16;
constexpr int narrowRibbon = 5;

/// What happens on the left, what it means on the right.
struct Row
{
    QString what;
    QString says;
    QList<int> rgbs = {};
};

/// Steps of the job, told as they happen.
class Tour
{
public:
    Tour(Catalogue &catalogue, Output &out);

    void run();

private:
    void begin(const QString &title);
    void tell(const Row &row);
    QList<SignalRecord> call(const QString &method, const QVariantList &arguments);
    void callAndTell(const QString &method, const QVariantList &arguments, const QStringList &only = {});
    Row meaning(const SignalRecord &record);

    void start();
    void decodeTag();
    void print();
    void wrongRibbon();
    void unknownRoll();
    void finish();

    Catalogue &m_catalogue;
    ZrSupplyDatabase &m_library;
    SignalRecorder m_recorder;
    Output &m_out;
    QJsonArray m_steps;
    int m_number = 0;
};

Tour::Tour(Catalogue &catalogue, Output &out)
    : m_catalogue(catalogue)
    , m_library(catalogue.library())
    , m_recorder(m_library)
    , m_out(out)
{
}

void Tour::begin(const QString &title)
{
    ++m_number;
    if (m_out.json())
        m_steps.append(QJsonObject{{u"title"_s, title}, {u"rows"_s, QJsonArray()}});
    else
        m_out.write(u'\n' + emphasised(u"%1  %2"_s.arg(QString::number(m_number), title), m_out.style()) + u'\n');
}

void Tour::tell(const Row &row)
{
    if (m_out.json()) {
        QJsonObject step = m_steps.last().toObject();
        QJsonArray rows = step.value(u"rows"_s).toArray();
        rows.append(QJsonObject{{u"what"_s, row.what}, {u"says"_s, row.says}});
        step.insert(u"rows"_s, rows);
        m_steps.replace(m_steps.size() - 1, step);
        return;
    }
    QString patches;
    for (const int rgb : row.rgbs)
        patches += swatch(rgb, m_out.style());
    const QString says = wrapped(row.says, saysColumns, whatColumns + 3).mid(whatColumns + 3);
    QString line = u"   "_s + padded(row.what, whatColumns) + patches + says;
    while (line.endsWith(u' '))
        line.chop(1);
    m_out.write(line + u'\n');
}

QList<SignalRecord> Tour::call(const QString &method, const QVariantList &arguments)
{
    QList<Word> words;
    for (const QVariant &argument : arguments)
        words.append(splitWords(literal(argument)));
    const MethodCall call = resolveCall(*m_library.metaObject(), method, words);
    invoke(m_library, call);
    return m_recorder.take();
}

void Tour::callAndTell(const QString &method, const QVariantList &arguments, const QStringList &only)
{
    const QList<SignalRecord> records = call(method, arguments);
    tell({method + literals(arguments), {}});
    for (const SignalRecord &record : records) {
        if (only.isEmpty() || only.contains(record.name()))
            tell(meaning(record));
    }
}

Row Tour::meaning(const SignalRecord &record)
{
    const QString name = record.name();
    Row row{u"  > "_s + name + literals(record.arguments), {}};
    if (name == "supplyChangedSignal"_L1) {
        const QString sku = record.arguments.first().toString();
        row.says = sku == unsetString          ? u"no roll"_s
                   : sku == "UnknownSupply"_L1 ? u"in no catalogue: "_s + rollText(m_library)
                                               : rollText(m_library);
    } else if (name == "ribbonChangedSignal"_L1) {
        QStringList texts;
        for (const QString &sku : record.arguments.first().toStringList())
            texts.append(ribbonText(m_library, sku));
        row.says = texts.join("; "_L1);
    } else if (name.endsWith("PercentChanged"_L1)) {
        const double fraction = record.arguments.first().toDouble();
        row.what = u"  > %1 %2"_s.arg(name).arg(fraction, 0, 'g', 6);
        row.says = fraction == -1.0 ? u"no mileage reading yet"_s : barText(fraction);
        if (fraction >= 0.0 && fraction <= lowFraction)
            row.says += u"  low"_s;
    } else if (name.contains("RGB"_L1)) {
        QStringList texts;
        for (const QString &rgb : record.arguments.first().toStringList()) {
            if (rgb.toInt() < 0)
                continue;
            texts.append(rgbText(rgb.toInt()));
            row.rgbs.append(rgb.toInt());
        }
        row.says = texts.isEmpty() ? u"no colour"_s : texts.join(", "_L1);
    } else if (name == "notifySupplySensor"_L1) {
        row.says = judge(Check::EdgeSensor, gatherInstalled(m_library)).findings.first().says;
    } else if (name.startsWith("alert"_L1)) {
        row.says = judge(Check::Combination, gatherInstalled(m_library)).summary;
    }
    return row;
}

void Tour::start()
{
    begin(u"Start"_s);
    tell({u"setup"_s, m_catalogue.path()});
    tell({{},
          u"%1 rolls and %2 ribbons on offer"_s.arg(m_library.supplySKUList().size())
              .arg(m_library.supplyRibbonSKUList().size())});
}

void Tour::decodeTag()
{
    begin(u"A roll's tag is read: 96 bits, then the names of its codes"_s);
    const SupplyC tag(wideRollTag);
    tell({wideRollTag, u"revision %1"_s.arg(tag.tagRevision)});
    const double width = tag.widthInches + tag.widthSixteenths / 16.0;
    const double stripe = tag.secColorWidthInches + tag.secColorWidthSixteenths / 16.0;
    const int color = m_library.getColorRGBFromEnum(tag.colorEnum);
    const int stripeColor = m_library.getSecColorRGBFromEnum(tag.secColorEnum);
    tell({u"  material %1, format %2"_s.arg(tag.materialEnum).arg(tag.formatEnum),
          m_library.getMaterialNameFromEnum(tag.materialEnum) + u", "_s +
              m_library.getFormatNameFromEnum(tag.formatEnum).toLower()});
    tell({u"  width %1, length %2"_s.arg(tag.widthInches).arg(tag.lengthFeet),
          u"%1 wide, %2 ft long"_s.arg(inchText(width)).arg(tag.lengthFeet)});
    tell({u"  colour %1"_s.arg(tag.colorEnum), m_library.getColorNameFromEnum(tag.colorEnum, false), {color}});
    tell({u"  stripe %1, %2 + %3/16"_s.arg(tag.secColorEnum)
              .arg(tag.secColorWidthInches)
              .arg(tag.secColorWidthSixteenths),
          u"%1, %2 wide"_s.arg(m_library.getSecColorNameFromEnum(tag.secColorEnum, false), inchText(stripe)),
          {stripeColor}});
}

void Tour::print()
{
    begin(u"Printing, until the roll is low"_s);
    for (const int mileage : {30480, 18288, 7620, 2438}) {
        const QList<SignalRecord> records = call(u"setSupplyMileage"_s, {mileage});
        const Row row = meaning(records.first());
        tell({u"setSupplyMileage %1"_s.arg(mileage), row.says});
    }
    callAndTell(u"setRibbon1Mileage"_s, {71500});
    callAndTell(u"setRibbon2Mileage"_s, {30000});
}

void Tour::wrongRibbon()
{
    begin(u"A wrong ribbon, and why it is wrong"_s);
    const QStringList ids = {QString::number(goodRibbon1), QString::number(narrowRibbon)};
    QStringList told = {u"ribbonChangedSignal"_s};
    for (const QMetaMethod &signal : ownSignals(*m_library.metaObject())) {
        if (signal.name().startsWith("alert"))
            told.append(QString::fromLatin1(signal.name()));
    }
    callAndTell(u"setRibbonIds"_s, {ids}, told);
    const Verdict verdict = judge(Check::Combination, gatherInstalled(m_library));
    for (const Finding &finding : verdict.findings) {
        if (finding.ribbon == 2)
            tell({u"  %1: %2"_s.arg(finding.rule, finding.outcome == Outcome::Fires ? u"fires"_s : u"passes"_s),
                  finding.says});
    }
    for (const Reading &reading : verdict.readings) {
        if (!reading.name.contains(u"ribbon 1"_s))
            tell({u"  %1 = %2"_s.arg(reading.name, reading.text), reading.source});
    }
}

void Tour::unknownRoll()
{
    begin(u"A roll that is in no catalogue: the tag answers"_s);
    callAndTell(u"setSupplyId"_s, {unknownRollTag});
    const QString sku = m_library.supplySKU();
    tell({u"supplyMaterialName %1"_s.arg(literal(sku)), m_library.supplyMaterialName(sku)});
    tell({u"supplyRibbonHeat \"RW530901\" 1 %1"_s.arg(literal(sku)),
          QString::number(m_library.supplyRibbonHeat(u"RW530901"_s, 1, sku))});
}

void Tour::finish()
{
    begin(u"Reset: the roll is taken out"_s);
    callAndTell(u"setSupplyId"_s, {unsetString});
}

void Tour::run()
{
    if (!m_out.json()) {
        m_out.write(emphasised(u"What a host asks and hears, from start to reset"_s, m_out.style()) +
                    u"\ncalls stand on the left, > is a signal in its order, the meaning is on the right\n"_s);
    }
    start();
    decodeTag();
    begin(u"The roll is loaded"_s);
    callAndTell(u"setSupplyId"_s, {wideRollTag});
    begin(u"Ribbons are loaded"_s);
    callAndTell(u"setRibbonIds"_s, {QStringList{QString::number(goodRibbon1), QString::number(goodRibbon2)}});
    print();
    wrongRibbon();
    unknownRoll();
    finish();
    if (m_out.json())
        m_out.write(QJsonObject{{u"catalogue"_s, m_catalogue.path()}, {u"steps"_s, m_steps}});
    else
        m_out.write(u"\nzrsupply session lets you play the host; zrsupply --help lists the other verbs.\n"_s);
}

/// The tour is told on supplies of the sample catalogue.
void requireSample(Catalogue &catalogue)
{
    ZrSupplyDatabase &library = catalogue.library();
    const QString known = library.getSkuFromSupplyId(wideRollTag.left(20));
    const QString ribbon =
        library.getSkusFromRibbonIds({QString::number(goodRibbon1), QString::number(narrowRibbon)}).join(u' ');
    if (known == "00144463"_L1 && !ribbon.contains(unsetString))
        return;
    throw Failure{Status::Failed,
                  u"%1 is not the sample catalogue, which the demo is about"_s.arg(catalogue.path()),
                  u"leave --catalogue and ZRSUPPLY_CATALOGUE out; zrsupply session plays on any catalogue"_s,
                  {}};
}

Status run(const Invocation &call, Output &out)
{
    Catalogue catalogue(call);
    requireSample(catalogue);
    Tour(catalogue, out).run();
    return Status::Ok;
}

} // namespace

Command demoCommand()
{
    return {
        u"demo"_s,
        u"Show the whole job on the sample catalogue"_s,
        u"A tour: start, a tag decoded, a roll and two ribbons loaded, printing until the roll is low, a wrong ribbon"
        " and why it is wrong, a roll that is in no catalogue, reset. Every line is what the library answers or"
        " announces at that moment."_s,
        {},
        {},
        {{u"demo"_s, u"The tour."_s}, {u"demo --language 1"_s, u"With the names in German."_s}},
        {{Status::Ok, u"shown"_s}, {Status::Failed, u"the catalogue is not the sample, or could not be used"_s}},
        run,
    };
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
// The object: what it holds when new, what init() puts back, and what only stores.

#include "support/fixturecatalogue.h"
#include "support/recordingdriver.h"
#include "support/signallog.h"
#include "support/tagreference.h"

#include <zrsupplydatabase.h>

#include <QtCore/QRegularExpression>
#include <QtSql/QSqlDatabase>
#include <QtTest/QTest>

#include <type_traits>
#include <vector>

using namespace Qt::Literals::StringLiterals;

static_assert(std::is_same_v<decltype(unsetString), const QString>);
static_assert(std::is_base_of_v<QObject, ZrSupplyDatabase>);
static_assert(!std::is_constructible_v<ZrSupplyDatabase, QObject *>, "the host owns the object");

namespace {

/// What an accessor answers, as text that also tells 1 from 1.0 and a null text from an empty one.
QString written(double value)
{
    return u"double "_s + QString::number(value, 'g', 17);
}
QString written(int value)
{
    return u"int "_s + QString::number(value);
}
QString written(bool value)
{
    return value ? u"true"_s : u"false"_s;
}
QString written(const QString &value)
{
    return value.isNull() ? u"null text"_s : u'"' + value + u'"';
}
QString written(const QStringList &values)
{
    QStringList entries;
    for (const QString &value : values)
        entries.append(written(value));
    return u'[' + entries.join(", "_L1) + u']';
}

template <auto Method>
QString answer(ZrSupplyDatabase &database)
{
    if constexpr (std::is_invocable_v<decltype(Method), ZrSupplyDatabase &>)
        return written((database.*Method)());
    else
        return written((database.*Method)(QString()));
}

/// What becomes of a member when init() runs on an object in use.
enum class Init { Unsets, Appends, Keeps, Ignores };

struct Accessor
{
    const char *name;
    QString (*read)(ZrSupplyDatabase &);
    /// Of a new object.
    QString unset;
    Init init;
};

#define ACCESSOR(name, unset, init)                                                                                  \
    Accessor                                                                                                         \
    {                                                                                                                \
#name, answer < &ZrSupplyDatabase::name>, unset, Init::init                                                  \
    }

/// Everything that answers from the members alone; the roll attributes do so for an empty SKU.
const std::vector<Accessor> &accessors()
{
    static const std::vector<Accessor> all = {
        ACCESSOR(supplySKU, u"\"-1\""_s, Unsets),
        ACCESSOR(supplyRibbonSKUs, u"[\"-1\", \"-1\"]"_s, Appends),
        ACCESSOR(supplyTagLength, u"int -12"_s, Unsets),
        ACCESSOR(ribbonTagLength, u"int 4725"_s, Ignores),
        ACCESSOR(supplyId, u"\"-1\""_s, Unsets),
        ACCESSOR(supplyUid, u"\"-1\""_s, Unsets),
        ACCESSOR(ribbon1Uid, u"\"-1\""_s, Unsets),
        ACCESSOR(ribbon2Uid, u"\"-1\""_s, Unsets),
        ACCESSOR(supplySupplyPercent, u"double -1"_s, Unsets),
        ACCESSOR(supplyRibbon1Percent, u"double -1"_s, Unsets),
        ACCESSOR(supplyRibbon2Percent, u"double -1"_s, Unsets),
        ACCESSOR(supplySupplyRGB, u"\"-1\""_s, Unsets),
        ACCESSOR(supplyRibbon1RGBs, u"[\"-1\", \"-1\"]"_s, Appends),
        ACCESSOR(supplyRibbon2RGBs, u"[\"-1\", \"-1\"]"_s, Appends),
        ACCESSOR(ribbon1Type, u"\"-1\""_s, Unsets),
        ACCESSOR(ribbon2Type, u"\"-1\""_s, Unsets),
        ACCESSOR(supplySwiftLift, u"false"_s, Keeps),
        ACCESSOR(supplySecColorWidth, u"double -1"_s, Unsets),
        ACCESSOR(supplySecColorRGB, u"int -1"_s, Unsets),
        ACCESSOR(supplySecColorName, u"null text"_s, Unsets),
        ACCESSOR(supplySecColorNameEn, u"null text"_s, Keeps),
        ACCESSOR(supplyLength, u"double -1"_s, Unsets),
        ACCESSOR(supplyMaterial, u"int -1"_s, Unsets),
        ACCESSOR(supplyMaterialName, u"null text"_s, Unsets),
        ACCESSOR(supplyFormat, u"int -1"_s, Unsets),
        ACCESSOR(supplyColorRGB, u"int -1"_s, Unsets),
        ACCESSOR(supplyColorName, u"null text"_s, Unsets),
        ACCESSOR(supplyColorNameEn, u"null text"_s, Keeps),
        ACCESSOR(supplyWidth, u"double -1"_s, Unsets),
        ACCESSOR(supplyIsLandscape, u"int 0"_s, Keeps),
        ACCESSOR(supplySeparatorWidth, u"double -1"_s, Unsets),
        ACCESSOR(supplyNonContinuousLength, u"double -1"_s, Unsets),
        ACCESSOR(supplyMultiUpCount, u"int 0"_s, Keeps),
        ACCESSOR(supplyMultiUpGapSize, u"double 0"_s, Keeps),
    };
    return all;
}

#undef ACCESSOR

/// All answers, one line an accessor: `supplySKU "-1"`.
QStringList answers(ZrSupplyDatabase &database)
{
    QStringList lines;
    for (const Accessor &accessor : accessors())
        lines.append(QString::fromLatin1(accessor.name) + u' ' + accessor.read(database));
    return lines;
}

/// A tag with a value in every field that its layout carries; its codes have rows in the fixture.
QString tagOf(int formatEnum, int tagRevision)
{
    TagRecord tag;
    tag.mileageBaseFeet = 100;
    tag.swiftLift = true;
    tag.secColorWidthSixteenths = 3;
    tag.secColorWidthInches = 1;
    tag.secColorEnum = 12;
    tag.lengthFeet = 150;
    tag.materialEnum = 5;
    tag.formatEnum = formatEnum;
    tag.colorEnum = 3;
    tag.widthSixteenths = 4;
    tag.widthInches = 4;
    tag.tagRevision = tagRevision;
    tag.formatEnumRev1 = 41;
    tag.multiUpCountCode = 2;
    tag.multiUpGapCode = 2;
    tag.typeIndex = 4;
    tag.separatorWidthCode = 1;
    tag.nonContinuousLengthSixteenths = 8;
    tag.nonContinuousLengthInches = 3;
    return TagReference::encode(tag);
}

/// An object in use: a roll with this tag, two ribbons, readings, ids, another language; every member has changed.
void use(ZrSupplyDatabase &database, const QString &tagHex)
{
    database.setLanguageId(7);
    database.setSupplyMileage(3000);
    database.setSupplyId(tagHex);
    database.setSupplySKU(u"DIECUT"_s);
    database.setRibbonIds({u"12"_s, u"13"_s});
    database.setRibbon1Mileage(4000);
    database.setRibbon2Mileage(5000);
    database.setSupplyUid(u"roll uid"_s);
    database.setRibbon1Uid(u"ribbon 1 uid"_s);
    database.setRibbon2Uid(u"ribbon 2 uid"_s);
    QVERIFY(QMetaObject::invokeMethod(&database, "updateRibbon1Type"));
    QVERIFY(QMetaObject::invokeMethod(&database, "updateRibbon2Type"));
}

QList<double> fractions(ZrSupplyDatabase &database)
{
    return {database.supplySupplyPercent(), database.supplyRibbon1Percent(), database.supplyRibbon2Percent()};
}

} // namespace

class TestZrSupplyDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void unsetText();
    void isAnObjectOfItsHost();
    void construction();
    void unsetAnswers_data();
    void unsetAnswers();
    void answersInUse();
    void initAccumulates();
    void initAfterUse_data();
    void initAfterUse();
    void initSetsTheLanguageBack();
    void initKeepsTheTagsRevision();
    void initForgetsTheReadings();
    void initForgetsTheLengths();
    void settersOnlyStore_data();
    void settersOnlyStore();
    void languageIsOnlyStored();
    void tagOnlyAnswers_data();
    void tagOnlyAnswers();
    void tagLength_data();
    void tagLength();
    void answersAreCopies();
    void noQueries();
};

void TestZrSupplyDatabase::cleanup()
{
    QVERIFY2(QSqlDatabase::connectionNames().isEmpty(), "a connection was left behind");
}

void TestZrSupplyDatabase::unsetText()
{
    QCOMPARE(unsetString, u"-1"_s);
}

void TestZrSupplyDatabase::isAnObjectOfItsHost()
{
    ZrSupplyDatabase database;
    QVERIFY(database.parent() == nullptr);
    QVERIFY(database.children().isEmpty());
    QVERIFY(database.thread() == QThread::currentThread());
    QCOMPARE(database.metaObject()->superClass(), &QObject::staticMetaObject);
    QCOMPARE(database.metaObject()->className(), "ZrSupplyDatabase");
}

void TestZrSupplyDatabase::construction()
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
    ZrSupplyDatabase database;
    QVERIFY(QSqlDatabase::connectionNames().isEmpty());
    // Members that are given no value by init(): zero until a tag is read.
    QCOMPARE(database.supplyTypeIndex(u"UnknownSupply"_s), -1);
    QCOMPARE(database.supplyFormat(u"UnknownSupply"_s), -1);
}

void TestZrSupplyDatabase::unsetAnswers_data()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < accessors().size(); ++i)
        QTest::newRow(accessors()[i].name) << int(i);
}

void TestZrSupplyDatabase::unsetAnswers()
{
    QFETCH(int, index);
    const Accessor &accessor = accessors()[std::size_t(index)];
    ZrSupplyDatabase database;
    QCOMPARE(accessor.read(database), accessor.unset);
    // An object does not inherit what the memory held before.
    alignas(ZrSupplyDatabase) std::byte memory[sizeof(ZrSupplyDatabase)];
    std::fill(std::begin(memory), std::end(memory), std::byte{0xA5});
    auto *placed = new (memory) ZrSupplyDatabase;
    QCOMPARE(accessor.read(*placed), accessor.unset);
    std::destroy_at(placed);
}

void TestZrSupplyDatabase::answersInUse()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    use(database, tagOf(2, 0));
    const auto fraction = [](int mileageMm, double tagLength, double length) {
        return written((mileageMm * 0.0393701 - tagLength + length) / length);
    };
    const QStringList expected = {
        u"supplySKU \"DIECUT\""_s,
        u"supplyRibbonSKUs [\"RIB-ONE\", \"RIB-TWO\"]"_s,
        u"supplyTagLength int 1200"_s,
        u"ribbonTagLength int 4725"_s,
        u"supplyId \"%1\""_s.arg(tagOf(2, 0)),
        u"supplyUid \"roll uid\""_s,
        u"ribbon1Uid \"ribbon 1 uid\""_s,
        u"ribbon2Uid \"ribbon 2 uid\""_s,
        u"supplySupplyPercent "_s + fraction(3000, 1200.0, 1800.0),
        u"supplyRibbon1Percent "_s + fraction(4000, 4725.0, 4725.0),
        u"supplyRibbon2Percent "_s + fraction(5000, 4725.0, 4800.0),
        u"supplySupplyRGB \"255\""_s,
        u"supplyRibbon1RGBs [\"0\", \"-1\"]"_s,
        u"supplyRibbon2RGBs [\"0\", \"16711680\"]"_s,
        u"ribbon1Type \"Harz\""_s,
        u"ribbon2Type \"Wachs\""_s,
        u"supplySwiftLift true"_s,
        u"supplySecColorWidth double 1.1875"_s,
        u"supplySecColorRGB int 16711680"_s,
        u"supplySecColorName \"Rot\""_s,
        u"supplySecColorNameEn \"Red (en)\""_s,
        u"supplyLength double 1800"_s,
        u"supplyMaterial int 5"_s,
        u"supplyMaterialName \"Papier\""_s,
        u"supplyFormat int 2"_s,
        u"supplyColorRGB int 255"_s,
        u"supplyColorName \"Blau\""_s,
        u"supplyColorNameEn \"Blue (en)\""_s,
        u"supplyWidth double 4.25"_s,
        u"supplyIsLandscape int 1"_s,
        u"supplySeparatorWidth double 0.0625"_s,
        u"supplyNonContinuousLength double 0"_s,
        u"supplyMultiUpCount int 1"_s,
        u"supplyMultiUpGapSize double 0.1875"_s,
    };
    QCOMPARE(answers(database), expected);
}

void TestZrSupplyDatabase::initAccumulates()
{
    ZrSupplyDatabase database;
    SignalLog log(&database);
    // Deliberate: the lists are not cleared, each run appends two entries more.
    for (qsizetype entries = 2; entries <= 10; entries += 2) {
        const QStringList unset(entries, u"-1"_s);
        QCOMPARE(database.supplyRibbonSKUs(), unset);
        QCOMPARE(database.supplyRibbon1RGBs(), unset);
        QCOMPARE(database.supplyRibbon2RGBs(), unset);
        database.init();
    }
    QCOMPARE(log.take(), QStringList());

    // The same run inside a reset.
    database.setSupplyId(u"-1"_s);
    QCOMPARE(database.supplyRibbonSKUs(), QStringList(14, u"-1"_s));
}

void TestZrSupplyDatabase::initAfterUse_data()
{
    QTest::addColumn<QString>("tagHex");
    QTest::newRow("striped, revision 0") << tagOf(2, 0);
    QTest::newRow("die-cut, revision 3") << tagOf(9, 3);
}

void TestZrSupplyDatabase::initAfterUse()
{
    QFETCH(QString, tagHex);
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    use(database, tagHex);
    QList<QString> before;
    for (const Accessor &accessor : accessors())
        before.append(accessor.read(database));

    SignalLog log(&database);
    database.init();
    QCOMPARE(log.take(), QStringList());
    for (std::size_t i = 0; i < accessors().size(); ++i) {
        const Accessor &accessor = accessors()[i];
        const QString &used = before.at(qsizetype(i));
        QString expected = used;
        if (accessor.init == Init::Unsets)
            expected = accessor.unset;
        else if (accessor.init == Init::Appends)
            expected = used.chopped(1) + u", \"-1\", \"-1\"]"_s;
        QVERIFY2(accessor.read(database) == expected,
                 qPrintable(QString::fromLatin1(accessor.name) + u": "_s + accessor.read(database) +
                            u", expected "_s + expected));
    }
}

void TestZrSupplyDatabase::initSetsTheLanguageBack()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    QCOMPARE(database.getMaterialNameFromEnum(1), u"Vinyl"_s);
    database.setLanguageId(7);
    QCOMPARE(database.getMaterialNameFromEnum(1), u"Folie"_s);
    database.init();
    QCOMPARE(database.getMaterialNameFromEnum(1), u"Vinyl"_s);
}

void TestZrSupplyDatabase::initKeepsTheTagsRevision()
{
    ZrSupplyDatabase database;
    database.setSupplyId(tagOf(9, 1));
    QCOMPARE(database.supplyFormat(), 41);
    database.init();
    // Neither the revision nor the format code of revision 1 is among what init() sets.
    QCOMPARE(database.supplyFormat(), 41);

    database.setSupplyId(tagOf(9, 3));
    QCOMPARE(database.supplyTypeIndex(u"UnknownSupply"_s), 4);
    database.init();
    QCOMPARE(database.supplyTypeIndex(u"UnknownSupply"_s), -1);
}

void TestZrSupplyDatabase::initForgetsTheReadings()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    use(database, tagOf(2, 0));
    database.init();
    // The lengths are known again, the mileages are not.
    database.setSupplyId(tagOf(2, 0));
    database.setRibbonIds({u"12"_s, u"13"_s});
    QCOMPARE(fractions(database), QList<double>({-1.0, -1.0, -1.0}));
}

void TestZrSupplyDatabase::initForgetsTheLengths()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    use(database, tagOf(2, 0));
    database.init();
    // The mileages are known again, the lengths are not.
    database.setSupplyMileage(3000);
    database.setRibbon1Mileage(4000);
    database.setRibbon2Mileage(5000);
    QCOMPARE(fractions(database), QList<double>({-1.0, -1.0, -1.0}));
}

void TestZrSupplyDatabase::settersOnlyStore_data()
{
    QTest::addColumn<QByteArray>("setter");
    QTest::addColumn<QString>("accessor");
    QTest::addColumn<QString>("value");
    const std::pair<const char *, QString> setters[] = {
        {"setSupplySKU", u"supplySKU"_s},
        {"setSupplyUid", u"supplyUid"_s},
        {"setRibbon1Uid", u"ribbon1Uid"_s},
        {"setRibbon2Uid", u"ribbon2Uid"_s},
    };
    const std::pair<const char *, QString> values[] = {
        {"a text", u"X"_s},
        {"an empty text", u""_s},
        {"a null text", QString()},
        {"the unset text", u"-1"_s},
        {"the unknown roll", u"UnknownSupply"_s},
        {"a quote and a placeholder", u"it's 100%1"_s},
        {"other scripts", u"\u00E9\u4E2D\U0001F3F7"_s},
    };
    for (const auto &[setter, accessor] : setters) {
        for (const auto &[name, value] : values)
            QTest::addRow("%s, %s", setter, name) << QByteArray(setter) << accessor << value;
    }
}

void TestZrSupplyDatabase::settersOnlyStore()
{
    QFETCH(QByteArray, setter);
    QFETCH(QString, accessor);
    QFETCH(QString, value);
    const FixtureCatalogue catalogue;
    QStringList texts;
    ZrSupplyDatabase database;
    RecordingDriver::install(catalogue.path(), &texts);
    use(database, tagOf(2, 0));
    QStringList expected = answers(database);
    const qsizetype changed = expected.indexOf(QRegularExpression(accessor + u" .*"_s));
    QVERIFY(changed >= 0);
    expected[changed] = accessor + u' ' + written(value);

    texts.clear();
    SignalLog log(&database);
    QVERIFY(QMetaObject::invokeMethod(&database, setter.constData(), Q_ARG(QString, value)));
    QCOMPARE(answers(database), expected);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(texts, QStringList());
}

void TestZrSupplyDatabase::languageIsOnlyStored()
{
    const FixtureCatalogue catalogue;
    QStringList texts;
    ZrSupplyDatabase database;
    RecordingDriver::install(catalogue.path(), &texts);
    use(database, tagOf(2, 0));
    const QStringList before = answers(database);
    texts.clear();
    SignalLog log(&database);
    // Names that are cached with the tag stay in the language they were looked up in.
    database.setLanguageId(0);
    QCOMPARE(answers(database), before);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(texts, QStringList());
    QCOMPARE(database.getMaterialNameFromEnum(1), u"Vinyl"_s);
    database.setLanguageId(-5);
    database.getMaterialNameFromEnum(1);
    QVERIFY2(texts.constLast().contains("'-5'"_L1), qPrintable(texts.constLast()));
}

void TestZrSupplyDatabase::tagOnlyAnswers_data()
{
    QTest::addColumn<QString>("sku");
    QTest::addColumn<bool>("fromTag");
    QTest::newRow("null SKU") << QString() << true;
    QTest::newRow("empty SKU") << u""_s << true;
    QTest::newRow("a SKU") << u"X"_s << false;
    QTest::newRow("a SKU of the catalogue") << u"CONT-4"_s << false;
    QTest::newRow("the unknown roll") << u"UnknownSupply"_s << false;
    QTest::newRow("a blank") << u" "_s << false;
    QTest::newRow("the unset text") << u"-1"_s << false;
}

void TestZrSupplyDatabase::tagOnlyAnswers()
{
    QFETCH(QString, sku);
    QFETCH(bool, fromTag);
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    QCOMPARE(database.supplySwiftLift(sku), false);
    QCOMPARE(database.supplyMultiUpGapSize(sku), fromTag ? 0.0 : -1.0);
    database.setSupplyId(tagOf(9, 3));
    QCOMPARE(database.supplySwiftLift(sku), fromTag);
    QCOMPARE(database.supplyMultiUpGapSize(sku), fromTag ? 0.1875 : -1.0);
}

void TestZrSupplyDatabase::tagLength_data()
{
    QTest::addColumn<QString>("tagHex");
    QTest::addColumn<int>("inches");
    QTest::newRow("no feet") << QString() << 0;
    QTest::newRow("one foot") << u"008000000000000000000000"_s << 12;
    QTest::newRow("150 feet") << u"4B0000000000000000000000"_s << 1800;
    QTest::newRow("511 feet") << u"FF8000000000000000000000"_s << 6132;
}

void TestZrSupplyDatabase::tagLength()
{
    QFETCH(QString, tagHex);
    QFETCH(int, inches);
    ZrSupplyDatabase database;
    database.setSupplyId(tagHex);
    QCOMPARE(database.supplyTagLength(), inches);
    QCOMPARE(database.ribbonTagLength(), 4725);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(database.supplyTagLength(), -12);
    QCOMPARE(database.ribbonTagLength(), 4725);
}

void TestZrSupplyDatabase::answersAreCopies()
{
    ZrSupplyDatabase database;
    database.supplyRibbonSKUs().clear();
    database.supplyRibbon1RGBs().append(u"x"_s);
    database.supplySKU().append(u'x');
    QCOMPARE(database.supplyRibbonSKUs(), QStringList({u"-1"_s, u"-1"_s}));
    QCOMPARE(database.supplyRibbon1RGBs(), QStringList({u"-1"_s, u"-1"_s}));
    QCOMPARE(database.supplySKU(), u"-1"_s);
}

void TestZrSupplyDatabase::noQueries()
{
    const FixtureCatalogue catalogue;
    QStringList texts;
    ZrSupplyDatabase database;
    RecordingDriver::install(catalogue.path(), &texts);
    use(database, tagOf(9, 3));
    QVERIFY2(!texts.isEmpty(), "taking in a roll asks for the names of its codes");
    texts.clear();
    const QStringList used = answers(database);
    database.init();
    QVERIFY(answers(database) != used);
    QCOMPARE(texts, QStringList());
}

QTEST_GUILESS_MAIN(TestZrSupplyDatabase)

#include "tst_zrsupplydatabase.moc"

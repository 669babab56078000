// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/ask.h"
#include "support/fixturecatalogue.h"
#include "support/statementlist.h"
#include "support/tagtext.h"

#include <QtSql/QSqlDatabase>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A lookup by one text argument: what it asks, and what it answers when there is nothing to answer from.
struct Lookup
{
    const char *operation;
    const char *statement;
    QVariant absent;
    QVariant null;
    QString found;     ///< SKU of a row with a value
    QVariant value;    ///< of that row
    QString foundNull; ///< SKU of a row with NULL
    bool isLocalised = false;
    bool isOfTheTag = true; ///< "UnknownSupply" answers from the tag, without a query
};

const QVariant unsetInt = -1;
const QVariant unsetReal = -1.0;
const QVariant noText = QString();

const QList<Lookup> &lookups()
{
    static const QList<Lookup> all = {
        {"supplySecColorWidth", "stripeWidth", unsetReal, 0.0, u"STRIPED"_s, 0.25, u"NULLS"_s},
        {"supplySecColorRGB", "stripeRgb", unsetInt, -1, u"STRIPED"_s, 16711680, u"NULLS"_s},
        {"supplyMaterial", "rollMaterial", unsetInt, 0, u"DIECUT-18"_s, 18, u"NO-MATERIAL"_s},
        {"supplyColorRGB", "rollRgb", unsetInt, -1, u"CONT-4"_s, 16777215, u"NULLS"_s},
        {"supplyWidth", "rollWidth", unsetReal, 0.0, u"CONT-6"_s, 6.25, u"NULLS"_s},
        {"supplySeparatorWidth", "rollSeparatorWidth", unsetReal, 0.0, u"DIECUT-18"_s, 0.1, u"NULLS"_s},
        {"supplyNonContinuousLength", "rollLabelLength", unsetReal, 0.0, u"DIECUT-18"_s, 1.5, u"NULLS"_s},
        {"supplyMultiUpCount", "rollMultiUpCount", 1, 0, u"DIECUT-18"_s, 4, u"NULLS"_s},
        {"supplySecColorName", "stripeColorName", noText, noText, u"STRIPED"_s, u"Red (en)"_s, u"NULLS"_s, true},
        {"supplySecColorNameEn", "stripeColorNameEn", noText, noText, u"STRIPED"_s, u"Red"_s, u"NO-NAME"_s},
        {"supplyMaterialName", "rollMaterialName", noText, noText, u"DIECUT"_s, u"Paper"_s, u"NULLS"_s, true},
        {"supplyColorName", "rollColorName", noText, noText, u"DIECUT"_s, u"Blue (en)"_s, u"NULLS"_s, true},
        {"supplyColorNameEn", "rollColorNameEn", noText, noText, u"DIECUT"_s, u"Blue"_s, u"NO-NAME"_s},
        // Deliberate: these look "UnknownSupply" up like any SKU.
        {"supplyIsLandscape", "rollLandscape", unsetInt, 0, u"DIECUT-18"_s, 5, u"NULLS"_s, false, false},
        {"getSupplyLength", "rollLength", unsetInt, 0, u"DIECUT"_s, 500, u"NULLS"_s, false, false},
        {"supplyBackgroundImage", "rollBackground", QByteArray(), QByteArray(), u"CONT-4"_s, QByteArray("<svg/>"),
         u"CONT-6"_s, false, false},
        {"supplyFormatFromTable", "rollFormat", 1, 0, u"DIECUT-18"_s, 41, u"NULLS"_s, false, false},
        // By sensor type, not by SKU
        {"supplySensorId", "sensorByType", unsetInt, 0, u"mark"_s, 4, u"sensor without id"_s, false, false},
    };
    return all;
}

bool is(const char *name, const char *other)
{
    return qstrcmp(name, other) == 0;
}

/// The text of a lookup that asks with `sku` in language 0.
QString textFor(const Lookup &lookup, const QString &sku, const QString &language = u"0"_s)
{
    return filled(lookup.statement, lookup.isLocalised ? QStringList{sku, language} : QStringList{sku});
}

/// Rows beyond the fixture's that the lookups below read.
constexpr auto furtherRows = R"(
    INSERT INTO roll (itemNum, materialWidthId, colorId) VALUES ('NO-MATERIAL', 16, 1), ('NO-NAME', 10, 5);
    INSERT INTO continuousstripe (itemNum, secColorWidth, secColorId) VALUES ('NO-NAME', 0.25, 15);
    DROP TABLE supplysensor;
    CREATE TABLE supplysensor (id, supplysensortype);
    INSERT INTO supplysensor VALUES (3, 'gap'), (4, 'mark'), (5, 'edge'), (NULL, 'sensor without id');
)"_L1;

QString continuousTag()
{
    using namespace tagbits;
    return tagText({{format, 2},
                    {stripeWidthInches, 1},
                    {stripeWidthSixteenths, 5},
                    {stripeColor, 12},
                    {color, 3},
                    {material, 5},
                    {widthInches, 4},
                    {widthSixteenths, 3},
                    {lengthFeet, 150}});
}

QString dieCutTag()
{
    using namespace tagbits;
    return tagText({{format, 9},
                    {revision, 2},
                    {swiftLift, 1},
                    {landscape, 0},
                    {separatorSixteenthsLessOne, 1},
                    {labelInches, 4},
                    {labelSixteenths, 8},
                    {color, 4},
                    {material, 18},
                    {widthInches, 63},
                    {widthSixteenths, 15},
                    {multiUpCountLessOne, 4},
                    {multiUpGapLessOne, 2}});
}

} // namespace

/// Roll attributes by SKU: from the catalogue, and from the installed roll's tag.
class TestRolls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_catalogue.run(QString(furtherRows)); }

    void asksTheCatalogue_data();
    void asksTheCatalogue();
    void placeholdersInTheSku_data();
    void placeholdersInTheSku();
    void closedCatalogue_data();
    void closedCatalogue();
    void answersFromTheTag_data();
    void answersFromTheTag();
    void namesAreThoseOfTheLanguageAtTheTagsTime();
    void tagDoesNotHideTheCatalogue();
    void neverAsksTheCatalogue_data();
    void neverAsksTheCatalogue();
    void backgroundOfTheInstalledRoll_data();
    void backgroundOfTheInstalledRoll();

private:
    const FixtureCatalogue m_catalogue;
};

void TestRolls::asksTheCatalogue_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("sku");
    QTest::addColumn<int>("language");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QString>("text");

    for (const Lookup &lookup : lookups()) {
        const auto row = [&lookup](const char *phrase, const QString &sku, const QVariant &expected,
                                   int language = 0) {
            QTest::addRow("%s: %s", lookup.operation, phrase)
                << QString::fromLatin1(lookup.operation) << sku << language << expected
                << textFor(lookup, sku, QString::number(language));
        };
        row("found", lookup.found, lookup.value);
        row("found through an unescaped quote",
            u"' OR %1='%2"_s.arg(is(lookup.statement, "sensorByType") ? u"supplysensortype"_s : u"itemNum"_s,
                                 lookup.found),
            lookup.value);
        row("unknown SKU", u"NOSUCH"_s, lookup.absent);
        row("NULL", lookup.foundNull, lookup.null);
        row("lower case", lookup.found.toLower() + u'x', lookup.absent);
        row("SKU with a blank at the end", lookup.found + u' ', lookup.absent);
        row("SKU with a quote", u"O'NEIL"_s, lookup.absent);
        row("unknown supply in lower case", u"unknownsupply"_s, lookup.absent);
        row("unknown supply in capitals", u"UNKNOWNSUPPLY"_s, lookup.absent);
        row("unknown supply and a blank", u"UnknownSupply "_s, lookup.absent);
        row("unset SKU", u"-1"_s, lookup.absent);
        if (lookup.isLocalised)
            row("language without names", lookup.found, lookup.absent, 8);
        else
            row("language that does not matter", lookup.found, lookup.value, 8);
        if (!lookup.isOfTheTag)
            row("unknown supply is looked up", u"UnknownSupply"_s, lookup.absent);
        if (!lookup.isOfTheTag && !is(lookup.operation, "supplyIsLandscape") &&
            !is(lookup.operation, "supplyBackgroundImage")) {
            row("empty SKU is looked up", QString(), lookup.absent);
        }
    }

    const auto row = [](const char *phrase, const char *operation, const QString &sku, const QVariant &expected,
                        int language = 0) {
        for (const Lookup &lookup : lookups()) {
            if (is(lookup.operation, operation)) {
                QTest::addRow("%s: %s", operation, phrase)
                    << QString::fromLatin1(operation) << sku << language << expected
                    << textFor(lookup, sku, QString::number(language));
            }
        }
    };
    row("language 7", "supplySecColorName", u"STRIPED"_s, u"Rot"_s, 7);
    row("language 7", "supplyMaterialName", u"CONT-4"_s, u"Folie"_s, 7);
    row("language 7", "supplyColorName", u"CONT-4"_s, u"Weiß"_s, 7);
    row("negative language", "supplyColorName", u"CONT-4"_s, noText, -3);
    row("another machine family", "supplyWidth", u"OTHER-FAMILY"_s, 8.0);
    row("another machine family", "supplyMaterial", u"OTHER-FAMILY"_s, 1);
    row("another machine family", "getSupplyLength", u"OTHER-FAMILY"_s, 75);
    row("another machine family", "supplyColorRGB", u"OTHER-FAMILY"_s, 16777215);
    row("another row", "supplyWidth", u"DIECUT"_s, 3.5);
    row("continuous roll", "supplyNonContinuousLength", u"CONT-4"_s, 0.0);
    row("another row", "supplyMaterial", u"CONT-6"_s, 1);
    row("another row", "supplyMultiUpCount", u"CONT-6"_s, 2);
    row("not landscape", "supplyIsLandscape", u"CONT-4"_s, 0);
    row("landscape", "supplyIsLandscape", u"CONT-6"_s, 1);
    row("another row", "supplySeparatorWidth", u"DIECUT"_s, 0.125);
    row("another row", "getSupplyLength", u"CONT-4"_s, 150);
    row("SKU that starts with zeros", "supplyWidth", u"00143221"_s, 4.0);
    row("SKU without its zeros", "supplyWidth", u"143221"_s, unsetReal);
    row("roll without a stripe", "supplySecColorWidth", u"CONT-4"_s, unsetReal);
    row("roll without a stripe", "supplySecColorRGB", u"CONT-4"_s, unsetInt);
    row("roll without a stripe", "supplySecColorName", u"CONT-4"_s, noText);
    row("roll without a stripe", "supplySecColorNameEn", u"CONT-4"_s, noText);
    row("roll without a die-cut row", "supplySeparatorWidth", u"CONT-4"_s, unsetReal);
    row("roll without a die-cut row", "supplyFormatFromTable", u"CONT-4"_s, 1);
    row("another row", "supplyFormatFromTable", u"DIECUT"_s, 9);
    row("width row that is missing", "supplyWidth", u"DANGLING"_s, unsetReal);
    row("width row that is missing", "supplyMaterial", u"DANGLING"_s, unsetInt);
    row("width row that is missing", "supplyMaterialName", u"DANGLING"_s, noText);
    row("width row that is missing", "getSupplyLength", u"DANGLING"_s, unsetInt);
    row("colour row that is missing", "supplyColorRGB", u"DANGLING"_s, unsetInt);
    row("colour row that is missing", "supplyColorNameEn", u"DANGLING"_s, noText);
    row("colour row that is missing", "supplySecColorRGB", u"DANGLING"_s, unsetInt);
    row("stripe whose colour is missing", "supplySecColorWidth", u"DANGLING"_s, 0.5);
    row("no background", "supplyBackgroundImage", u"STRIPED"_s, QByteArray());
    row("background row that is missing", "supplyBackgroundImage", u"DIECUT-18"_s, QByteArray());
    row("names of its colour that are NULL", "supplyColorName", u"NULLS"_s, noText);
    row("material without code", "supplyMaterialName", u"NO-MATERIAL"_s, noText);
    row("another sensor", "supplySensorId", u"gap"_s, 3);
    row("another sensor", "supplySensorId", u"edge"_s, 5);
    row("wrong case", "supplySensorId", u"Gap"_s, unsetInt);
}

void TestRolls::asksTheCatalogue()
{
    QFETCH(QString, operation);
    QFETCH(QString, sku);
    QFETCH(int, language);
    QFETCH(QVariant, expected);
    QFETCH(QString, text);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setLanguageId(language);
    // The tag of an installed roll takes no part.
    ask::takeTag(*recorded, dieCutTag());
    recorded->setSupplySKU(u"CONT-4"_s);
    QVERIFY(answers(recorded, operation, {sku}, expected, {text}));
}

void TestRolls::placeholdersInTheSku_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("sku");
    QTest::addColumn<QVariant>("absent");
    QTest::addColumn<QString>("text");

    struct Sku
    {
        QString sku;
        QString afterLanguage; ///< what is left of it when the language is filled in after it
        bool isLanguageUsedUp; ///< by the SKU: the text's own %2 is left over
    };
    const Sku skus[] = {
        {u"A%1B"_s, u"A77B"_s, true},  {u"A%L1B"_s, u"A77B"_s, true},      {u"A%2B"_s, u"A77B"_s, false},
        {u"A%3B"_s, u"A%3B"_s, false}, {u"A%1B%2C"_s, u"A77B%2C"_s, true}, {u"100%"_s, u"100%"_s, false},
    };
    for (const Lookup &lookup : lookups()) {
        for (const Sku &sku : skus) {
            // One value goes in as it stands; a language that follows it finds the placeholders that it brought in.
            const QString text = lookup.isLocalised
                                     ? textFor(lookup, sku.afterLanguage, sku.isLanguageUsedUp ? u"%2"_s : u"77"_s)
                                     : textFor(lookup, sku.sku);
            QTest::addRow("%s: %s", lookup.operation, qPrintable(sku.sku))
                << QString::fromLatin1(lookup.operation) << sku.sku << lookup.absent << text;
        }
    }
}

void TestRolls::placeholdersInTheSku()
{
    QFETCH(QString, operation);
    QFETCH(QString, sku);
    QFETCH(QVariant, absent);
    QFETCH(QString, text);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setLanguageId(77);
    QVERIFY(answers(recorded, operation, {sku}, absent, {text}));
}

void TestRolls::closedCatalogue_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("sku");
    QTest::addColumn<QVariant>("expected");
    for (const Lookup &lookup : lookups()) {
        QTest::addRow("%s", lookup.operation)
            << QString::fromLatin1(lookup.operation) << lookup.found << lookup.absent;
    }
}

void TestRolls::closedCatalogue()
{
    QFETCH(QString, operation);
    QFETCH(QString, sku);
    QFETCH(QVariant, expected);
    {
        ZrSupplyDatabase neverOpened;
        QCOMPARE(ask::directly(neverOpened, operation, {sku}), expected);
    }
    {
        const QuietQt quiet;
        ZrSupplyDatabase closed;
        QSqlDatabase::addDatabase(u"QSQLITE"_s, u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s)
            .setDatabaseName(m_catalogue.path() + u"/no folder"_s);
        QCOMPARE(ask::directly(closed, operation, {sku}), expected);
    }
    {
        const FixtureCatalogue withoutTables(FixtureCatalogue::Rows::None);
        withoutTables.run(u"DROP TABLE roll; DROP TABLE continuousstripe; DROP TABLE noncontinuous; "
                          "DROP TABLE supplysensor;"_s);
        ZrSupplyDatabase open;
        QVERIFY(open.setup(withoutTables.path()));
        QCOMPARE(ask::directly(open, operation, {sku}), expected);
    }
}

void TestRolls::answersFromTheTag_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("tag"); // "" is no tag
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<bool>("isUnknownSupplyAsked");

    const auto row = [](const char *phrase, const char *operation, const QString &tag, const QVariant &expected) {
        QTest::addRow("%s: %s", operation, phrase)
            << QString::fromLatin1(operation) << tag << expected << (is(operation, "supplyIsLandscape"));
    };
    row("no tag", "supplySecColorWidth", QString(), unsetReal);
    row("no tag", "supplySecColorRGB", QString(), unsetInt);
    row("no tag", "supplySecColorName", QString(), noText);
    row("no tag", "supplySecColorNameEn", QString(), noText);
    row("no tag", "supplyMaterial", QString(), unsetInt);
    row("no tag", "supplyMaterialName", QString(), noText);
    row("no tag", "supplyColorRGB", QString(), unsetInt);
    row("no tag", "supplyColorName", QString(), noText);
    row("no tag", "supplyColorNameEn", QString(), noText);
    row("no tag", "supplyWidth", QString(), unsetReal);
    row("no tag", "supplySeparatorWidth", QString(), unsetReal);
    row("no tag", "supplyNonContinuousLength", QString(), unsetReal);

    row("striped", "supplySecColorWidth", continuousTag(), 1.3125);
    row("striped", "supplySecColorRGB", continuousTag(), 16711680);
    row("striped", "supplySecColorName", continuousTag(), u"Rot"_s);
    row("striped", "supplySecColorNameEn", continuousTag(), u"Red (en)"_s);
    row("striped", "supplyMaterial", continuousTag(), 5);
    row("striped", "supplyMaterialName", continuousTag(), u"Papier"_s);
    row("striped", "supplyColorRGB", continuousTag(), 255);
    row("striped", "supplyColorName", continuousTag(), u"Blau"_s);
    row("striped", "supplyColorNameEn", continuousTag(), u"Blue (en)"_s);
    row("striped", "supplyWidth", continuousTag(), 4.1875);
    row("striped", "supplyMultiUpCount", continuousTag(), 1);
    row("striped", "supplyIsLandscape", continuousTag(), 1);
    row("striped", "supplySeparatorWidth", continuousTag(), 0.0625);
    row("striped", "supplyNonContinuousLength", continuousTag(), 0.0);

    row("die-cut", "supplySecColorWidth", dieCutTag(), 0.0);
    row("die-cut, colour 0 that the catalogue does not know", "supplySecColorRGB", dieCutTag(), unsetInt);
    row("die-cut, colour 0 that the catalogue does not know", "supplySecColorName", dieCutTag(), u"-1"_s);
    row("die-cut, colour 0 that the catalogue does not know", "supplySecColorNameEn", dieCutTag(), u"-1"_s);
    row("die-cut", "supplyMaterial", dieCutTag(), 18);
    row("die-cut", "supplyMaterialName", dieCutTag(), u"Polyesterfolie"_s);
    row("die-cut, colour without a measured value", "supplyColorRGB", dieCutTag(), 0);
    row("die-cut, colour without a name in this language", "supplyColorName", dieCutTag(), u"-1"_s);
    row("die-cut, colour whose English name is NULL", "supplyColorNameEn", dieCutTag(), noText);
    row("die-cut", "supplyWidth", dieCutTag(), 63.9375);
    row("die-cut", "supplyMultiUpCount", dieCutTag(), 5);
    row("die-cut", "supplyIsLandscape", dieCutTag(), 0);
    row("die-cut", "supplySeparatorWidth", dieCutTag(), 0.125);
    row("die-cut", "supplyNonContinuousLength", dieCutTag(), 4.5);
}

void TestRolls::answersFromTheTag()
{
    QFETCH(QString, operation);
    QFETCH(QString, tag);
    QFETCH(QVariant, expected);
    QFETCH(bool, isUnknownSupplyAsked);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setLanguageId(7);
    recorded->setSupplySKU(u"DIECUT"_s);
    if (!tag.isEmpty())
        ask::takeTag(*recorded, tag);

    QVERIFY(answers(recorded, operation, {QString()}, expected, {}));
    QVERIFY(answers(recorded, operation, {u""_s}, expected, {}));
    // Without an argument, by name
    QCOMPARE(ask::byName(*recorded, operation, {}), expected);
    QCOMPARE(recorded.takeTexts(), QStringList());
    if (isUnknownSupplyAsked)
        QVERIFY(
            answers(recorded, operation, {u"UnknownSupply"_s}, -1, {filled("rollLandscape", {u"UnknownSupply"_s})}));
    else
        QVERIFY(answers(recorded, operation, {u"UnknownSupply"_s}, expected, {}));
}

void TestRolls::namesAreThoseOfTheLanguageAtTheTagsTime()
{
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setLanguageId(7);
    ask::takeTag(*recorded, continuousTag());
    recorded->setLanguageId(0);
    QVERIFY(answers(recorded, u"supplyColorName"_s, {QString()}, u"Blau"_s, {}));
    QVERIFY(answers(recorded, u"supplySecColorName"_s, {QString()}, u"Rot"_s, {}));
    QVERIFY(answers(recorded, u"supplyMaterialName"_s, {QString()}, u"Papier"_s, {}));
}

void TestRolls::tagDoesNotHideTheCatalogue()
{
    RecordedDatabase recorded(m_catalogue.path());
    ask::takeTag(*recorded, continuousTag());
    QVERIFY(answers(recorded, u"supplyWidth"_s, {u"CONT-6"_s}, 6.25, {filled("rollWidth", {u"CONT-6"_s})}));
    QVERIFY(answers(recorded, u"supplyWidth"_s, {u"NOSUCH"_s}, -1.0, {filled("rollWidth", {u"NOSUCH"_s})}));
}

void TestRolls::neverAsksTheCatalogue_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<bool>("swiftLift");
    QTest::addColumn<double>("gapInches");
    QTest::newRow("all bits") << QString(24, u'F') << true << 0.25;
    QTest::newRow("die-cut") << dieCutTag() << true << 0.1875;
    QTest::newRow("striped") << continuousTag() << false << 0.0625;
}

/// Deliberate: the catalogue does not hold what these two answer, so a SKU gives false and -1.0.
void TestRolls::neverAsksTheCatalogue()
{
    QFETCH(QString, tag);
    QFETCH(bool, swiftLift);
    QFETCH(double, gapInches);
    RecordedDatabase recorded(m_catalogue.path());
    ask::takeTag(*recorded, tag);
    for (const QVariantList &noSku : {QVariantList{QString()}, QVariantList{u""_s}}) {
        QVERIFY(answers(recorded, u"supplySwiftLift"_s, noSku, swiftLift, {}));
        QVERIFY(answers(recorded, u"supplyMultiUpGapSize"_s, noSku, gapInches, {}));
    }
    QCOMPARE(ask::byName(*recorded, u"supplySwiftLift"_s, {}), swiftLift);
    QCOMPARE(ask::byName(*recorded, u"supplyMultiUpGapSize"_s, {}), gapInches);
    for (const QString &sku : {u"CONT-4"_s, u"UnknownSupply"_s, u"NOSUCH"_s, u" "_s}) {
        QVERIFY(answers(recorded, u"supplySwiftLift"_s, {sku}, false, {}));
        QVERIFY(answers(recorded, u"supplyMultiUpGapSize"_s, {sku}, -1.0, {}));
    }
}

void TestRolls::backgroundOfTheInstalledRoll_data()
{
    QTest::addColumn<QVariant>("installed"); // invalid: never set
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("with a background") << QVariant(u"CONT-4"_s) << u"CONT-4"_s << QByteArray("<svg/>");
    QTest::newRow("NULL background") << QVariant(u"CONT-6"_s) << u"CONT-6"_s << QByteArray();
    QTest::newRow("unknown supply") << QVariant(u"UnknownSupply"_s) << u"UnknownSupply"_s << QByteArray();
    QTest::newRow("empty SKU") << QVariant(QString()) << QString() << QByteArray();
    QTest::newRow("no roll yet") << QVariant() << u"-1"_s << QByteArray();
}

/// Deliberate: an empty SKU means the installed roll's row, since a tag carries no picture.
void TestRolls::backgroundOfTheInstalledRoll()
{
    QFETCH(QVariant, installed);
    QFETCH(QString, asked);
    QFETCH(QByteArray, expected);
    RecordedDatabase recorded(m_catalogue.path());
    if (installed.isValid())
        recorded->setSupplySKU(installed.toString());
    const QStringList texts = {filled("rollBackground", {asked})};
    QVERIFY(answers(recorded, u"supplyBackgroundImage"_s, {QString()}, expected, texts));
    QCOMPARE(ask::byName(*recorded, u"supplyBackgroundImage"_s, {}), expected);
    QCOMPARE(recorded.takeTexts(), texts);
}

QTEST_GUILESS_MAIN(TestRolls)
#include "tst_rolls.moc"

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cataloguesql_p.h"
#include "sqltext_p.h"
#include "support/ask.h"
#include "support/fixturecatalogue.h"
#include "support/statementlist.h"

#include <QtTest/QtTest>

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Named
{
    const char *name;
    QLatin1StringView text;
};

// clang-format off
#define NAMED(statement) {#statement, sql::statement}
constexpr Named constants[] = {
    NAMED(rollWidth), NAMED(rollMaterial), NAMED(rollRgb), NAMED(rollLandscape), NAMED(rollMultiUpCount),
    NAMED(rollLabelLength), NAMED(rollLength), NAMED(rollBackground), NAMED(rollColorNameEn), NAMED(stripeWidth),
    NAMED(stripeRgb), NAMED(stripeColorNameEn), NAMED(rollFormat), NAMED(rollSeparatorWidth), NAMED(rollColorName),
    NAMED(rollMaterialName), NAMED(stripeColorName), NAMED(sensorByType), NAMED(rollSensor), NAMED(colorRgb),
    NAMED(secColorRgb), NAMED(colorName), NAMED(secColorName), NAMED(materialName), NAMED(formatName),
    NAMED(formatType), NAMED(colorTable), NAMED(rollSkus), NAMED(skuBySupplyId), NAMED(countBySupplyId),
    NAMED(ribbonPanels), NAMED(ribbonWidth), NAMED(ribbonLength), NAMED(ribbonType), NAMED(ribbonPanelRgb),
    NAMED(ribbonPanelColorName), NAMED(ribbonHeat), NAMED(ribbonHeatOffset), NAMED(ribbonMaxSpeed),
    NAMED(ribbonTension), NAMED(ribbonSkuById), NAMED(ribbonSkus), NAMED(ribbonColorTable),
};
#undef NAMED
// clang-format on

/// What an operation is asked for when its text is looked at, and the values that then stand in the text.
struct Use
{
    const char *operation;
    QVariantList arguments;
    QStringList values;
};

const QList<Use> &uses()
{
    const QString roll = u"DIECUT"_s;
    const QString ribbon = u"RIB-TWO"_s;
    static const QList<Use> all = {
        {"supplySensorId", {u"mark"_s}, {u"mark"_s}},
        {"supplySecColorWidth", {roll}, {roll}},
        {"supplyFormat", {roll}, {roll}},
        {"supplySecColorRGB", {roll}, {roll}},
        {"supplyMaterial", {roll}, {roll}},
        {"supplyFormatFromTable", {roll}, {roll}},
        {"supplyColorRGB", {roll}, {roll}},
        {"supplyWidth", {roll}, {roll}},
        {"supplyIsLandscape", {roll}, {roll}},
        {"supplySeparatorWidth", {roll}, {roll}},
        {"supplyNonContinuousLength", {roll}, {roll}},
        {"supplyMultiUpCount", {roll}, {roll}},
        {"checkSupplyEdgeSensor", {}, {u"INSTALLED"_s}},
        {"getSupplyLength", {roll}, {roll}},
        {"getColorRGBFromEnum", {3}, {u"3"_s}},
        {"getColorNameFromEnum", {3, false}, {u"3"_s, u"7"_s}},
        {"getSecColorRGBFromEnum", {13}, {u"13"_s}},
        {"getSecColorNameFromEnum", {13, false}, {u"13"_s, u"7"_s}},
        {"getMaterialNameFromEnum", {5}, {u"5"_s, u"7"_s}},
        {"getFormatNameFromEnum", {9}, {u"9"_s, u"7"_s}},
        {"supplyFormatName", {roll}, {u"9"_s, u"7"_s}},
        {"supplyBackgroundImage", {roll}, {roll}},
        {"supplySecColorName", {roll}, {roll, u"7"_s}},
        {"supplySecColorNameEn", {roll}, {roll}},
        {"supplyMaterialName", {roll}, {roll, u"7"_s}},
        {"supplyFormatType", {roll}, {u"9"_s}},
        {"supplyColorName", {roll}, {roll, u"7"_s}},
        {"supplyColorNameEn", {roll}, {roll}},
        {"supplyColorHash", {}, {}},
        {"supplySKUList", {}, {}},
        {"getSkuFromSupplyId", {u"SHARED-ID-0123456789"_s}, {u"SHARED-ID-0123456789"_s}},
        {"isSupplyIdShared", {}, {u"-1"_s}},
        {"supplyRibbonPanels", {ribbon}, {ribbon}},
        {"supplyRibbonWidth", {ribbon}, {ribbon}},
        {"supplyRibbonLength", {ribbon}, {ribbon}},
        {"supplyRibbonType", {ribbon}, {ribbon, u"7"_s}},
        {"supplyRibbonColorRGB", {ribbon, 2}, {ribbon, u"2"_s}},
        {"supplyRibbonColorName", {ribbon, 2}, {ribbon, u"2"_s, u"7"_s}},
        {"supplyRibbonHeat", {ribbon, 2, roll}, {ribbon, u"2"_s, u"5"_s}},
        {"supplyRibbonHeatOffset", {ribbon, 2, roll}, {ribbon, u"2"_s, u"5"_s}},
        {"supplyRibbonMaxSpeed", {ribbon, 2, roll}, {ribbon, u"2"_s, u"5"_s}},
        {"supplyRibbonTension", {ribbon, 2, roll}, {ribbon, u"2"_s, u"5"_s}},
        {"supplyRibbonSKUList", {}, {}},
        {"getSkusFromRibbonIds", {QStringList{u"12"_s, u"13"_s}}, {u"13"_s}},
        {"supplyRibbonColorHash", {}, {}},
    };
    return all;
}

/// SQLite's own view of a statement.
class Prepared
{
public:
    Prepared(const QString &cataloguePath, const QString &text)
    {
        sqlite3_open_v2(QFile::encodeName(cataloguePath).constData(), &m_file, SQLITE_OPEN_READONLY, nullptr);
        m_text = text.toUtf8();
        const char *tail = nullptr;
        sqlite3_prepare_v2(m_file, m_text.constData(), -1, &m_statement, &tail);
        rest = QByteArray(tail).trimmed();
    }
    ~Prepared()
    {
        sqlite3_finalize(m_statement);
        sqlite3_close(m_file);
    }
    Q_DISABLE_COPY_MOVE(Prepared)

    const char *message() const { return sqlite3_errmsg(m_file); }
    bool isPrepared() const { return m_statement != nullptr; }
    bool isReadOnly() const { return sqlite3_stmt_readonly(m_statement) != 0; }
    int columns() const { return sqlite3_column_count(m_statement); }
    QStringList column(int index)
    {
        QStringList texts;
        while (sqlite3_step(m_statement) == SQLITE_ROW)
            texts.append(QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(m_statement, index))));
        return texts;
    }

    QByteArray rest; ///< What follows the statement's end.

private:
    sqlite3 *m_file = nullptr;
    sqlite3_stmt *m_statement = nullptr;
    QByteArray m_text;
};

/// As the library might ask it: a number stands for every value, quoted or bare.
QString sample(const Statement &statement)
{
    return filled(qPrintable(statement.name), QStringList(statement.placeholders, u"1"_s));
}

constexpr int explainedColumn = 3; // of EXPLAIN QUERY PLAN

} // namespace

/// The SQL texts: what they say, that the schema answers them, and through an index where they have a key.
class TestCatalogueSql : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereAre43AndNoTwoAreEqual();
    void text_data();
    void text();
    void prepares_data() { text_data(); }
    void prepares();
    void isFoundByIndex_data() { text_data(); }
    void isFoundByIndex();
    void isFilledAsQtFillsIt_data();
    void isFilledAsQtFillsIt();
    void issued_data();
    void issued();
    void everyIssuerIsAsked();

private:
    const FixtureCatalogue m_empty{FixtureCatalogue::Rows::None};
    const FixtureCatalogue m_catalogue;
};

void TestCatalogueSql::thereAre43AndNoTwoAreEqual()
{
    QCOMPARE(sql::allStatements.size(), size_t(43));
    QCOMPARE(std::size(constants), size_t(43));
    QCOMPARE(statementList().size(), 43);

    QStringList listed;
    for (const Statement &statement : statementList())
        listed.append(statement.text);
    QStringList inCode;
    for (const QLatin1StringView text : sql::allStatements)
        inCode.append(text);
    listed.sort();
    inCode.sort();
    QCOMPARE(inCode, listed);
    QCOMPARE(inCode.removeDuplicates(), 0);
}

void TestCatalogueSql::text_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(statementList().size()); ++i)
        QTest::newRow(qPrintable(statementList().at(i).name)) << i;
}

void TestCatalogueSql::text()
{
    QFETCH(int, index);
    const Statement &statement = statementList().at(index);
    const auto constant = std::find_if(std::begin(constants), std::end(constants), [&](const Named &named) {
        return statement.name == QLatin1StringView(named.name);
    });
    QVERIFY(constant != std::end(constants));
    QCOMPARE(QString(constant->text), statement.text);
    // Two texts end in a blank.
    QCOMPARE(statement.text.endsWith(u' '), statement.name == u"sensorByType"_s || statement.name == u"rollSensor"_s);
    for (int marker = 1; marker <= 4; ++marker)
        QCOMPARE(statement.text.count(u"%%1"_s.arg(marker)), marker <= statement.placeholders ? 1 : 0);
}

void TestCatalogueSql::prepares()
{
    QFETCH(int, index);
    Prepared prepared(m_empty.path(), sample(statementList().at(index)));
    QVERIFY2(prepared.isPrepared(), prepared.message());
    QVERIFY(prepared.isReadOnly());
    QCOMPARE(prepared.rest, QByteArray());
    QCOMPARE(prepared.columns(), statementList().at(index).text.contains(u"name, rgbValue"_s) ? 2 : 1);
}

void TestCatalogueSql::isFoundByIndex()
{
    QFETCH(int, index);
    const Statement &statement = statementList().at(index);
    // Alike in a new file and in one whose tables have rows.
    for (const QString &path : {m_empty.path(), m_catalogue.path()}) {
        const QStringList plan = Prepared(path, u"EXPLAIN QUERY PLAN "_s + sample(statement)).column(explainedColumn);
        QVERIFY(!plan.isEmpty());
        if (statement.placeholders == 0)
            continue; // a list is read whole
        for (const QString &step : plan) {
            QVERIFY2(step.startsWith(u"SEARCH "_s), qPrintable(step));
            QVERIFY2(step.contains(u" USING "_s) && !step.contains(u"AUTOMATIC"_s), qPrintable(step));
        }
    }
}

void TestCatalogueSql::isFilledAsQtFillsIt_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("plain values") << u"A-1"_s << u"2"_s;
    QTest::newRow("empty and null values") << u""_s << QString();
    QTest::newRow("marks in the values") << u"%1%2%3%9"_s << u"%2"_s;
    QTest::newRow("other forms of marks in the values") << u"%L1%10%%"_s << u"%"_s;
    QTest::newRow("quotes, NUL and a surrogate pair") << u"a'b\"c"_s + QChar() << u"\U0001F5A8"_s;
    QTest::newRow("a value longer than the text") << QString(5000, u'x') << QString(300, u'%');
}

/// With one, two and three values: fewer than a text has marks, as many, and more.
void TestCatalogueSql::isFilledAsQtFillsIt()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    for (const QLatin1StringView statement : sql::allStatements) {
        QCOMPARE(sql::filled(statement, first), statement.arg(first));
        QCOMPARE(sql::filled(statement, first, second), statement.arg(first, second));
        QCOMPARE(sql::filled(statement, second, first, first), statement.arg(second, first, first));
    }
}

void TestCatalogueSql::issued_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(uses().size()); ++i)
        QTest::newRow(uses().at(i).operation) << i;
}

/// The text as the operation's last but for supplyFormat, which reads on once it has seen that there is no stripe.
void TestCatalogueSql::issued()
{
    QFETCH(int, index);
    const Use &use = uses().at(index);
    const QString operation = QString::fromLatin1(use.operation);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setLanguageId(7);
    recorded->setSupplySKU(u"INSTALLED"_s);
    if (operation.startsWith(u"check"_s))
        QVERIFY(QMetaObject::invokeMethod(&*recorded, use.operation));
    else
        ask::directly(*recorded, operation, use.arguments);
    const QStringList texts = recorded.takeTexts();

    int issuedTexts = 0;
    for (const Statement &statement : statementList()) {
        if (!statement.issuedBy.contains(operation))
            continue;
        ++issuedTexts;
        const QString expected = filled(qPrintable(statement.name), use.values);
        QCOMPARE(operation == u"supplyFormat"_s ? texts.first() : texts.last(), expected);
    }
    QCOMPARE(issuedTexts, 1);
}

void TestCatalogueSql::everyIssuerIsAsked()
{
    QStringList listed;
    for (const Statement &statement : statementList())
        listed += statement.issuedBy;
    QStringList asked;
    for (const Use &use : uses())
        asked.append(QString::fromLatin1(use.operation));
    listed.sort();
    asked.sort();
    QCOMPARE(asked, listed);
}

QTEST_GUILESS_MAIN(TestCatalogueSql)
#include "tst_cataloguesql.moc"

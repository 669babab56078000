// SPDX-License-Identifier: LGPL-2.1-or-later
// The reasons against the checks: whatever the library announces, the reasons say too.

#include "reasons/reasons.h"
#include "session/signalrecorder.h"
#include "supplies/installed.h"

#include <zrsupplydatabase.h>

#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;
using namespace ZrSupplyKit;

namespace {

QString catalogue()
{
    return qEnvironmentVariable("ZRSUPPLY_TEST_CATALOGUE");
}

struct Library
{
    Library()
    {
        if (!database.setup(catalogue()))
            qFatal("cannot open %s", qPrintable(catalogue()));
    }

    ZrSupplyDatabase database;
    SignalRecorder recorder{database};

    void setRibbons(const QStringList &skus)
    {
        QMetaObject::invokeMethod(&database, "supplySetRibbonSKUs", Q_ARG(QStringList, skus));
        recorder.take();
    }

    /// What a check announces.
    QString announced(const CheckName &name)
    {
        if (!QMetaObject::invokeMethod(&database, name.slot.toLatin1().constData()))
            qFatal("no slot %s", qPrintable(name.slot));
        QStringList texts;
        for (const SignalRecord &record : recorder.take())
            texts.append(record.name() + literals(record.arguments));
        return texts.isEmpty() ? u"silence"_s : texts.join(", "_L1);
    }

private:
    static QString literals(const QVariantList &arguments)
    {
        QString text;
        for (const QVariant &argument : arguments)
            text += u' ' + argument.toString();
        return text;
    }
};

/// Every SKU of a table, those of other machine families too.
QStringList skusOf(ZrSupplyDatabase &database, const QString &query)
{
    return database.getSingleVariantByQuery(query, QString()).toString().split(u' ');
}

} // namespace

class ReasonsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesOnEveryCombination();
    void agreesOffTheCatalogue_data();
    void agreesOffTheCatalogue();
    void agreesOnAClosedCatalogue();
    void gatheringIsSilent();
};

void ReasonsTest::agreesOnEveryCombination()
{
    Library library;
    // One transaction around the million queries spares each the file locks of its own.
    library.database.getSingleVariantByQuery(u"BEGIN"_s, {});
    const QStringList rolls = skusOf(library.database, u"SELECT group_concat(itemNum, ' ') FROM roll"_s);
    const QStringList ribbons = skusOf(library.database, u"SELECT group_concat(sku, ' ') FROM ribbon"_s);
    QCOMPARE(rolls.size(), 88);
    QCOMPARE(ribbons.size(), 29);

    // Facts once for each roll, ribbon and pair; judging asks nothing.
    QList<RollFacts> rollFacts;
    QList<RibbonFacts> ribbonFacts;
    QList<QList<PairFacts>> pairs(rolls.size());
    for (const QString &sku : ribbons)
        ribbonFacts.append(gatherRibbon(library.database, sku));
    for (qsizetype roll = 0; roll < rolls.size(); ++roll) {
        rollFacts.append(gatherRoll(library.database, rolls[roll]));
        for (const RibbonFacts &ribbon : ribbonFacts)
            pairs[roll].append(gatherPair(library.database, ribbon, rollFacts[roll]));
    }

    int compared = 0;
    for (qsizetype first = 0; first < ribbons.size(); ++first) {
        for (qsizetype second = 0; second < ribbons.size(); ++second) {
            library.setRibbons({ribbons[first], ribbons[second]});
            for (qsizetype roll = 0; roll < rolls.size(); ++roll) {
                library.database.setSupplySKU(rolls[roll]);
                const Facts facts{rollFacts[roll],
                                  {ribbonFacts[first], ribbonFacts[second]},
                                  {pairs[roll][first], pairs[roll][second]}};
                for (const CheckName &name : checkNames()) {
                    const QString announced = library.announced(name);
                    const QString reasoned = announcementText(judge(name.check, facts));
                    if (announced != reasoned) {
                        QFAIL(qPrintable(u"%1 of roll %2 with %3 and %4: announced %5, reasoned %6"_s.arg(
                            name.word, rolls[roll], ribbons[first], ribbons[second], announced, reasoned)));
                    }
                    ++compared;
                }
            }
        }
    }
    QCOMPARE(compared, 88 * 29 * 29 * 5);
}

void ReasonsTest::agreesOffTheCatalogue_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("sku");
    QTest::addColumn<QStringList>("ribbons");

    const QList<std::pair<const char *, QStringList>> ribbonRows = {
        {"no ribbons", {}},
        {"one ribbon", {u"R530901"_s}},
        {"two missing ribbons", {u"-1"_s, u"-1"_s}},
        {"ribbon 1 missing", {u"-1"_s, u"RW530901"_s}},
        {"ribbon 2 missing", {u"RW530901"_s, u"-1"_s}},
        {"unknown ribbons", {u"R000000"_s, u"r4417tx"_s}},
        {"special and missing", {u"R4417TX"_s, u"-1"_s}},
        {"missing and special", {u"-1"_s, u"HVWA-ZEROSPOL"_s}},
        {"both special", {u"R4417TX"_s, u"HVWA-ZEROSPOL"_s}},
        {"clear-tail in lower case", {u"r530947"_s, u"RW530947"_s}},
        {"three ribbons", {u"R530905"_s, u"RW530901"_s, u"R4417TX"_s}},
        {"an empty text", {QString(), u"RW530901"_s}},
    };
    const QList<std::array<const char *, 3>> rollRows = {
        {"roll of the catalogue, narrow", "", "00143465"},
        {"roll of the catalogue, wide", "", "00144463"},
        {"no roll", "", "-1"},
        {"roll in no catalogue", "", "99999999"},
        {"unknown roll, wide", "3200000C8020824060000000", "UnknownSupply"},
        {"unknown roll, no tag", "", "UnknownSupply"},
        {"unknown roll, torn tag", "3200000C8020", "UnknownSupply"},
        {"empty SKU, wide tag", "3200000C8020824060000000", ""},
    };
    for (const auto &roll : rollRows) {
        for (const auto &[name, ribbons] : ribbonRows) {
            QTest::addRow("%s, %s", roll[0], name)
                << QString::fromLatin1(roll[1]) << QString::fromLatin1(roll[2]) << ribbons;
        }
    }
}

void ReasonsTest::agreesOffTheCatalogue()
{
    QFETCH(QString, tag);
    QFETCH(QString, sku);
    QFETCH(QStringList, ribbons);

    Library library;
    if (!tag.isEmpty())
        library.database.setSupplyId(tag);
    library.database.setSupplySKU(sku);
    library.setRibbons(ribbons);
    const Facts facts = gatherInstalled(library.database);
    for (const CheckName &name : checkNames())
        QCOMPARE(announcementText(judge(name.check, facts)), library.announced(name));
}

void ReasonsTest::agreesOnAClosedCatalogue()
{
    ZrSupplyDatabase closed;
    SignalRecorder recorder(closed);
    closed.setSupplySKU(u"00144463"_s);
    for (const QStringList &ribbons :
         {QStringList{u"R530901"_s, u"R4417TX"_s}, QStringList{u"RW530947"_s, u"-1"_s}}) {
        QMetaObject::invokeMethod(&closed, "supplySetRibbonSKUs", Q_ARG(QStringList, ribbons));
        recorder.take();
        const Facts facts = gatherInstalled(closed);
        for (const CheckName &name : checkNames()) {
            QMetaObject::invokeMethod(&closed, name.slot.toLatin1().constData());
            const QList<SignalRecord> records = recorder.take();
            const Verdict verdict = judge(name.check, facts);
            QCOMPARE(verdict.announcements.size(), records.size());
            for (qsizetype i = 0; i < records.size(); ++i) {
                QCOMPARE(verdict.announcements[i].signal, records[i].name());
                QCOMPARE(verdict.announcements[i].arguments, records[i].arguments);
            }
        }
        QCOMPARE(facts.roll.width.source, u"the catalogue is closed"_s);
    }
}

void ReasonsTest::gatheringIsSilent()
{
    Library library;
    library.database.setSupplyId(u"3200000C8020804041410000"_s);
    library.database.setRibbonIds({u"1"_s, u"20"_s});
    library.recorder.take();
    judge(gatherInstalled(library.database));
    installedSupplies(library.database);
    QVERIFY(library.recorder.take().isEmpty());
}

QTEST_GUILESS_MAIN(ReasonsTest)

#include "tst_reasons.moc"

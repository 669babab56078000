// SPDX-License-Identifier: LGPL-2.1-or-later
// Signals arrive in the midst of an operation: what a slot sees of the object then, and what its own calls do.

#include "support/rollcatalogue.h"
#include "support/signallog.h"

#include <zrsupplydatabase.h>

#include <QtTest/QTest>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using namespace rolls;

namespace {

using Operation = std::function<void(ZrSupplyDatabase &)>;

Operation rollId(const QString &id)
{
    return [id](ZrSupplyDatabase &database) { database.setSupplyId(id); };
}

Operation ribbonIds(const QString &first, const QString &second)
{
    return [first, second](ZrSupplyDatabase &database) { database.setRibbonIds({first, second}); };
}

/// Does something the first time that a signal arrives.
class Reaction : public QObject
{
    Q_OBJECT

public:
    explicit Reaction(std::function<void()> operation)
        : m_operation(std::move(operation))
    {
    }
    bool hasReacted() const { return !m_operation; }

public Q_SLOTS:
    void react()
    {
        if (const auto operation = std::exchange(m_operation, nullptr))
            operation();
    }

private:
    std::function<void()> m_operation;
};

/// Writes down what the object answers whenever a signal arrives.
class Witness : public QObject
{
    Q_OBJECT

public:
    explicit Witness(std::function<QString()> look)
        : m_look(std::move(look))
    {
    }
    QStringList seen;

public Q_SLOTS:
    void look() { seen.append(m_look()); }

private:
    std::function<QString()> m_look;
};

QString brackets(const QStringList &texts)
{
    return u'[' + texts.join(u' ') + u']';
}

} // namespace

Q_DECLARE_METATYPE(Operation)

class Reentrancy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rollAsASlotSeesIt();
    void ribbonsAsASlotSeesThem();
    void slotThatCalls_data();
    void slotThatCalls();
    void laterSlotsGetTheOuterValue();

private:
    const RollCatalogue m_catalogue;
};

void Reentrancy::rollAsASlotSeesIt()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplyId(dieCut); // base 1200 inches, length 2400
    database.setSupplyMileage(0);

    Witness witness([&database] {
        return u"%1 %2 %3 %4 %5"_s.arg(database.supplySKU(), database.supplyId().left(4),
                                       QString::number(database.supplyLength()),
                                       QString::number(database.supplySupplyPercent()), database.supplySupplyRGB());
    });
    for (const char *signal : {SIGNAL(supplyChangedSignal(QString)), SIGNAL(supplyPercentChanged(double)),
                               SIGNAL(supplyRGBChanged(QString)), SIGNAL(notifySupplySensor(int))})
        connect(&database, signal, &witness, SLOT(look()));
    database.setSupplyId(striped); // base 3600 inches, length 1800
    database.setSupplyId(multiUp); // base 6132 inches, length 900
    database.setSupplyId(u"-1"_s);

    // The tag is decoded before the SKU is announced; id and fraction follow it, the announced colour comes last.
    QCOMPARE(witness.seen,
             QStringList({u"STRIPED-ROLL 3203 1800 0.5 16711680"_s, u"STRIPED-ROLL 9666 1800 -1 16711680"_s,
                          u"STRIPED-ROLL 9666 1800 -1 255"_s, u"STRIPED-ROLL 9666 1800 -1 255"_s,
                          u"STRIPED-ROLL FFE6 900 -5.81333 255"_s, u"STRIPED-ROLL FFE6 900 -5.81333 16777215"_s,
                          u"STRIPED-ROLL FFE6 900 -5.81333 16777215"_s, u"-1 -1 -1 -1 -1"_s, u"-1 -1 -1 -1 -1"_s,
                          u"-1 -1 -1 -1 -1"_s, u"-1 -1 -1 -1 -1"_s}));
}

void Reentrancy::ribbonsAsASlotSeesThem()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplySKU(u"CONT-6"_s);
    database.setRibbonIds({u"12"_s, u"13"_s});
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);

    Witness witness([&database] {
        return u"%1 %2 %3 %4 %5"_s.arg(
            brackets(database.supplyRibbonSKUs()), QString::number(database.supplyRibbon1Percent()),
            QString::number(database.supplyRibbon2Percent()), brackets(database.supplyRibbon1RGBs()),
            brackets(database.supplyRibbon2RGBs()));
    });
    for (const char *signal : {SIGNAL(ribbonChangedSignal(QStringList)), SIGNAL(ribbon1PercentChanged(double)),
                               SIGNAL(ribbon2PercentChanged(double)), SIGNAL(ribbon1RGBsChanged(QStringList)),
                               SIGNAL(ribbon2RGBsChanged(QStringList)), SIGNAL(alertInvalidRibbon2SupplyCombo())})
        connect(&database, signal, &witness, SLOT(look()));
    database.setRibbonIds({u"13"_s, u"17"_s}); // lengths 4800 and 1300
    database.setRibbonIds({u"12"_s, u"14"_s}); // lengths 4725 and 4000, the second one narrow
    QCOMPARE(witness.seen, QStringList({u"[RIB-TWO HVWA-ZEROSPOL] 0 0.015625 [0 -1] [0 16711680]"_s,
                                        u"[RIB-TWO HVWA-ZEROSPOL] 0.015625 0.015625 [0 -1] [0 16711680]"_s,
                                        u"[RIB-TWO HVWA-ZEROSPOL] 0.015625 -2.63462 [0 -1] [0 16711680]"_s,
                                        u"[RIB-TWO HVWA-ZEROSPOL] 0.015625 -2.63462 [0 16711680] [0 16711680]"_s,
                                        u"[RIB-TWO HVWA-ZEROSPOL] 0.015625 -2.63462 [0 16711680] [-1 -1]"_s,
                                        u"[RIB-ONE RIB-THREE] 0.015625 -2.63462 [0 16711680] [-1 -1]"_s,
                                        u"[RIB-ONE RIB-THREE] 0 -2.63462 [0 16711680] [-1 -1]"_s,
                                        u"[RIB-ONE RIB-THREE] 0 -0.18125 [0 16711680] [-1 -1]"_s,
                                        u"[RIB-ONE RIB-THREE] 0 -0.18125 [0 -1] [-1 -1]"_s,
                                        u"[RIB-ONE RIB-THREE] 0 -0.18125 [0 -1] [0 16711680]"_s,
                                        u"[RIB-ONE RIB-THREE] 0 -0.18125 [0 -1] [0 16711680]"_s}));
}

void Reentrancy::slotThatCalls_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<Operation>("reaction");
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("stateAfter"); // SKU, id, ribbons

    QTest::newRow("mileage while the SKU is announced: the new base, and still the old length")
        << Operation([](ZrSupplyDatabase &database) {
               database.setSupplyId(longRoll); // length 360, announces no SKU
               database.setSupplyId(striped);  // base 3600, length 1800
           })
        << QByteArray(SIGNAL(supplyChangedSignal(QString)))
        << Operation([](ZrSupplyDatabase &database) { database.setSupplyMileage(0); }) << uR"(supplyPercentChanged(-1)
supplyRGBChanged("16777215")
notifySupplySensor(-1)
supplyChangedSignal("STRIPED-ROLL")
supplyPercentChanged(-9)
supplyPercentChanged(-1)
supplyRGBChanged("255")
notifySupplySensor(4))"_s
        << u"STRIPED-ROLL 9666 [-1 -1]"_s;
    QTest::newRow("mileage while the colour is announced")
        << rollId(striped) << QByteArray(SIGNAL(supplyRGBChanged(QString)))
        << Operation([](ZrSupplyDatabase &database) { database.setSupplyMileage(0); })
        << uR"(supplyChangedSignal("STRIPED-ROLL")
supplyPercentChanged(-1)
supplyRGBChanged("255")
supplyPercentChanged(-1)
notifySupplySensor(4))"_s
        << u"STRIPED-ROLL 9666 [-1 -1]"_s;
    QTest::newRow("SKU while the fraction is announced: the sensor is that SKU's")
        << rollId(striped) << QByteArray(SIGNAL(supplyPercentChanged(double)))
        << Operation([](ZrSupplyDatabase &database) { database.setSupplySKU(u"STRIPED"_s); })
        << uR"(supplyChangedSignal("STRIPED-ROLL")
supplyPercentChanged(-1)
supplyRGBChanged("255")
notifySupplySensor(5))"_s
        << u"STRIPED 9666 [-1 -1]"_s;
    QTest::newRow("roll while the SKU is announced: its tag and SKU, and the outer call's id")
        << rollId(striped) << QByteArray(SIGNAL(supplyChangedSignal(QString))) << rollId(dieCut)
        << uR"(supplyChangedSignal("STRIPED-ROLL")
supplyChangedSignal("CUT-ROLL")
supplyPercentChanged(-1)
supplyRGBChanged("16711680")
notifySupplySensor(5)
supplyPercentChanged(-1)
supplyRGBChanged("16711680")
notifySupplySensor(5))"_s
        << u"CUT-ROLL 9666 [-1 -1]"_s;
    QTest::newRow("reset while the colour is announced") << rollId(striped)
                                                         << QByteArray(SIGNAL(supplyRGBChanged(QString)))
                                                         << rollId(u"-1"_s) << uR"(supplyChangedSignal("STRIPED-ROLL")
supplyPercentChanged(-1)
supplyRGBChanged("255")
supplyChangedSignal("-1")
supplyPercentChanged(-1)
supplyRGBChanged("-1")
notifySupplySensor(-1)
notifySupplySensor(-1))"_s << u"-1 -1 [-1 -1 -1 -1]"_s;
    QTest::newRow("roll while the reset is announced: the roll stays")
        << rollId(u"-1"_s) << QByteArray(SIGNAL(supplyChangedSignal(QString))) << rollId(striped)
        << uR"(supplyChangedSignal("-1")
supplyChangedSignal("STRIPED-ROLL")
supplyPercentChanged(-1)
supplyRGBChanged("255")
notifySupplySensor(4)
supplyPercentChanged(-1)
supplyRGBChanged("255")
notifySupplySensor(4))"_s
        << u"STRIPED-ROLL 9666 [-1 -1 -1 -1]"_s;
    QTest::newRow("ribbons while the SKU is announced: they are checked against the new roll")
        << rollId(dieCut) << QByteArray(SIGNAL(supplyChangedSignal(QString))) << ribbonIds(u"12"_s, u"13"_s)
        << uR"(supplyChangedSignal("CUT-ROLL")
ribbonChangedSignal(["RIB-ONE", "RIB-TWO"])
ribbon1PercentChanged(-1)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["0", "-1"])
ribbon2RGBsChanged(["0", "16711680"])
alertInvalidRibbon2SupplyCombo()
supplyPercentChanged(-1)
supplyRGBChanged("16711680")
notifySupplySensor(5))"_s
        << u"CUT-ROLL 3203 [RIB-ONE RIB-TWO]"_s;
    QTest::newRow("ribbons while ribbons are announced: the outer call goes on with them")
        << ribbonIds(u"12"_s, u"99"_s) << QByteArray(SIGNAL(ribbonChangedSignal(QStringList)))
        << ribbonIds(u"16"_s, u"13"_s) << uR"(ribbonChangedSignal(["RIB-ONE", "-1"])
ribbonChangedSignal(["R4417TX", "RIB-TWO"])
ribbon1PercentChanged(-1)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["-1", "-1"])
ribbon2RGBsChanged(["0", "16711680"])
alertInvalidRibbon2SupplyCombo()
ribbon1PercentChanged(-1)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["-1", "-1"])
ribbon2RGBsChanged(["0", "16711680"])
alertInvalidRibbon2SupplyCombo())"_s
        << u"-1 -1 [R4417TX RIB-TWO]"_s;
    QTest::newRow("mileage while ribbons are announced: the old length still counts")
        << ribbonIds(u"13"_s, u"99"_s) << QByteArray(SIGNAL(ribbonChangedSignal(QStringList)))
        << Operation([](ZrSupplyDatabase &database) { database.setRibbon1Mileage(0); })
        << uR"(ribbonChangedSignal(["RIB-TWO", "-1"])
ribbon1PercentChanged(-1)
ribbon1PercentChanged(0.015625)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["0", "16711680"])
ribbon2RGBsChanged(["-1", "-1"])
alertInvalidRibbon1SupplyCombo())"_s
        << u"-1 -1 [RIB-TWO -1]"_s;
    QTest::newRow("SKU while colours are announced: the check is against that roll")
        << ribbonIds(u"12"_s, u"13"_s) << QByteArray(SIGNAL(ribbon2RGBsChanged(QStringList)))
        << Operation([](ZrSupplyDatabase &database) { database.setSupplySKU(u"CONT-4"_s); })
        << uR"(ribbonChangedSignal(["RIB-ONE", "RIB-TWO"])
ribbon1PercentChanged(-1)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["0", "-1"])
ribbon2RGBsChanged(["0", "16711680"]))"_s
        << u"CONT-4 -1 [RIB-ONE RIB-TWO]"_s;
    QTest::newRow("reset while colours are announced: four SKUs, the first two are checked")
        << ribbonIds(u"12"_s, u"13"_s) << QByteArray(SIGNAL(ribbon1RGBsChanged(QStringList))) << rollId(u"-1"_s)
        << uR"(ribbonChangedSignal(["RIB-ONE", "RIB-TWO"])
ribbon1PercentChanged(-1)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["0", "-1"])
supplyChangedSignal("-1")
supplyPercentChanged(-1)
supplyRGBChanged("-1")
notifySupplySensor(-1)
ribbon2RGBsChanged(["-1", "-1", "-1", "-1"])
alertInvalidRibbonsSupplyCombo())"_s
        << u"-1 -1 [RIB-ONE RIB-TWO -1 -1]"_s;
    QTest::newRow("ribbons while the verdict is announced: a verdict each")
        << ribbonIds(u"12"_s, u"13"_s) << QByteArray(SIGNAL(alertInvalidRibbonsSupplyCombo()))
        << ribbonIds(u"99"_s, u"98"_s) << uR"(ribbonChangedSignal(["RIB-ONE", "RIB-TWO"])
ribbon1PercentChanged(-1)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["0", "-1"])
ribbon2RGBsChanged(["0", "16711680"])
alertInvalidRibbonsSupplyCombo()
ribbonChangedSignal(["-1", "-1"])
ribbon1PercentChanged(-1)
ribbon2PercentChanged(-1)
ribbon1RGBsChanged(["-1", "-1"])
ribbon2RGBsChanged(["-1", "-1"]))"_s
        << u"-1 -1 [-1 -1]"_s;
}

void Reentrancy::slotThatCalls()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, signal);
    QFETCH(Operation, reaction);
    QFETCH(QString, lines);
    QFETCH(QString, stateAfter);

    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    SignalLog log(&database);
    Reaction once([&] { reaction(database); });
    QVERIFY(connect(&database, signal.constData(), &once, SLOT(react())));
    operation(database);
    QVERIFY(once.hasReacted());
    QCOMPARE(log.take(), lines.split(u'\n'));
    QCOMPARE(
        u"%1 %2 %3"_s.arg(database.supplySKU(), database.supplyId().left(4), brackets(database.supplyRibbonSKUs())),
        stateAfter);
}

void Reentrancy::laterSlotsGetTheOuterValue()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    // The reaction is connected first: it runs before the log's own slot, which still gets what was announced.
    Reaction roll([&] { database.setSupplyId(dieCut); });
    connect(&database, SIGNAL(supplyChangedSignal(QString)), &roll, SLOT(react()));
    Reaction ribbons([&] { database.setRibbonIds({u"14"_s, u"13"_s}); });
    connect(&database, SIGNAL(ribbon1RGBsChanged(QStringList)), &ribbons, SLOT(react()));
    SignalLog log(&database);
    database.setSupplyId(striped);
    QCOMPARE(log.take().filter(u"supplyChanged"_s),
             QStringList({uR"(supplyChangedSignal("CUT-ROLL"))"_s, uR"(supplyChangedSignal("STRIPED-ROLL"))"_s}));
    database.setRibbonIds({u"12"_s, u"99"_s});
    QCOMPARE(log.take().filter(u"ribbon1RGBs"_s),
             QStringList({uR"(ribbon1RGBsChanged(["0", "16711680"]))"_s, uR"(ribbon1RGBsChanged(["0", "-1"]))"_s}));
}

QTEST_GUILESS_MAIN(Reentrancy)
#include "tst_reentrancy.moc"

// SPDX-License-Identifier: LGPL-2.1-or-later
// Every method called as a host does that knows names and indices only, against the same call in C++.

#include "support/metamethods.h"
#include "support/privatemember.h"
#include "support/rollcatalogue.h"
#include "support/signallog.h"

#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>
#include <QtSql/QSqlDatabase>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>

using namespace Qt::Literals::StringLiterals;
using namespace metamethods;

// Lengths that differ from those of the installed supplies, so that a fraction tells whether its length was
// refreshed.
ZR_PRIVATE_MEMBER(RollLength, ZrSupplyDatabase, m_supplyLength);
ZR_PRIVATE_MEMBER(Ribbon1Length, ZrSupplyDatabase, m_ribbon1Length);
ZR_PRIVATE_MEMBER(Ribbon2Length, ZrSupplyDatabase, m_ribbon2Length);

namespace {

/// Each argument in the type that the method takes.
QVariantList converted(const QMetaMethod &method, QVariantList arguments)
{
    if (arguments.size() != method.parameterCount())
        qFatal("%s is given %d arguments", method.methodSignature().constData(), int(arguments.size()));
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (!arguments[i].convert(method.parameterMetaType(int(i))))
            qFatal("%s is given an argument of another type", method.methodSignature().constData());
    }
    return arguments;
}

QVariant emptyAnswer(const QMetaMethod &method)
{
    return method.returnMetaType() == QMetaType::fromType<void>() ? QVariant() : QVariant(method.returnMetaType());
}

/// Calls a method by its name; by the number and types of the arguments Qt finds the one that is meant.
QVariant byName(Z &database, int index, const QVariantList &given)
{
    const QMetaMethod method = methodAt(index);
    const QVariantList arguments = converted(method, given);
    std::array<QGenericArgument, 4> generic;
    for (qsizetype i = 0; i < arguments.size(); ++i)
        generic[size_t(i)] = QGenericArgument(arguments[i].typeName(), arguments[i].constData());
    QVariant answer = emptyAnswer(method);
    const QGenericReturnArgument result =
        answer.isValid() ? QGenericReturnArgument(method.typeName(), answer.data()) : QGenericReturnArgument();
    if (!QMetaObject::invokeMethod(&database, method.name().constData(), Qt::DirectConnection, result, generic[0],
                                   generic[1], generic[2], generic[3]))
        qFatal("%s cannot be called by name", method.methodSignature().constData());
    return answer;
}

enum class Result { Wanted, NotWanted };

/// Calls a method by its index, as moc's own callers do: the first pointer is for the result and may be null.
QVariant byIndex(Z &database, int index, const QVariantList &given, Result wanted = Result::Wanted)
{
    const QMetaMethod method = methodAt(index);
    QVariantList arguments = converted(method, given);
    QVariant answer = emptyAnswer(method);
    QList<void *> pointers = {wanted == Result::Wanted && answer.isValid() ? answer.data() : nullptr};
    for (QVariant &argument : arguments)
        pointers.append(argument.data());
    const int left =
        database.qt_metacall(QMetaObject::InvokeMetaMethod, meta.methodOffset() + index, pointers.data());
    if (left != index - methodCount)
        qFatal("qt_metacall of %s returns %d", method.methodSignature().constData(), left);
    return answer;
}

/// A method with a result: how it is called from outside, and the same in C++ with every argument written out.
struct Answer
{
    int index;
    QVariantList given;
    std::function<QVariant(Z &)> directly;
};

/// `given` arguments are passed from outside, the remaining ones are what the defaults have to be.
template <typename Type, typename... Parameters>
Answer asking(int index, qsizetype given, Type (Z::*method)(Parameters...),
              std::common_type_t<Parameters>... arguments)
{
    return {index, QVariantList{QVariant::fromValue(arguments)...}.first(given),
            [=](Z &database) { return QVariant::fromValue((database.*method)(arguments...)); }};
}

QList<Answer> answers()
{
    const QString none;
    const QString cut = u"DIECUT-18"_s; // format 41, material 18, separator 0.1
    const QString stripe = u"STRIPED"_s;
    const QString vinyl = u"CONT-4"_s; // material 1
    const QString two = u"RIB-TWO"_s;
    const QStringList pair = {u"RIB-TWO"_s, u"RIB-ONE"_s};
    return {
        asking(19, 0, &Z::supplySKUList),
        asking(20, 0, &Z::supplyRibbonSKUList),
        asking(21, 0, &Z::supplyColorHash),
        asking(22, 0, &Z::supplyRibbonColorHash),
        asking(23, 0, &Z::supplySKU),
        asking(24, 0, &Z::supplyRibbonSKUs),
        asking(25, 0, &Z::supplyTagLength),
        asking(26, 0, &Z::ribbonTagLength),
        asking(27, 0, &Z::supplyId),
        asking(28, 0, &Z::supplyUid),
        asking(29, 0, &Z::ribbon1Uid),
        asking(30, 0, &Z::ribbon2Uid),
        asking(31, 0, &Z::supplySupplyPercent),
        asking(32, 0, &Z::supplyRibbon1Percent),
        asking(33, 0, &Z::supplyRibbon2Percent),
        asking(34, 0, &Z::supplySupplyRGB),
        asking(35, 0, &Z::supplyRibbon1RGBs),
        asking(36, 0, &Z::supplyRibbon2RGBs),
        asking(37, 0, &Z::ribbon1Type),
        asking(38, 0, &Z::ribbon2Type),
        asking(39, 2, &Z::supplyTypeIndex, u"DIECUT"_s, u"Marlin"_s),
        asking(40, 1, &Z::supplyTypeIndex, u"DIECUT"_s, none),
        asking(41, 0, &Z::supplyTypeIndex, none, none),
        asking(42, 1, &Z::supplySensorId, u"mark"_s),
        asking(43, 1, &Z::supplySecColorWidth, stripe),
        asking(44, 0, &Z::supplySecColorWidth, none),
        asking(45, 1, &Z::supplySecColorRGB, stripe),
        asking(46, 0, &Z::supplySecColorRGB, none),
        asking(47, 1, &Z::supplySecColorName, stripe),
        asking(48, 0, &Z::supplySecColorName, none),
        asking(49, 1, &Z::supplySecColorNameEn, stripe),
        asking(50, 0, &Z::supplySecColorNameEn, none),
        asking(51, 1, &Z::supplyLength, vinyl),
        asking(52, 0, &Z::supplyLength, none),
        asking(53, 1, &Z::supplyMaterial, cut),
        asking(54, 0, &Z::supplyMaterial, none),
        asking(55, 1, &Z::supplyMaterialName, cut),
        asking(56, 0, &Z::supplyMaterialName, none),
        asking(57, 1, &Z::supplyFormat, cut),
        asking(58, 0, &Z::supplyFormat, none),
        asking(59, 1, &Z::supplyFormatName, cut),
        asking(60, 0, &Z::supplyFormatName, none),
        asking(61, 1, &Z::supplyFormatType, cut),
        asking(62, 0, &Z::supplyFormatType, none),
        asking(63, 1, &Z::supplyColorRGB, cut),
        asking(64, 0, &Z::supplyColorRGB, none),
        asking(65, 1, &Z::supplyColorName, cut),
        asking(66, 0, &Z::supplyColorName, none),
        asking(67, 1, &Z::supplyColorNameEn, cut),
        asking(68, 0, &Z::supplyColorNameEn, none),
        asking(69, 1, &Z::supplyWidth, cut),
        asking(70, 0, &Z::supplyWidth, none),
        asking(71, 1, &Z::supplyIsLandscape, cut),
        asking(72, 0, &Z::supplyIsLandscape, none),
        asking(73, 1, &Z::supplyBackgroundImage, u"DIECUT"_s),
        asking(74, 0, &Z::supplyBackgroundImage, none),
        asking(75, 1, &Z::supplySeparatorWidth, cut),
        asking(76, 0, &Z::supplySeparatorWidth, none),
        asking(77, 1, &Z::supplyNonContinuousLength, cut),
        asking(78, 0, &Z::supplyNonContinuousLength, none),
        asking(79, 1, &Z::supplySwiftLift, cut),
        asking(80, 0, &Z::supplySwiftLift, none),
        asking(81, 1, &Z::supplyMultiUpCount, cut),
        asking(82, 0, &Z::supplyMultiUpCount, none),
        asking(83, 1, &Z::supplyMultiUpGapSize, cut),
        asking(84, 0, &Z::supplyMultiUpGapSize, none),
        asking(85, 1, &Z::supplyRibbonPanels, two),
        asking(86, 1, &Z::supplyRibbonWidth, two),
        asking(87, 1, &Z::supplyRibbonLength, two),
        asking(88, 2, &Z::supplyRibbonColorName, two, 2),
        asking(89, 1, &Z::supplyRibbonColorName, two, 1),
        asking(90, 2, &Z::supplyRibbonColorRGB, two, 2),
        asking(91, 1, &Z::supplyRibbonColorRGB, two, 1),
        asking(92, 3, &Z::supplyRibbonHeat, two, 2, vinyl),
        asking(93, 3, &Z::supplyRibbonHeatOffset, two, 2, vinyl),
        asking(94, 3, &Z::supplyRibbonMaxSpeed, two, 2, vinyl),
        asking(95, 3, &Z::supplyRibbonTension, two, 2, vinyl),
        asking(96, 1, &Z::supplyRibbonColorNames, two),
        asking(97, 1, &Z::supplyRibbonColorRGBs, two),
        asking(98, 2, &Z::supplyRibbonHeats, two, vinyl),
        asking(99, 2, &Z::supplyRibbonHeatOffsets, two, vinyl),
        asking(100, 2, &Z::supplyRibbonMaxSpeeds, two, vinyl),
        asking(101, 2, &Z::supplyRibbonTensions, two, vinyl),
        asking(102, 1, &Z::supplyRibbonsColorNames, pair),
        asking(103, 1, &Z::supplyRibbonsColorRGBs, pair),
        asking(104, 2, &Z::supplyRibbonsHeats, pair, vinyl),
        asking(105, 2, &Z::supplyRibbonsHeatOffsets, pair, vinyl),
        asking(106, 2, &Z::supplyRibbonsMaxSpeeds, pair, vinyl),
        asking(107, 2, &Z::supplyRibbonsTensions, pair, vinyl),
        asking(108, 1, &Z::supplyRibbonType, two),
        asking(109, 1, &Z::supplyRibbonTypes, pair),
    };
}

/// A signal or a slot without a result: what it is given, what it announces, and what the object answers otherwise.
struct Deed
{
    int index;
    QVariantList given;
    QStringList lines;
    QStringList changes;
};

QList<Deed> deeds()
{
    const QVariantList ids = {QStringList{u"13"_s, u"12"_s}};
    const QVariantList skus = {QStringList{u"RIB-TWO"_s, u"RIB-ONE"_s}};
    const QStringList swapped = {uR"(ribbonChangedSignal(["RIB-TWO", "RIB-ONE"]))"_s,
                                 u"ribbon1PercentChanged(0.015625)"_s,
                                 u"ribbon2PercentChanged(0)"_s,
                                 uR"(ribbon1RGBsChanged(["0", "16711680"]))"_s,
                                 uR"(ribbon2RGBsChanged(["0", "-1"]))"_s,
                                 u"alertInvalidRibbon1SupplyCombo()"_s};
    const QStringList swappedState = {u"ribbon 1 0.015625 0 16711680"_s, u"ribbon 2 0 0 -1"_s,
                                      u"ribbons RIB-TWO RIB-ONE"_s};
    const QStringList taken = {uR"(supplyChangedSignal("STRIPED-ROLL"))"_s, u"supplyPercentChanged(-1)"_s,
                               uR"(supplyRGBChanged("255"))"_s};
    const QStringList takenState = {u"roll STRIPED-ROLL 96660E52C02100D060892D80 -1 255"_s,
                                    u"tag 3600 1800 6.25 Blue (en)"_s};
    return {
        {0, {0.25}, {u"supplyPercentChanged(0.25)"_s}, {}},
        {1, {0.5}, {u"ribbon1PercentChanged(0.5)"_s}, {}},
        {2, {-1.0}, {u"ribbon2PercentChanged(-1)"_s}, {}},
        {3, {u"7"_s}, {uR"(supplyRGBChanged("7"))"_s}, {}},
        {4, {QStringList{u"1"_s, u"2"_s}}, {uR"(ribbon1RGBsChanged(["1", "2"]))"_s}, {}},
        {5, {QStringList{u"3"_s}}, {uR"(ribbon2RGBsChanged(["3"]))"_s}, {}},
        {6, {u"S"_s}, {uR"(supplyChangedSignal("S"))"_s}, {}},
        {7, {QStringList{u"A"_s, u"B"_s}}, {uR"(ribbonChangedSignal(["A", "B"]))"_s}, {}},
        {8, {u"P"_s}, {uR"(printerChangedSignal("P"))"_s}, {}},
        {9, {u"T"_s}, {uR"(ribbon1TypeChanged("T"))"_s}, {}},
        {10, {u"U"_s}, {uR"(ribbon2TypeChanged("U"))"_s}, {}},
        {11, {}, {u"alertInvalidRibbonsSupplyCombo()"_s}, {}},
        {12, {}, {u"alertInvalidRibbon1SupplyCombo()"_s}, {}},
        {13, {}, {u"alertInvalidRibbon2SupplyCombo()"_s}, {}},
        {14, {true}, {u"notifyClearTailRibbon1(true)"_s}, {}},
        {15, {false}, {u"notifyClearTailRibbon2(false)"_s}, {}},
        {16, {true}, {u"notifySupplyWidth(true)"_s}, {}},
        {17, {9}, {u"notifySupplySensor(9)"_s}, {}},
        {18, {1, 2, 3, 4}, {u"notifyRibbonTensions(1, 2, 3, 4)"_s}, {}},
        {112, {7}, {}, {u"language Weiß"_s}},
        {113, {u"X"_s}, {}, {u"roll X 3203021900A180A031493880 0.5 16711680"_s}},
        {114, {rolls::striped}, taken + QStringList{u"notifySupplySensor(4)"_s}, takenState},
        {115, ids, swapped, swappedState},
        {116, {u"new"_s}, {}, {u"uids new uid1 uid2"_s}},
        {117, {u"new"_s}, {}, {u"uids uid new uid2"_s}},
        {118, {u"new"_s}, {}, {u"uids uid uid1 new"_s}},
        {119, {-1}, {u"supplyPercentChanged(-1)"_s}, {u"roll CUT-ROLL 3203021900A180A031493880 -1 16711680"_s}},
        {120, {-1}, {u"ribbon1PercentChanged(-1)"_s}, {u"ribbon 1 -1 0 -1"_s}},
        {121, {-1}, {u"ribbon2PercentChanged(-1)"_s}, {u"ribbon 2 -1 0 16711680"_s}},
        {122, skus, swapped, swappedState},
        {123, {rolls::striped}, taken, takenState},
        {124, ids, swapped, swappedState},
        {125, {}, {u"supplyPercentChanged(0.5)"_s}, {}},
        {126, {}, {u"ribbon1PercentChanged(0)"_s}, {}},
        {127, {}, {u"ribbon2PercentChanged(0.015625)"_s}, {}},
        {128, {-1}, {u"supplyPercentChanged(-1)"_s}, {u"roll CUT-ROLL 3203021900A180A031493880 -1 16711680"_s}},
        {129, {-1}, {u"ribbon1PercentChanged(-1)"_s}, {u"ribbon 1 -1 0 -1"_s}},
        {130, {-1}, {u"ribbon2PercentChanged(-1)"_s}, {u"ribbon 2 -1 0 16711680"_s}},
        {131, {}, {u"supplyPercentChanged(0.75)"_s}, {u"roll CUT-ROLL 3203021900A180A031493880 0.75 16711680"_s}},
        {132, {}, {u"ribbon1PercentChanged(0.5)"_s}, {u"ribbon 1 0.5 0 -1"_s}},
        {133, {}, {u"ribbon2PercentChanged(0.75)"_s}, {u"ribbon 2 0.75 0 16711680"_s}},
        {134, {}, {uR"(supplyRGBChanged("16711680"))"_s}, {}},
        {135, {}, {uR"(ribbon1RGBsChanged(["0", "-1"]))"_s}, {}},
        {136, {}, {uR"(ribbon2RGBsChanged(["0", "16711680"]))"_s}, {}},
        {137, {rolls::striped}, {}, {u"tag 3600 1800 6.25 Blue (en)"_s}},
        {138, {}, {uR"(ribbon1TypeChanged("Resin"))"_s}, {u"types Resin -1"_s}},
        {139, {}, {uR"(ribbon2TypeChanged("Wax"))"_s}, {u"types -1 Wax"_s}},
        {140, {}, {u"alertInvalidRibbon2SupplyCombo()"_s}, {}},
        {141, {}, {u"notifyClearTailRibbon1(false)"_s, u"notifyClearTailRibbon2(false)"_s}, {}},
        {142, {}, {u"notifySupplySensor(5)"_s}, {}},
        {143, {}, {u"notifySupplyWidth(false)"_s}, {}},
        {144, {}, {u"notifyRibbonTensions(1254, 1254, -1, -1)"_s}, {}},
    };
}

/// A roll, two ribbons and readings: nothing is unset, so that an answer is not a default.
void load(Z &database, const RollCatalogue &catalogue, const QString &tag = rolls::dieCut)
{
    if (!database.setup(catalogue.path()))
        qFatal("the catalogue does not open");
    database.setSupplyId(tag);
    database.setRibbonIds({u"12"_s, u"13"_s});
    database.setSupplyMileage(0);
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    database.setSupplyUid(u"uid"_s);
    database.setRibbon1Uid(u"uid1"_s);
    database.setRibbon2Uid(u"uid2"_s);
    database.*memberOf(RollLength{}) = 4800.0;
    database.*memberOf(Ribbon1Length{}) = 9450.0;
    database.*memberOf(Ribbon2Length{}) = 18900.0;
}

/// What the object answers of its state, a line a subject.
QStringList state(Z &database)
{
    const auto number = [](double value) { return QString::number(value); };
    return {u"roll %1 %2 %3 %4"_s.arg(database.supplySKU(), database.supplyId(),
                                      number(database.supplySupplyPercent()), database.supplySupplyRGB()),
            u"tag %1 %2 %3 %4"_s.arg(number(database.supplyTagLength()), number(database.supplyLength()),
                                     number(database.supplyWidth()), database.supplyColorName()),
            u"ribbon 1 %1 %2"_s.arg(number(database.supplyRibbon1Percent()), database.supplyRibbon1RGBs().join(u' ')),
            u"ribbon 2 %1 %2"_s.arg(number(database.supplyRibbon2Percent()), database.supplyRibbon2RGBs().join(u' ')),
            u"ribbons %1"_s.arg(database.supplyRibbonSKUs().join(u' ')),
            u"types %1 %2"_s.arg(database.ribbon1Type(), database.ribbon2Type()),
            u"uids %1 %2 %3"_s.arg(database.supplyUid(), database.ribbon1Uid(), database.ribbon2Uid()),
            u"language %1"_s.arg(database.supplyColorName(u"CONT-4"_s))};
}

} // namespace

class MetaCalls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMethodIsCalledHere();
    void answersByNameAndByIndex_data();
    void answersByNameAndByIndex();
    void deedsByNameAndByIndex_data();
    void deedsByNameAndByIndex();
    void setupByNameAndByIndex_data();
    void setupByNameAndByIndex();
    void queued();
    void connectedByName();

private:
    const RollCatalogue m_catalogue;
};

void MetaCalls::everyMethodIsCalledHere()
{
    QList<int> indices = {110, 111}; // setup, which needs an object of its own
    for (const Answer &answer : answers())
        indices.append(answer.index);
    for (const Deed &deed : deeds())
        indices.append(deed.index);
    std::sort(indices.begin(), indices.end());
    QList<int> all(methodCount);
    std::iota(all.begin(), all.end(), 0);
    QCOMPARE(indices, all);
}

void MetaCalls::answersByNameAndByIndex_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<qsizetype>("row");

    const QList<Answer> rows = answers();
    for (qsizetype row = 0; row < rows.size(); ++row) {
        const QByteArray signature = methodAt(rows[row].index).methodSignature();
        QTest::addRow("%s, die-cut roll", signature.constData()) << rolls::dieCut << row;
        QTest::addRow("%s, striped roll", signature.constData()) << rolls::striped << row;
    }
}

void MetaCalls::answersByNameAndByIndex()
{
    QFETCH(QString, tag);
    QFETCH(qsizetype, row);

    const Answer answer = answers().at(row);
    Z database;
    load(database, m_catalogue, tag);
    SignalLog log(&database);
    const QStringList before = state(database);
    const QVariant direct = answer.directly(database);
    const QVariant named = byName(database, answer.index, answer.given);
    const QVariant indexed = byIndex(database, answer.index, answer.given);
    QVERIFY(direct.isValid());
    QCOMPARE(named.metaType(), direct.metaType());
    QCOMPARE(named, direct);
    QCOMPARE(indexed.metaType(), direct.metaType());
    QCOMPARE(indexed, direct);
    // Without a place for the result the method is called all the same.
    QCOMPARE(byIndex(database, answer.index, answer.given, Result::NotWanted),
             QVariant(methodAt(answer.index).returnMetaType()));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(state(database), before);
}

void MetaCalls::deedsByNameAndByIndex_data()
{
    QTest::addColumn<qsizetype>("row");

    const QList<Deed> rows = deeds();
    for (qsizetype row = 0; row < rows.size(); ++row)
        QTest::newRow(methodAt(rows[row].index).methodSignature().constData()) << row;
}

void MetaCalls::deedsByNameAndByIndex()
{
    QFETCH(qsizetype, row);

    const Deed deed = deeds().at(row);
    const auto call = [&deed](Z &database, bool named) {
        return named ? byName(database, deed.index, deed.given) : byIndex(database, deed.index, deed.given);
    };
    for (const bool named : {true, false}) {
        Z database;
        load(database, m_catalogue);
        SignalLog log(&database);
        const QStringList before = state(database);
        QVERIFY(!call(database, named).isValid());
        QCOMPARE(log.take(), deed.lines);
        QStringList changes = state(database);
        changes.removeIf([&before](const QString &line) { return before.contains(line); });
        QCOMPARE(changes, deed.changes);
    }
}

void MetaCalls::setupByNameAndByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("connectionName");
    QTest::addColumn<bool>("opens");
    QTest::addColumn<double>("width");

    const QString catalogue = m_catalogue.path();
    const QString usual = u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s;
    QTest::newRow("path and name") << 110 << catalogue << usual << true << 6.25;
    QTest::newRow("another name is used by no lookup") << 110 << catalogue << u"other"_s << true << -1.0;
    QTest::newRow("path alone: the usual name") << 111 << catalogue << usual << true << 6.25;
    QTest::newRow("path alone, no file") << 111 << catalogue + u".none"_s << usual << false << -1.0;
}

void MetaCalls::setupByNameAndByIndex()
{
    QFETCH(int, index);
    QFETCH(QString, file);
    QFETCH(QString, connectionName);
    QFETCH(bool, opens);
    QFETCH(double, width);

    const QVariantList given = index == 110 ? QVariantList{file, connectionName} : QVariantList{file};
    for (const bool named : {true, false}) {
        const QuietQt quiet;
        Z database;
        QVERIFY(!QSqlDatabase::contains(connectionName));
        QCOMPARE(named ? byName(database, index, given) : byIndex(database, index, given), QVariant(opens));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList{connectionName});
        QCOMPARE(database.supplyWidth(u"CONT-6"_s), width);
        QSqlDatabase::removeDatabase(connectionName);
    }
}

void MetaCalls::queued()
{
    Z database;
    load(database, m_catalogue);
    SignalLog log(&database);
    QVERIFY(
        QMetaObject::invokeMethod(&database, "setSupplyId", Qt::QueuedConnection, Q_ARG(QString, rolls::striped)));
    QVERIFY(QMetaObject::invokeMethod(&database, "supplySetRibbonSKUs", Qt::QueuedConnection,
                                      Q_ARG(QStringList, QStringList{u"GONE"_s})));
    QVERIFY(QMetaObject::invokeMethod(&database, "checkRibbonWidth", Qt::QueuedConnection));
    QCOMPARE(log.take(), QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), QStringList({uR"(supplyChangedSignal("STRIPED-ROLL"))"_s, u"supplyPercentChanged(-1)"_s,
                                      uR"(supplyRGBChanged("255"))"_s, u"notifySupplySensor(4)"_s,
                                      uR"(ribbonChangedSignal(["GONE"]))"_s, u"ribbon1PercentChanged(-1)"_s,
                                      u"ribbon2PercentChanged(-1)"_s, uR"(ribbon1RGBsChanged(["-1", "-1"]))"_s,
                                      uR"(ribbon2RGBsChanged(["-1", "-1"]))"_s, u"alertInvalidRibbon1SupplyCombo()"_s,
                                      u"notifySupplyWidth(true)"_s}));
}

void MetaCalls::connectedByName()
{
    Z database;
    load(database, m_catalogue);
    // Signals reach public and private slots, with fewer arguments and over the event loop too.
    QVERIFY(connect(&database, SIGNAL(supplyChangedSignal(QString)), &database, SLOT(setSupplyUid(QString))));
    QVERIFY(connect(&database, SIGNAL(ribbonChangedSignal(QStringList)), &database, SLOT(updateRibbon1Type())));
    QVERIFY(connect(&database, SIGNAL(notifyRibbonTensions(int, int, int, int)), &database,
                    SLOT(setSupplyMileage(int)), Qt::QueuedConnection));
    database.setSupplyId(rolls::striped);
    QCOMPARE(database.supplyUid(), u"STRIPED-ROLL"_s);
    QVERIFY(
        QMetaObject::invokeMethod(&database, "setRibbonIds", Q_ARG(QStringList, QStringList({u"13"_s, u"12"_s}))));
    QCOMPARE(database.ribbon1Type(), u"Wax"_s);
    SignalLog log(&database);
    QVERIFY(QMetaObject::invokeMethod(&database, "checkRibbonTensions"));
    QCOMPARE(log.take(), QStringList{u"notifyRibbonTensions(1314, 1314, 1214, 1214)"_s});
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), QStringList{u"supplyPercentChanged(%1)"_s.arg(QString::number(
                             (1314 * 0.0393701 - 3600.0 + 1800.0) / 1800.0, 'g', QLocale::FloatingPointShortest))});
}

QTEST_GUILESS_MAIN(MetaCalls)
#include "tst_metacalls.moc"

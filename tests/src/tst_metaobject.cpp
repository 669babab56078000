// SPDX-License-Identifier: LGPL-2.1-or-later
// The meta-object: its methods in their order, and nothing else. How they are called: tst_metacalls.cpp.

#include "support/datatable.h"
#include "support/metamethods.h"
#include "support/signallog.h"

#include <zrsupplydatabase.h>

#include <QtCore/QSet>
#include <QtTest/QTest>

#include <numeric>

using namespace Qt::Literals::StringLiterals;
using namespace metamethods;

namespace {

/// A line of tests/data/metamethods.tsv.
struct Method
{
    int index;
    QString kind;
    QString access;
    QString signature;
    QString returnType;
    QStringList parameterNames;
};

QList<Method> readGoldenList()
{
    QList<Method> list;
    for (const QStringList &row : dataTable("metamethods.tsv", 6)) {
        list.append({row[0].toInt(), row[1], row[2], row[3], row[4],
                     row[5] == "-"_L1 ? QStringList() : row[5].split(u", "_s)});
    }
    return list;
}

/// What to do about a difference, and what it means for hosts that are built already.
constexpr auto howToAgree =
    "\nThe meta-object no longer says what tests/data/metamethods.tsv holds, by which hosts call: by name and by index.\n"
    "  Not meant: mend src/zrsupplydatabase.h.\n"
    "  Meant, and slots were added behind the last one: add their rows at the end. Hosts keep working. Minor version, the\n"
    "  SOVERSION stays.\n"
    "  Meant, and anything else (a method moved, was inserted or renamed, a type, parameter name or access changed):\n"
    "  correct the rows. Built hosts call the wrong method. Major version, and with it the SOVERSION.\n"
    "Then run docs/make-interface.py and scripts/accept-interface, and name the change in the commit's subject.";

template <typename... Parameters>
int indexOf(void (Z::*signal)(Parameters...))
{
    int index = -1;
    void *arguments[] = {&index, &signal};
    meta.d.static_metacall(nullptr, QMetaObject::IndexOfMethod, 0, arguments);
    return index;
}

} // namespace

class MetaObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsNothingElse();
    void goldenList_data();
    void goldenList();
    void typesThatCross();
    void ordinaryMembersAreNotReached();
    void metacast_data();
    void metacast();
    void idsOutsideTheMethods();
    void argumentTypesAreBuiltIn();
    void indexOfSignals();
    void cleanup();
    void cleanupTestCase();

private:
    bool m_differs = false; // from what was agreed
};

/// Every difference is told by its own row, what to do about them once.
void MetaObject::cleanup()
{
    m_differs = m_differs || QTest::currentTestFailed();
}

void MetaObject::cleanupTestCase()
{
    if (m_differs)
        qWarning("%s", howToAgree);
}

void MetaObject::holdsNothingElse()
{
    QCOMPARE(QByteArray(meta.className()), "ZrSupplyDatabase"_ba);
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), methodCount);
    QCOMPARE(readGoldenList().size(), methodCount);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
    QCOMPARE(meta.classInfoCount(), 0);
    QCOMPARE(meta.constructorCount(), 0);
    const Z database;
    QCOMPARE(database.metaObject(), &meta);
}

void MetaObject::goldenList_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("access");
    QTest::addColumn<QString>("signature");
    QTest::addColumn<QString>("returnType");
    QTest::addColumn<QStringList>("parameterNames");
    QTest::addColumn<bool>("isVariant");

    const QList<Method> list = readGoldenList();
    for (qsizetype i = 0; i < qMin<qsizetype>(list.size(), methodCount); ++i) {
        const Method &method = list[i];
        // A variant leaves out the last arguments of the method before it.
        const QString name = method.signature.section(u'(', 0, 0);
        const bool isVariant = i > 0 && list[i - 1].signature.section(u'(', 0, 0) == name;
        QCOMPARE(method.index, int(i));
        QTest::addRow("%d %s", method.index, qPrintable(method.signature))
            << method.index << method.kind << method.access << method.signature << method.returnType
            << method.parameterNames << isVariant;
    }
}

void MetaObject::goldenList()
{
    QFETCH(int, index);
    QFETCH(QString, kind);
    QFETCH(QString, access);
    QFETCH(QString, signature);
    QFETCH(QString, returnType);
    QFETCH(QStringList, parameterNames);
    QFETCH(bool, isVariant);

    const QMetaMethod method = methodAt(index);
    QCOMPARE(QString::fromLatin1(method.methodSignature()), signature);
    QCOMPARE(QString::fromLatin1(method.typeName()), returnType);
    QCOMPARE(method.methodType(), kind == "signal"_L1 ? QMetaMethod::Signal : QMetaMethod::Slot);
    QCOMPARE(method.access(), access == "private"_L1 ? QMetaMethod::Private : QMetaMethod::Public);
    QStringList names;
    for (const QByteArray &name : method.parameterNames())
        names.append(QString::fromLatin1(name));
    QCOMPARE(names, parameterNames);
    QCOMPARE(method.attributes(), isVariant ? int(QMetaMethod::Cloned) : 0);
    QCOMPARE(meta.indexOfMethod(method.methodSignature().constData()), meta.methodOffset() + index);
    QCOMPARE(method.methodType() == QMetaMethod::Signal, index < signalCount);
    QCOMPARE(QByteArray(method.tag()), QByteArray());
    QCOMPARE(method.revision(), 0);
}

void MetaObject::typesThatCross()
{
    QSet<QByteArray> types;
    for (int i = 0; i < methodCount; ++i) {
        const QMetaMethod method = methodAt(i);
        types.insert(method.returnMetaType().name());
        for (int j = 0; j < method.parameterCount(); ++j)
            types.insert(method.parameterMetaType(j).name());
    }
    QCOMPARE(types, QSet<QByteArray>({"QString", "QByteArray", "int", "double", "bool", "void", "QStringList",
                                      "QVariantList", "QVariantHash"}));
    // Of the library's own types the meta-object knows the class itself only.
    QCOMPARE(QByteArray(meta.metaType().name()), "ZrSupplyDatabase"_ba);
    QVERIFY(!QMetaType::fromName("SupplyC").isValid());
}

void MetaObject::ordinaryMembersAreNotReached()
{
    const QList<QByteArray> ordinary = {
        "init",
        "getSingleVariantByQuery",
        "getStringListFromVariantList",
        "getSkuFromSupplyId",
        "getSkusFromRibbonIds",
        "isSupplyIdShared",
        "getSupplyLength",
        "supplyFormatFromTable",
        "supplyGetTypeSpecialCase",
        "getColorNameFromEnum",
        "getColorRGBFromEnum",
        "getSecColorNameFromEnum",
        "getSecColorRGBFromEnum",
        "getMaterialNameFromEnum",
        "getFormatNameFromEnum",
        "mmToInches",
        "feetToInches",
        "mileageToPercentage",
    };
    for (int i = 0; i < methodCount; ++i)
        QVERIFY2(!ordinary.contains(methodAt(i).name()), methodAt(i).methodSignature().constData());
    Z database;
    QTest::ignoreMessage(QtWarningMsg, "QMetaObject::invokeMethod: No such method ZrSupplyDatabase::init()");
    QVERIFY(!QMetaObject::invokeMethod(&database, "init"));
    QCOMPARE(database.supplyRibbonSKUs().size(), 2);
}

void MetaObject::metacast_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isOne");

    QTest::newRow("its own name") << "ZrSupplyDatabase"_ba << true;
    QTest::newRow("QObject") << "QObject"_ba << true;
    QTest::newRow("lower case") << "zrsupplydatabase"_ba << false;
    QTest::newRow("beginning of its name") << "ZrSupply"_ba << false;
    QTest::newRow("more than its name") << "ZrSupplyDatabase2"_ba << false;
    QTest::newRow("another class") << "QTimer"_ba << false;
    QTest::newRow("empty name") << ""_ba << false;
}

void MetaObject::metacast()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isOne);

    Z database;
    QCOMPARE(database.qt_metacast(name.constData()), isOne ? static_cast<void *>(&database) : nullptr);
    QCOMPARE(database.inherits(name.constData()), isOne);
    QCOMPARE(database.qt_metacast(nullptr), nullptr);
}

void MetaObject::idsOutsideTheMethods()
{
    Z database;
    SignalLog log(&database);
    const int offset = meta.methodOffset();
    void *arguments[] = {nullptr};
    for (const int beyond : {0, 1, 7, 1000}) {
        const int id = offset + methodCount + beyond;
        QCOMPARE(database.qt_metacall(QMetaObject::InvokeMetaMethod, id, arguments), beyond);
        QCOMPARE(database.qt_metacall(QMetaObject::RegisterMethodArgumentMetaType, id, arguments), beyond);
    }
    // QObject keeps what is its own: its answer is negative and is passed on.
    QString announced;
    connect(&database, &QObject::objectNameChanged, this, [&announced](const QString &name) { announced = name; });
    QString name = u"name"_s;
    void *nameArguments[] = {nullptr, &name};
    const int own = QObject::staticMetaObject.indexOfMethod("objectNameChanged(QString)");
    QCOMPARE(database.qt_metacall(QMetaObject::InvokeMetaMethod, own, nameArguments), own - offset);
    QCOMPARE(announced, name);
    QCOMPARE(database.qt_metacall(QMetaObject::InvokeMetaMethod, -3, arguments), -3);
    QCOMPARE(log.take(), QStringList());
}

void MetaObject::argumentTypesAreBuiltIn()
{
    // What is asked for has no registration of its own to do: the answer is an empty type, for every argument.
    Z database;
    SignalLog log(&database);
    for (int i = 0; i < methodCount; ++i) {
        for (int argument = 0; argument <= methodAt(i).parameterCount(); ++argument) {
            QMetaType type = QMetaType::fromType<QString>();
            void *arguments[] = {&type, &argument};
            QCOMPARE(
                database.qt_metacall(QMetaObject::RegisterMethodArgumentMetaType, meta.methodOffset() + i, arguments),
                i - methodCount);
            QVERIFY(!type.isValid());
        }
    }
    QCOMPARE(log.take(), QStringList());
}

void MetaObject::indexOfSignals()
{
    const QList<int> indices = {
        indexOf(&Z::supplyPercentChanged),
        indexOf(&Z::ribbon1PercentChanged),
        indexOf(&Z::ribbon2PercentChanged),
        indexOf(&Z::supplyRGBChanged),
        indexOf(&Z::ribbon1RGBsChanged),
        indexOf(&Z::ribbon2RGBsChanged),
        indexOf(&Z::supplyChangedSignal),
        indexOf(&Z::ribbonChangedSignal),
        indexOf(&Z::printerChangedSignal),
        indexOf(&Z::ribbon1TypeChanged),
        indexOf(&Z::ribbon2TypeChanged),
        indexOf(&Z::alertInvalidRibbonsSupplyCombo),
        indexOf(&Z::alertInvalidRibbon1SupplyCombo),
        indexOf(&Z::alertInvalidRibbon2SupplyCombo),
        indexOf(&Z::notifyClearTailRibbon1),
        indexOf(&Z::notifyClearTailRibbon2),
        indexOf(&Z::notifySupplyWidth),
        indexOf(&Z::notifySupplySensor),
        indexOf(&Z::notifyRibbonTensions),
    };
    QList<int> inOrder(signalCount);
    std::iota(inOrder.begin(), inOrder.end(), 0);
    QCOMPARE(indices, inOrder);
    QCOMPARE(indexOf(&Z::setSupplyMileage), -1); // a slot is none
}

QTEST_GUILESS_MAIN(MetaObject)
#include "tst_metaobject.moc"

// SPDX-License-Identifier: LGPL-2.1-or-later
// Faults below the library: the n-th operation on the file, or the n-th allocation of SQLite, fails once or for ever.
// Every answer is the value or the default, and the same connection answers as before once the fault is gone.

#include "childrun.h"
#include "smallcatalogue.h"

#include "support/tier.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

class TestTrustFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fails_data();
    void fails();
};

void TestTrustFaults::fails_data()
{
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QString>("duration");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("leastOperations");
    QTest::newRow("a file operation, once") << u"files"_s << u"once"_s << 1 << 300;
    QTest::newRow("a file operation, for ever") << u"files"_s << u"forever"_s << 1 << 300;
    QTest::newRow("an allocation, once") << u"memory"_s << u"once"_s << byTier(17, 5, 1) << 3000;
    QTest::newRow("an allocation, for ever") << u"memory"_s << u"forever"_s << byTier(17, 5, 1) << 3000;
}

void TestTrustFaults::fails()
{
    QFETCH(QString, verb);
    QFETCH(QString, duration);
    QFETCH(int, step);
    QFETCH(int, leastOperations);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"catalogue.sqlite"_s);
    SmallCatalogue().make(path);
    ChildLimits limits;
    limits.seconds = 3600;
    Child child({verb, Child::argument(path), duration, u"1"_s, QString::number(step)}, limits);
    const auto [summary, complaints] = child.report(u"runs"_s);
    QCOMPARE(child.end(), ChildEnd::Exited);
    QVERIFY2(complaints.isEmpty(), qPrintable(complaints.mid(0, 10).join(u'\n')));
    QCOMPARE(child.exitStatus(), 0);
    QVERIFY2(summary.section(u' ', 3, 3).toInt() >= leastOperations, qPrintable(summary));
    const int runs = summary.section(u' ', 1, 1).toInt();
    QVERIFY2(summary.section(u' ', 5, 5).toInt() > runs / 10, "the faults show in the answers");
    qInfo("%s", qPrintable(summary));
}

QTEST_GUILESS_MAIN(TestTrustFaults)
#include "tst_trust_faults.moc"

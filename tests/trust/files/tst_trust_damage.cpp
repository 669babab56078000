// SPDX-License-Identifier: LGPL-2.1-or-later
// Damaged catalogues: whatever byte of a file is wrong, every lookup answers the value that SQLite reads or its
// default, in a bounded time.

#include "childrun.h"
#include "damages.h"
#include "smallcatalogue.h"

#include "support/tier.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

class TestTrustDamage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagesCoverTheFile();
    void damaged_data();
    void damaged();
};

void TestTrustDamage::damagesCoverTheFile()
{
    const QByteArray file = SmallCatalogue().bytes();
    QSet<qsizetype> changed;
    QSet<qsizetype> lengths;
    qsizetype fields = 0;
    for (const Damage &damage : damagesOf(file)) {
        if (damage.replacement.isEmpty()) {
            lengths.insert(damage.offset);
            continue;
        }
        QVERIFY(damage.offset + damage.replacement.size() <= file.size());
        QVERIFY2(file.mid(damage.offset, damage.replacement.size()) != damage.replacement, damage.what.constData());
        changed.insert(damage.offset);
        fields += damage.what.startsWith("byte") ? 0 : 1;
    }
    QCOMPARE(changed.size(), file.size());
    QCOMPARE(lengths.size(), file.size());
    QVERIFY2(fields > 2000, "header, page and cell numbers have values of their own");
}

void TestTrustDamage::damaged_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("step");
    // How many of the damages are left out between two, and in how many rows the work is done, as a test function has
    // half an hour. No distance has a factor in common with the four changes a byte, so that each of them is met.
    struct Amount
    {
        const char *encoding;
        int distance;
        int rows;
    };
    const Amount amounts[] = {
        {"UTF-8", byTier(29, 5, 1), byTier(1, 1, 8)},
        {"UTF-16le", byTier(251, 31, 29), 1},
        {"UTF-16be", byTier(251, 31, 29), 1},
    };
    for (const auto &[encoding, distance, rows] : amounts) {
        for (int row = 0; row < rows; ++row)
            QTest::addRow("%s, part %d of %d", encoding, row + 1, rows)
                << QByteArray(encoding) << row * distance << rows * distance;
    }
}

void TestTrustDamage::damaged()
{
    QFETCH(QByteArray, encoding);
    QFETCH(int, first);
    QFETCH(int, step);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"damaged.sqlite"_s);
    SmallCatalogue{encoding, 512}.make(path);
    ChildLimits limits;
    limits.seconds = 3600; // all files together; the child itself watches the time of one
    Child child({u"damage"_s, Child::argument(path), QString::number(first), QString::number(step)}, limits);
    const auto [summary, complaints] = child.report(u"damages"_s);
    QCOMPARE(child.end(), ChildEnd::Exited);
    QVERIFY2(complaints.isEmpty(), qPrintable(complaints.mid(0, 10).join(u'\n')));
    QCOMPARE(child.exitStatus(), 0);
    const qlonglong damages = summary.section(u' ', 1, 1).toLongLong();
    QCOMPARE(summary.section(u' ', 3, 3).toLongLong(), (damages - first + step - 1) / step);
    // SQLite calls more corrupt than rows that leave their page. What that lets off has to stay rare; mostly it is
    // none.
    constexpr int mostUndecided = 10;
    QVERIFY2(summary.section(u' ', 5, 5).toInt() <= mostUndecided, qPrintable(summary));
    qInfo("%s", qPrintable(summary));
}

QTEST_GUILESS_MAIN(TestTrustDamage)
#include "tst_trust_damage.moc"

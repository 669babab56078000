// SPDX-License-Identifier: LGPL-2.1-or-later
// Random calls of the whole object, one after another and within one another, beside a model of it.

#include "callsequence.h"
#include "quietlog.h"

#include "support/metamethods.h"
#include "support/tier.h"

#include <QtCore/QSet>
#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;

class TestSequences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomSequences();
    void everyMethodIsCalled();

private:
    const QuietLog m_quietLog; // of catalogues that do not open
    CallSequences m_sequences;
};

void TestSequences::randomSequences()
{
    const unsigned seed = testSeed();
    const int count = byTier(2'000, 20'000, 100'000);
    qlonglong calls = 0;
    for (int i = 0; i < count; ++i) {
        RandomSource choices(seed + unsigned(i));
        const QList<CallStep> steps = m_sequences.steps(choices, 40);
        QString difference;
        {
            const QuietQt quiet; // of connections that are replaced
            difference = m_sequences.play(steps);
        }
        if (difference.isEmpty()) {
            calls += steps.size();
            continue;
        }
        const QuietQt quiet;
        QStringList told = {
            u"ZR_SEED=%1: %2; the shortest sequence that differs:"_s.arg(seed + unsigned(i)).arg(difference)};
        for (const CallStep &step : m_sequences.shortest(steps))
            told.append(u"    "_s + step.text());
        QFAIL(qPrintable(told.join(u'\n')));
    }
    qInfo("%d sequences of %lld calls as the model has them", count, calls);
}

void TestSequences::everyMethodIsCalled()
{
    RandomSource choices(testSeed());
    QSet<int> called;
    QSet<int> reactedTo;
    for (int i = 0; i < 200; ++i) {
        for (const CallStep &step : m_sequences.steps(choices, 40)) {
            called.insert(step.index);
            for (const CallStep::Reaction &reaction : step.reactions)
                reactedTo.insert(reaction.signal);
        }
    }
    QCOMPARE(called.size(), metamethods::methodCount);
    QCOMPARE(reactedTo.size(), metamethods::signalCount);
}

QTEST_GUILESS_MAIN(TestSequences)

#include "tst_sequences.moc"

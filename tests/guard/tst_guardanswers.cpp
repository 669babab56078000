// SPDX-License-Identifier: LGPL-2.1-or-later
// Every operation that answers something, asked bare and under the guard: no answer differs.

#include "guardedcatalogue.h"

#include <QtCore/QHash>
#include <QtCore/QMetaMethod>
#include <QtTest/QtTest>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Values to ask with, by the type of a parameter.
QVariantList valuesFor(int type, const FixtureCatalogue &catalogue)
{
    const auto column = [&](const QString &statement) {
        return answer(catalogue.path(), statement).toString().split(u' ');
    };
    switch (type) {
    case QMetaType::QString: {
        QVariantList values = {u""_s, u"UnknownSupply"_s, u"-1"_s, u"no such"_s, u"it's"_s, u"' OR '1'='1"_s, u"1"_s};
        for (const auto &text : column(u"SELECT (SELECT group_concat(itemNum, ' ') FROM roll) || ' ' ||"
                                       " (SELECT group_concat(sku, ' ') FROM ribbon) || ' ' ||"
                                       " (SELECT group_concat(supplysensortype, ' ') FROM supplysensor)"_s))
            values.append(text);
        return values;
    }
    case QMetaType::Int:
        return {-1, 0, 1, 2, 3, 7};
    case QMetaType::Double:
        return {-1.0, 0.5, 100.0};
    default:
        return {};
    }
}

/// Every value for every parameter, the later parameters turning fastest.
void forEachCombination(const QList<QVariantList> &values, QVariantList &chosen,
                        const std::function<void(const QVariantList &)> &call)
{
    if (chosen.size() == values.size()) {
        call(chosen);
        return;
    }
    for (const QVariant &value : values[chosen.size()]) {
        chosen.append(value);
        forEachCombination(values, chosen, call);
        chosen.removeLast();
    }
}

/// What every operation that returns something answers to every combination of values, in the order of the interface.
QStringList allAnswers(const FixtureCatalogue &catalogue, const QHash<int, QVariantList> &pool)
{
    ZrSupplyDatabase library;
    library.setup(catalogue.path());
    QStringList answers;
    const QMetaObject *meta = library.metaObject();
    for (int index = meta->methodOffset(); index < meta->methodCount(); ++index) {
        const QMetaMethod method = meta->method(index);
        if (method.returnType() == QMetaType::Void || method.name() == "setup")
            continue;
        QList<QVariantList> values;
        for (int n = 0; n < method.parameterCount(); ++n)
            values.append(pool.value(method.parameterType(n)));
        QVariantList chosen;
        forEachCombination(values, chosen, [&](const QVariantList &arguments) {
            QVariant result(method.returnMetaType());
            void *slots_[8] = {method.returnMetaType() == QMetaType::fromType<QVariant>()
                                   ? static_cast<void *>(&result)
                                   : result.data()};
            QVariantList kept = arguments;
            for (qsizetype n = 0; n < kept.size(); ++n)
                slots_[n + 1] = kept[n].data();
            QMetaObject::metacall(&library, QMetaObject::InvokeMetaMethod, index, slots_);
            QString text;
            QDebug(&text) << method.methodSignature() << arguments << result;
            answers.append(text);
        });
    }
    return answers;
}

} // namespace

class TestGuardAnswers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLookupAnswersTheSame();
};

void TestGuardAnswers::everyLookupAnswersTheSame()
{
    const FixtureCatalogue catalogue;
    QHash<int, QVariantList> pool;
    for (const int type : {QMetaType::QString, QMetaType::Int, QMetaType::Double})
        pool.insert(type, valuesFor(type, catalogue));
    const QStringList bare = allAnswers(catalogue, pool);
    const Guarded guarded(catalogue.path());
    const QStringList under = allAnswers(catalogue, pool);
    QVERIFY2(bare.size() > 1000, qPrintable(QString::number(bare.size())));
    for (qsizetype n = 0; n < bare.size(); ++n)
        QCOMPARE(under[n], bare[n]);
}

QTEST_GUILESS_MAIN(TestGuardAnswers)
#include "tst_guardanswers.moc"

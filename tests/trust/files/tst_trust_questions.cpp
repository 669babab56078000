// SPDX-License-Identifier: LGPL-2.1-or-later
// What the tests of bad files ask: every SQL text of the library, each answered with a value by a sound catalogue.

#include "questions.h"
#include "smallcatalogue.h"

#include "support/ask.h"
#include "support/statementlist.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

class TestTrustQuestions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyTextIsAsked();
    void everyTextIsAskedAlone_data();
    void everyTextIsAskedAlone();
    void answersAreWhatTheFileSays_data();
    void answersAreWhatTheFileSays();
    void closedCatalogueAnswersTheDefaults();
    void valuesAndDefaultsDiffer();

private:
    QTemporaryDir m_folder;
    QString m_path;
};

void TestTrustQuestions::initTestCase()
{
    m_path = m_folder.filePath(u"small.sqlite"_s);
    SmallCatalogue().make(m_path);
    QVERIFY2(bytesOfFile(m_path).size() < 32 * 1024, "small enough to change every byte of it");
}

void TestTrustQuestions::everyTextIsAsked()
{
    QStringList asked;
    for (const Question &question : questions())
        asked.append(question.statement);
    QStringList known;
    for (const Statement &statement : statementList())
        known.append(statement.name);
    asked.sort();
    known.sort();
    QCOMPARE(asked, known);
    QCOMPARE(asked.size(), 43);
}

void TestTrustQuestions::everyTextIsAskedAlone_data()
{
    QTest::addColumn<qsizetype>("index");
    for (qsizetype i = 0; i < questions().size(); ++i)
        QTest::newRow(qPrintable(questions()[i].statement)) << i;
}

void TestTrustQuestions::everyTextIsAskedAlone()
{
    QFETCH(qsizetype, index);
    const Question &question = questions()[index];
    RecordedDatabase recorded(m_path);
    recorded->setSupplyId(u"4B000912C100849000000000"_s); // what an unknown roll answers by, and the shared id
    recorded.takeTexts();
    askOne(*recorded, question);
    QStringList values = question.values;
    values.replaceInStrings(QLatin1StringView(materialOfRoll), u"1"_s);
    QStringList texts = recorded.takeTexts();
    QCOMPARE(texts.takeLast(), filled(question.statement.toLatin1().constData(), values));
    // Before it comes at most what it depends on, or itself once more.
    const QString material = filled("rollMaterial", {u"CONT-4"_s});
    for (const QString &text : std::as_const(texts))
        QVERIFY2(text == material || text.startsWith("SELECT sku FROM ribbon"_L1), qPrintable(text));
}

void TestTrustQuestions::answersAreWhatTheFileSays_data()
{
    QTest::addColumn<QByteArray>("encoding");
    for (const char *encoding : {"UTF-8", "UTF-16le", "UTF-16be"})
        QTest::newRow(encoding) << QByteArray(encoding);
}

void TestTrustQuestions::answersAreWhatTheFileSays()
{
    QFETCH(QByteArray, encoding);
    const QString path = m_folder.filePath(u"encoded.sqlite"_s);
    SmallCatalogue{encoding, 512}.make(path);
    ZrSupplyDatabase database;
    QVERIFY(database.setup(path));
    const QVariantList answers = askEverything(database);
    const QVariantList values = answersOfFile(path);
    for (qsizetype i = 0; i < questions().size(); ++i) {
        QVERIFY2(answers[i] == values[i] && answers[i].metaType() == values[i].metaType(),
                 qPrintable(questions()[i].statement + u": "_s + toldAnswer(answers[i]) + u", not "_s +
                            toldAnswer(values[i])));
    }
}

void TestTrustQuestions::closedCatalogueAnswersTheDefaults()
{
    ZrSupplyDatabase database;
    const QVariantList answers = askEverything(database);
    const QVariantList defaults = defaultAnswers();
    for (qsizetype i = 0; i < questions().size(); ++i) {
        // The type index of the tag is that of no file, so the format's default type is the only one to look twice
        // at.
        QVERIFY2(answers[i] == defaults[i] && answers[i].metaType() == defaults[i].metaType(),
                 qPrintable(questions()[i].statement + u": "_s + toldAnswer(answers[i])));
    }
}

void TestTrustQuestions::valuesAndDefaultsDiffer()
{
    // Otherwise a test could not tell an answer from none.
    const QVariantList values = answersOfFile(m_path);
    const QVariantList defaults = defaultAnswers();
    for (qsizetype i = 0; i < questions().size(); ++i) {
        QVERIFY2(values[i] != defaults[i] || questions()[i].reading == Question::Reading::AlwaysFalse,
                 qPrintable(questions()[i].statement));
    }
}

QTEST_GUILESS_MAIN(TestTrustQuestions)
#include "tst_trust_questions.moc"

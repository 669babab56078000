// SPDX-License-Identifier: LGPL-2.1-or-later
// What a session is made of: words, values, calls by name, the recorder of all signals, expectations.

#include "cli/command.h"
#include "cli/sessionhelp.h"
#include "session/expectation.h"
#include "session/literal.h"
#include "session/methodcall.h"
#include "session/signalrecorder.h"

#include <zrsupplydatabase.h>

#include <QtTest/QTest>

#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;
using namespace zrsupply;
using namespace ZrSupplyKit;

namespace {

const QMetaObject &library = ZrSupplyDatabase::staticMetaObject;

Word word(const QString &raw)
{
    const QList<Word> words = splitWords(raw);
    return words.size() == 1 ? words.first() : Word{raw, raw, false};
}

/// The message of the usage failure that `act` throws, empty when it throws none.
template <typename Act>
QString usageMessage(const Act &act)
{
    try {
        act();
    } catch (const Failure &failure) {
        return failure.status == Status::Usage ? failure.message + u" | "_s + failure.remedy : u"another status"_s;
    }
    return {};
}

SignalRecord emitted(ZrSupplyDatabase &database, const QString &name, const QString &words)
{
    SignalRecorder recorder(database);
    invoke(database, resolveCall(library, name, splitWords(words)));
    const QList<SignalRecord> records = recorder.take();
    return records.isEmpty() ? SignalRecord{} : records.first();
}

} // namespace

class SessionPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void words_data();
    void words();
    void unclosedWords_data();
    void unclosedWords();
    void literalsReadBack_data();
    void literalsReadBack();
    void otherSpellings_data();
    void otherSpellings();
    void refusedLiterals_data();
    void refusedLiterals();
    void recorderHearsEverySignal();
    void recorderKeepsTheOrder();
    void everyMethodResolves();
    void badCalls_data();
    void badCalls();
    void expectations_data();
    void expectations();
    void expectationsInOrder();
    void answers_data();
    void answers();
    void badExpectations_data();
    void badExpectations();
    void completions_data();
    void completions();
};

void SessionPartsTest::words_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("blanks between words") << u"roll   ABC\t1"_s << QStringList{u"roll"_s, u"ABC"_s, u"1"_s};
    QTest::newRow("comment behind") << u"roll ABC # why"_s << QStringList{u"roll"_s, u"ABC"_s};
    QTest::newRow("a mark inside a word is no comment") << u"roll A#B"_s << QStringList{u"roll"_s, u"A#B"_s};
    QTest::newRow("quoted") << u"call x \"a b\""_s << QStringList{u"call"_s, u"x"_s, u"a b"_s};
    QTest::newRow("escapes") << u"x \"a\\\"b\\u00e9\""_s << QStringList{u"x"_s, u"a\"b\u00e9"_s};
    QTest::newRow("empty text") << u"x \"\""_s << QStringList{u"x"_s, QString()};
    QTest::newRow("a list is one word") << u"x [\"a b\", \"c]\"] y"_s
                                        << QStringList{u"x"_s, u"[\"a b\", \"c]\"]"_s, u"y"_s};
    QTest::newRow("lists in lists") << u"[[1], [2, 3]]"_s << QStringList{u"[[1], [2, 3]]"_s};
    QTest::newRow("quoted texts with a comma") << u"x \"a b\",\"c\""_s << QStringList{u"x"_s, u"\"a b\",\"c\""_s};
    QTest::newRow("nothing") << u"   "_s << QStringList();
}

void SessionPartsTest::words()
{
    QFETCH(QString, line);
    QFETCH(QStringList, texts);

    QStringList found;
    for (const Word &one : splitWords(line))
        found.append(one.text);
    QCOMPARE(found, texts);
}

void SessionPartsTest::unclosedWords_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("what");

    QTest::newRow("quotes") << u"x \"a b"_s << u"quotes"_s;
    QTest::newRow("escaped quote at the end") << u"x \"a\\\""_s << u"quotes"_s;
    QTest::newRow("list") << u"x [1, 2"_s << u"brackets"_s;
    QTest::newRow("table") << u"x {\"a\": 1"_s << u"brackets"_s;
}

void SessionPartsTest::unclosedWords()
{
    QFETCH(QString, line);
    QFETCH(QString, what);

    const QString message = usageMessage([&] { splitWords(line); });
    QVERIFY2(message.contains(what + u" that are not closed"_s), qPrintable(message));
}

void SessionPartsTest::literalsReadBack_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("text") << QVariant(u"00143465"_s) << u"\"00143465\""_s;
    QTest::newRow("text with blank and quote") << QVariant(u"a \"b\""_s) << u"\"a \\\"b\\\"\""_s;
    QTest::newRow("text with a line end") << QVariant(u"a\nb"_s) << u"\"a\\nb\""_s;
    QTest::newRow("empty text") << QVariant(QString()) << u"\"\""_s;
    QTest::newRow("whole number") << QVariant(-12) << u"-12"_s;
    QTest::newRow("number") << QVariant(0.9566667) << u"0.9566667"_s;
    QTest::newRow("number that is whole") << QVariant(-1.0) << u"-1"_s;
    QTest::newRow("number with all its digits") << QVariant(0.1 + 0.2) << u"0.30000000000000004"_s;
    QTest::newRow("endless number") << QVariant(-std::numeric_limits<double>::infinity()) << u"-inf"_s;
    QTest::newRow("no number") << QVariant(std::numeric_limits<double>::quiet_NaN()) << u"nan"_s;
    QTest::newRow("truth") << QVariant(true) << u"true"_s;
    QTest::newRow("texts") << QVariant(QStringList{u"A"_s, u"B,C"_s}) << u"[\"A\",\"B,C\"]"_s;
    QTest::newRow("no texts") << QVariant(QStringList()) << u"[]"_s;
    QTest::newRow("numbers") << QVariant(QVariantList{1, -1}) << u"[1,-1]"_s;
    QTest::newRow("table") << QVariant(QVariantHash{{u"b"_s, 2}, {u"a"_s, 1}}) << u"{\"a\":1,\"b\":2}"_s;
    QTest::newRow("bytes that are text") << QVariant(QByteArray("<svg/>")) << u"\"<svg/>\""_s;
    QTest::newRow("bytes that are no text") << QVariant(QByteArray("\xff\x00", 2)) << u"\"base64:/wA=\""_s;
}

void SessionPartsTest::literalsReadBack()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);

    QCOMPARE(literal(value), text);
    const auto back = parseLiteral(word(text), value.metaType());
    QVERIFY(back.has_value());
    QCOMPARE(literal(*back), text);
    if (value.metaType().id() == QMetaType::Double)
        QVERIFY(back->toDouble() == value.toDouble() || std::isnan(value.toDouble()));
    else if (value.metaType().id() != QMetaType::QVariantList && value.metaType().id() != QMetaType::QVariantHash)
        QCOMPARE(*back, value);
}

void SessionPartsTest::otherSpellings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("bare text") << u"00143465"_s << QVariant(u"00143465"_s);
    QTest::newRow("texts with commas") << u"A,B"_s << QVariant(QStringList{u"A"_s, u"B"_s});
    QTest::newRow("one text as a list") << u"A"_s << QVariant(QStringList{u"A"_s});
    QTest::newRow("empty texts between commas") << u"A,,"_s << QVariant(QStringList{u"A"_s, QString(), QString()});
    QTest::newRow("quoted texts with commas") << u"\"A,B\",\"C\""_s << QVariant(QStringList{u"A,B"_s, u"C"_s});
    QTest::newRow("number with exponent") << u"1e3"_s << QVariant(1000.0);
}

void SessionPartsTest::otherSpellings()
{
    QFETCH(QString, text);
    QFETCH(QVariant, value);

    const auto parsed = parseLiteral(word(text), value.metaType());
    QVERIFY(parsed.has_value());
    QCOMPARE(*parsed, value);
}

void SessionPartsTest::refusedLiterals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("type");

    QTest::newRow("text for a whole number") << u"x"_s << int(QMetaType::Int);
    QTest::newRow("number for a whole number") << u"1.5"_s << int(QMetaType::Int);
    QTest::newRow("quoted number") << u"\"1\""_s << int(QMetaType::Int);
    QTest::newRow("too large a number") << u"3000000000"_s << int(QMetaType::Int);
    QTest::newRow("text for a number") << u"x"_s << int(QMetaType::Double);
    QTest::newRow("number for truth") << u"1"_s << int(QMetaType::Bool);
    QTest::newRow("numbers for texts") << u"[1,2]"_s << int(QMetaType::QStringList);
    QTest::newRow("broken list of texts") << u"[A]"_s << int(QMetaType::QStringList);
    QTest::newRow("text behind a quoted one") << u"\"a\"b"_s << int(QMetaType::QString);
    QTest::newRow("table for a list") << u"{\"a\":1}"_s << int(QMetaType::QVariantList);
    QTest::newRow("list for a table") << u"[1]"_s << int(QMetaType::QVariantHash);
    QTest::newRow("broken base64") << u"base64:?"_s << int(QMetaType::QByteArray);
}

void SessionPartsTest::refusedLiterals()
{
    QFETCH(QString, text);
    QFETCH(int, type);

    QVERIFY(!parseLiteral(word(text), QMetaType(type)).has_value());
}

void SessionPartsTest::recorderHearsEverySignal()
{
    const QHash<int, QString> samples = {{QMetaType::Double, u"0.5"_s},
                                         {QMetaType::QString, u"\"a b\""_s},
                                         {QMetaType::QStringList, u"[\"A\",\"B\"]"_s},
                                         {QMetaType::Bool, u"true"_s},
                                         {QMetaType::Int, u"-7"_s}};
    const QList<QMetaMethod> known = ownSignals(library);
    QCOMPARE(known.size(), 19);
    ZrSupplyDatabase database;
    for (const QMetaMethod &signal : known) {
        QString values;
        for (int parameter = 0; parameter < signal.parameterCount(); ++parameter)
            values += u' ' + samples.value(signal.parameterType(parameter));
        const QString name = QString::fromLatin1(signal.name());
        QCOMPARE(signalText(emitted(database, name, values)), name + values);
    }
}

void SessionPartsTest::recorderKeepsTheOrder()
{
    ZrSupplyDatabase database;
    SignalRecorder recorder(database);
    database.setRibbonIds({u"1"_s});
    QStringList names;
    for (const SignalRecord &record : recorder.take())
        names.append(record.name());
    QCOMPARE(names, QStringList({u"ribbonChangedSignal"_s, u"ribbon1PercentChanged"_s, u"ribbon2PercentChanged"_s,
                                 u"ribbon1RGBsChanged"_s, u"ribbon2RGBsChanged"_s}));
    QVERIFY(recorder.take().isEmpty());
}

void SessionPartsTest::everyMethodResolves()
{
    // Each of the 145, by its name and a word for every parameter.
    int resolved = 0;
    for (int index = library.methodOffset(); index < library.methodCount(); ++index) {
        const QMetaMethod method = library.method(index);
        QList<Word> values;
        for (int parameter = 0; parameter < method.parameterCount(); ++parameter)
            values.append(word(method.parameterType(parameter) == QMetaType::Bool ? u"false"_s : u"1"_s));
        const MethodCall call = resolveCall(library, QString::fromLatin1(method.name()), values);
        QCOMPARE(call.method.methodIndex(), index);
        ++resolved;
    }
    QCOMPARE(resolved, 145);
}

void SessionPartsTest::badCalls_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("message");

    QTest::newRow("unknown method") << u"supplyWith"_s << QString()
                                    << u"there is no method \"supplyWith\" | did you mean supplyWidth?"_s;
    QTest::newRow("other case") << u"SUPPLYWIDTH"_s << QString()
                                << u"there is no method \"SUPPLYWIDTH\" | did you mean supplyWidth?"_s;
    QTest::newRow("no method is near") << u"qqqqqqqqqqqqqqqq"_s << QString()
                                       << u"there is no method \"qqqqqqqqqqqqqqqq\" | help methods lists them"_s;
    QTest::newRow("inherited method") << u"deleteLater"_s << QString() << u"there is no method \"deleteLater\""_s;
    QTest::newRow("too few arguments")
        << u"supplyRibbonHeat"_s << u"R530901"_s
        << u"supplyRibbonHeat does not take 1 argument | it takes: supplyRibbonHeat QString ribbonSku, int panel, QString supplySku"_s;
    QTest::newRow("too many arguments")
        << u"supplyWidth"_s << u"a b"_s
        << u"supplyWidth does not take 2 arguments | it takes: supplyWidth QString sku or supplyWidth"_s;
    QTest::newRow("argument of another type")
        << u"setLanguageId"_s << u"German"_s << u"languageId of setLanguageId is a whole number, not German"_s;
}

void SessionPartsTest::badCalls()
{
    QFETCH(QString, name);
    QFETCH(QString, words);
    QFETCH(QString, message);

    const QString found = usageMessage([&] { resolveCall(library, name, splitWords(words)); });
    QVERIFY2(found.startsWith(message), qPrintable(found));
}

void SessionPartsTest::expectations_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("seen"); // empty: met

    // What is waiting is supplyPercentChanged 0.9566667.
    QTest::newRow("name and value") << u"supplyPercentChanged 0.9566667"_s << QString();
    QTest::newRow("name alone") << u"supplyPercentChanged"_s << QString();
    QTest::newRow("value that may be anything") << u"supplyPercentChanged _"_s << QString();
    QTest::newRow("rounded value") << u"supplyPercentChanged ~0.957"_s << QString();
    QTest::newRow("rounded to a whole number") << u"supplyPercentChanged ~1"_s << QString();
    QTest::newRow("another value") << u"supplyPercentChanged 0.9566668"_s << u"supplyPercentChanged 0.9566667"_s;
    QTest::newRow("another rounded value") << u"supplyPercentChanged ~0.956"_s << u"supplyPercentChanged 0.9566667"_s;
    QTest::newRow("another signal") << u"ribbon1PercentChanged 0.9566667"_s << u"supplyPercentChanged 0.9566667"_s;
    QTest::newRow("silence") << u"silence"_s << u"supplyPercentChanged 0.9566667"_s;
    QTest::newRow("answer without a call") << u"answer 1"_s << u"no call to answer"_s;
}

void SessionPartsTest::expectations()
{
    QFETCH(QString, line);
    QFETCH(QString, seen);

    ZrSupplyDatabase database;
    Arrivals arrivals;
    arrivals.waiting = {emitted(database, u"supplyPercentChanged"_s, u"0.9566667"_s)};
    const Expectation expectation(library, splitWords(line));
    QCOMPARE(expectation.text(), line);
    const auto difference = expectation.meet(arrivals);
    QCOMPARE(difference.has_value(), !seen.isEmpty());
    QCOMPARE(arrivals.waiting.isEmpty(), seen.isEmpty());
    if (difference) {
        QCOMPARE(difference->expected, line);
        QCOMPARE(difference->seen, seen);
    }
}

void SessionPartsTest::expectationsInOrder()
{
    ZrSupplyDatabase database;
    Arrivals arrivals;
    arrivals.waiting = {emitted(database, u"supplyChangedSignal"_s, u"A"_s),
                        emitted(database, u"supplyPercentChanged"_s, u"-1"_s),
                        emitted(database, u"ribbonChangedSignal"_s, u"A,B"_s)};
    const auto meets = [&arrivals](const QString &line) {
        return !Expectation(library, splitWords(line)).meet(arrivals).has_value();
    };
    const auto silence = Expectation(library, splitWords(u"silence"_s)).meet(arrivals);
    QVERIFY(silence.has_value());
    QCOMPARE(silence->seen, u"supplyChangedSignal \"A\" (and 2 more)"_s);
    QVERIFY(!meets(u"supplyPercentChanged"_s)); // it is the second
    QVERIFY(meets(u"supplyChangedSignal A"_s));
    QVERIFY(meets(u"supplyPercentChanged -1"_s));
    QVERIFY(!meets(u"ribbonChangedSignal A"_s));
    QVERIFY(meets(u"ribbonChangedSignal A,B"_s));
    QVERIFY(meets(u"silence"_s));
    QVERIFY(!meets(u"ribbonChangedSignal"_s));
}

void SessionPartsTest::answers_data()
{
    QTest::addColumn<QVariant>("answer");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("met");

    QTest::newRow("text") << QVariant(u"Vinyl"_s) << u"answer Vinyl"_s << true;
    QTest::newRow("quoted text") << QVariant(u"Vinyl"_s) << u"answer \"Vinyl\""_s << true;
    QTest::newRow("other case") << QVariant(u"Vinyl"_s) << u"answer vinyl"_s << false;
    QTest::newRow("empty text") << QVariant(QString()) << u"answer \"\""_s << true;
    QTest::newRow("number") << QVariant(6.0) << u"answer 6"_s << true;
    QTest::newRow("rounded number") << QVariant(0.125) << u"answer ~0.13"_s << true;
    QTest::newRow("whole number") << QVariant(6) << u"answer 7"_s << false;
    QTest::newRow("text for a number") << QVariant(6) << u"answer Vinyl"_s << false;
    QTest::newRow("anything") << QVariant(QVariantList{1}) << u"answer _"_s << true;
    QTest::newRow("numbers") << QVariant(QVariantList{104, -1}) << u"answer [104, -1]"_s << true;
    QTest::newRow("numbers in another order") << QVariant(QVariantList{104, -1}) << u"answer [-1,104]"_s << false;
    QTest::newRow("nothing") << QVariant() << u"answer void"_s << true;
    QTest::newRow("nothing for something") << QVariant(6) << u"answer void"_s << false;
    QTest::newRow("something for nothing") << QVariant() << u"answer 6"_s << false;
    QTest::newRow("the text void") << QVariant(u"void"_s) << u"answer \"void\""_s << true;
}

void SessionPartsTest::answers()
{
    QFETCH(QVariant, answer);
    QFETCH(QString, line);
    QFETCH(bool, met);

    Arrivals arrivals;
    arrivals.answer = answer;
    const auto difference = Expectation(library, splitWords(line)).meet(arrivals);
    QCOMPARE(!difference.has_value(), met);
    if (difference)
        QCOMPARE(difference->seen, u"answer "_s + literal(answer));
}

void SessionPartsTest::badExpectations_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");

    QTest::newRow("nothing") << QString() << u"expect does not say what"_s;
    QTest::newRow("unknown signal") << u"supplyChanged"_s << u"there is no signal \"supplyChanged\""_s;
    QTest::newRow("a slot") << u"setSupplyId"_s << u"there is no signal \"setSupplyId\""_s;
    QTest::newRow("too many values") << u"supplyRGBChanged 1 2"_s << u"supplyRGBChanged carries 1 value, not 2"_s;
    QTest::newRow("too few values") << u"notifyRibbonTensions 1 2"_s
                                    << u"notifyRibbonTensions carries 4 values, not 2"_s;
    QTest::newRow("value of another type")
        << u"supplyPercentChanged full"_s << u"percent of supplyPercentChanged is a number, not full"_s;
    QTest::newRow("rounded text") << u"notifySupplySensor ~1"_s
                                  << u"sensor of notifySupplySensor is a whole number, not ~1"_s;
    QTest::newRow("answer without a value") << u"answer"_s << u"expect answer takes one value, not 0"_s;
    QTest::newRow("silence with a value") << u"silence 1"_s << u"expect silence takes nothing more, not 1"_s;
}

void SessionPartsTest::badExpectations()
{
    QFETCH(QString, line);
    QFETCH(QString, message);

    const QString found = usageMessage([&] { Expectation(library, splitWords(line)); });
    QVERIFY2(found.startsWith(message), qPrintable(found));
}

void SessionPartsTest::completions_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("found");

    QTest::newRow("event") << u"ri"_s << QStringList{u"ribbons"_s};
    QTest::newRow("place of a mileage") << u"mileage ri"_s << QStringList{u"ribbon1"_s, u"ribbon2"_s};
    QTest::newRow("check") << u"check e"_s << QStringList{u"edge-sensor"_s};
    QTest::newRow("method") << u"call checkC"_s << QStringList{u"checkClearTail"_s};
    QTest::newRow("method with defaults once") << u"call supplySwift"_s << QStringList{u"supplySwiftLift"_s};
    QTest::newRow("signal") << u"expect notifyClear"_s
                            << QStringList{u"notifyClearTailRibbon1"_s, u"notifyClearTailRibbon2"_s};
    QTest::newRow("silence") << u"expect si"_s << QStringList{u"silence"_s};
    QTest::newRow("help") << u"help "_s << QStringList{u"methods"_s, u"signals"_s};
    QTest::newRow("nothing known") << u"roll 3"_s << QStringList();
    QTest::newRow("second argument") << u"call supplyWidth "_s << QStringList();
    const QString sample = qEnvironmentVariable("ZRSUPPLY_TEST_SOURCES") + u"/schema/sample/sv"_s;
    QTest::newRow("folder") << u"catalogue "_s + sample << QStringList{sample + u"g/"_s};
}

void SessionPartsTest::completions()
{
    QFETCH(QString, line);
    QFETCH(QStringList, found);

    QCOMPARE(sessionCompletions(line, library), found);
}

QTEST_GUILESS_MAIN(SessionPartsTest)

#include "tst_sessionparts.moc"

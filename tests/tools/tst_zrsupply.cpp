// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QJsonObject commandTable()
{
    return zrsupply({u"help"_s, u"--json"_s}).run().json();
}

/// Puts the sample under the name of every catalogue that an example reads.
void provideCatalogues(const QString &line, const QString &folder)
{
    const QStringList words = line.split(u' ');
    for (qsizetype i = 1; i < words.size(); ++i) {
        const QString file = folder + u'/' + words[i];
        if (words[i].endsWith(u".sqlite"_s) && words[i - 1] != "-o"_L1 && !QFile::exists(file))
            QFile::copy(sampleCatalogue(), file);
    }
}

/// A terminal of which the test reads what the command writes.
class Terminal
{
public:
    Terminal()
        : m_master(::posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
            qFatal("no terminal");
        // Kept open, so that what was written can be read after the command has ended.
        m_slave = ::open(::ptsname(m_master), O_RDWR | O_NOCTTY);
    }
    ~Terminal()
    {
        ::close(m_slave);
        ::close(m_master);
    }
    Q_DISABLE_COPY_MOVE(Terminal)

    QString name() const { return QString::fromLatin1(::ptsname(m_master)); }
    /// Everything that has been written.
    QString read() const
    {
        ::fcntl(m_master, F_SETFL, O_NONBLOCK);
        QByteArray bytes;
        char buffer[4096];
        for (ssize_t size = 0; (size = ::read(m_master, buffer, sizeof buffer)) > 0;)
            bytes.append(buffer, qsizetype(size));
        return QString::fromUtf8(bytes);
    }

private:
    int m_master;
    int m_slave;
};

} // namespace

/// The command line itself: verbs, options, help, errors, colours.
class TestZrsupply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void errors_data();
    void errors();
    void help_data();
    void help();
    void helpOfEveryVerb();
    void examplesWork();
    void version();
    void optionsBeforeTheVerb();
    void colors_data();
    void colors();
    void fullDisk();
    void localeThatIsNotUtf8();
};

void TestZrsupply::errors_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("remedy");

    const auto row = [](const char *name, const QString &words, int status, const QString &message,
                        const QString &remedy) {
        QTest::newRow(name) << words.split(u' ', Qt::SkipEmptyParts) << status << message << remedy;
    };
    row("no words", QString(), 2, u"no verb is given"_s, u"--help lists the verbs"_s);
    row("an option but no verb", u"--language 1"_s, 2, u"no verb is given"_s, u"--help lists the verbs"_s);
    row("misspelt option without a verb", u"--hlep"_s, 2, u"no verb is given"_s, u"did you mean --help?"_s);
    row("misspelt verb", u"rol 1"_s, 2, u"there is no verb \"rol"_s, u"did you mean zrsupply roll"_s);
    row("verb like no other", u"banana"_s, 2, u"there is no verb \"banana\""_s, u"--help lists the verbs"_s);
    row("group alone", u"tag"_s, 2, u"\"tag\" alone is not a verb"_s, u"tag decode or tag encode"_s);
    row("misspelt second word", u"tag decod 00"_s, 2, u"there is no verb \"tag decod\""_s,
        u"did you mean zrsupply tag decode?"_s);
    row("help for no verb", u"help banana"_s, 2, u"there is no verb \"banana\""_s, u"--help lists the verbs"_s);
    row("help for a misspelt verb", u"help tag decoed"_s, 2, u"there is no verb"_s, u"did you mean tag decode?"_s);
    row("missing argument", u"roll"_s, 2, u"SKU is missing"_s, u"usage: zrsupply roll SKU [options]"_s);
    row("missing tag", u"tag decode"_s, 2, u"HEX is missing"_s, u"usage: zrsupply tag decode HEX"_s);
    row("one word too many", u"roll 00143465 00144463"_s, 2, u"\"00144463\" is one word too many"_s, u"usage:"_s);
    row("misspelt option", u"roll 00143465 --langauge 1"_s, 2, u"roll has no option --langauge"_s,
        u"did you mean --language?"_s);
    row("option like no other", u"roll 00143465 --banana"_s, 2, u"roll has no option --banana"_s, u"usage:"_s);
    row("value missing", u"roll 00143465 --language"_s, 2, u"missing value after '--language'"_s, u"usage:"_s);
    row("value for a flag", u"list rolls --plain=yes"_s, 2, u"unexpected value after '--plain'"_s, u"usage:"_s);
    row("language that is no number", u"roll 00143465 --language de"_s, 2,
        u"--language is a whole number, not \"de\""_s, u"usage:"_s);
    row("colours at an unknown time", u"roll 00143465 --color sometimes"_s, 2,
        u"--color is auto, always or never, not \"sometimes\""_s, u"usage:"_s);
    row("list of nothing known", u"list colors"_s, 2, u"WHAT is rolls, ribbons, colours or languages"_s,
        u"did you mean colours?"_s);
    row("no field to encode", u"tag encode"_s, 2, u"no field is given"_s, u"usage:"_s);
    row("field out of range", u"tag encode --width-inches 64"_s, 2,
        u"width-inches is 64, but its 6 bits hold 0 to 63"_s, u"give --width-inches a number from 0 to 63"_s);
    row("field that is no number", u"tag encode --width-inches four"_s, 2,
        u"--width-inches is a whole number, not \"four\""_s, u"usage:"_s);
    row("flag that is neither", u"tag encode --swift-lift yes"_s, 2, u"--swift-lift is true or false"_s, u"usage:"_s);
    row("misspelt field", u"tag encode --width-inch 4"_s, 2, u"tag encode has no option --width-inch"_s,
        u"did you mean --width-inches?"_s);
    row("fields from no file", u"tag encode nowhere.json"_s, 1, u"nowhere.json cannot be read"_s,
        u"- for standard input"_s);
    row("unknown roll", u"roll 00143456"_s, 3, u"the catalogue has no roll \"00143456\""_s,
        u"did you mean 00143465"_s);
    row("roll like no other", u"roll banana"_s, 3, u"the catalogue has no roll \"banana\""_s,
        u"zrsupply list rolls shows them all"_s);
    row("roll with a quote", u"roll 001'43465"_s, 3, u"the catalogue has no roll \"001'43465\""_s,
        u"did you mean 00143465"_s);
    row("the unknown roll's word", u"roll UnknownSupply"_s, 3, u"the catalogue has no roll \"UnknownSupply\""_s,
        u"stands for a roll that no catalogue knows"_s);
    row("ribbon in place of a roll", u"roll R530901"_s, 3, u"the catalogue has no roll \"R530901\""_s,
        u"it is a ribbon: zrsupply ribbon R530901"_s);
    row("roll in place of a ribbon", u"ribbon 00143465"_s, 3, u"the catalogue has no ribbon \"00143465\""_s,
        u"it is a roll: zrsupply roll 00143465"_s);
    row("roll of another family", u"roll 145532"_s, 3,
        u"roll 145532 is not offered for this printer: it belongs to machine family HM1"_s, u"--any-family"_s);
    row("unknown ribbon", u"ribbon R53090l"_s, 3, u"the catalogue has no ribbon \"R53090l\""_s,
        u"did you mean R530901"_s);
    row("ribbon in another case", u"ribbon hvwa-zerospol"_s, 3, u"no ribbon \"hvwa-zerospol\""_s,
        u"did you mean HVWA-ZEROSPOL? Upper and lower case count"_s);
    row("ribbon on an unknown roll", u"ribbon R530901 --on 00143456"_s, 3,
        u"the catalogue has no roll \"00143456\""_s, u"did you mean 00143465"_s);
    row("no such catalogue", u"list rolls --catalogue nowhere.sqlite"_s, 1, u"there is no file nowhere.sqlite"_s,
        u"name a catalogue file with --catalogue"_s);
}

void TestZrsupply::errors()
{
    QFETCH(QStringList, words);
    QFETCH(int, status);
    QFETCH(QString, message);
    QFETCH(QString, remedy);

    CommandRun plain = zrsupply(words);
    plain.run();
    QCOMPARE(plain.status, status);
    QCOMPARE(plain.out, QString());
    QVERIFY2(plain.err.startsWith(u"zrsupply: "_s) && plain.err.contains(message), qPrintable(plain.err));
    QVERIFY2(plain.err.contains(remedy), qPrintable(plain.err));

    CommandRun json = zrsupply(QStringList{u"--json"_s} + words);
    json.run();
    QCOMPARE(json.status, status);
    QCOMPARE(json.out, QString());
    QCOMPARE(json.error().value(u"status"_s).toInt(), status);
    QVERIFY2(json.error().value(u"message"_s).toString().contains(message), qPrintable(json.err));
    QVERIFY2(json.error().value(u"remedy"_s).toString().contains(remedy), qPrintable(json.err));
}

void TestZrsupply::help_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("text");

    QTest::newRow("overview") << QStringList{u"--help"_s} << u"zrsupply VERB [arguments] [options]"_s;
    QTest::newRow("overview by the verb") << QStringList{u"help"_s} << u"zrsupply VERB [arguments] [options]"_s;
    QTest::newRow("group") << QStringList{u"tag"_s, u"--help"_s} << u"zrsupply tag VERB --help"_s;
    QTest::newRow("group by the verb") << QStringList{u"help"_s, u"tag"_s} << u"zrsupply tag VERB --help"_s;
    QTest::newRow("verb") << QStringList{u"roll"_s, u"--help"_s} << u"zrsupply roll SKU [options]"_s;
    QTest::newRow("option first") << QStringList{u"--help"_s, u"roll"_s} << u"zrsupply roll SKU [options]"_s;
    QTest::newRow("verb of two words by the verb")
        << QStringList{u"help"_s, u"tag"_s, u"decode"_s} << u"zrsupply tag decode HEX [options]"_s;
    QTest::newRow("wins over what is wrong")
        << QStringList{u"roll"_s, u"--banana"_s, u"--help"_s} << u"zrsupply roll SKU [options]"_s;
}

void TestZrsupply::help()
{
    QFETCH(QStringList, words);
    QFETCH(QString, text);

    CommandRun run = zrsupply(words);
    run.run();
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, QString());
    QVERIFY2(run.out.contains(text), qPrintable(run.out));
}

void TestZrsupply::helpOfEveryVerb()
{
    const QJsonObject table = commandTable();
    const QJsonArray verbs = table[u"verbs"_s].toArray();
    QVERIFY(verbs.size() >= 6);
    // Long summaries go over several lines.
    const QString overview = zrsupply({u"--help"_s}).run().out.simplified();
    for (const auto &entry : verbs) {
        const QJsonObject verb = entry.toObject();
        const QString path = verb[u"path"_s].toString();
        QVERIFY2(overview.contains(verb[u"summary"_s].toString()), qPrintable(path));

        CommandRun run = zrsupply(path.split(u' ') + QStringList{u"--help"_s});
        run.run();
        QCOMPARE(run.status, 0);
        QVERIFY2(run.out.contains(verb[u"usage"_s].toString()), qPrintable(path));
        for (const auto &argument : verb[u"arguments"_s].toArray())
            QVERIFY2(run.out.contains(argument[u"name"_s].toString()), qPrintable(path));
        for (const QJsonArray &options : {verb[u"options"_s].toArray(), table[u"globalOptions"_s].toArray()}) {
            for (const auto &option : options)
                QVERIFY2(run.out.contains(u"--"_s + option[u"name"_s].toString()), qPrintable(path));
        }
        for (const auto &example : verb[u"examples"_s].toArray())
            QVERIFY2(run.out.contains(example[u"commandLine"_s].toString()), qPrintable(path));
        for (const auto &use : verb[u"exitStatuses"_s].toArray())
            QVERIFY2(run.out.contains(use[u"when"_s].toString()), qPrintable(path));
        // Columns of a terminal, with room for the longest examples.
        for (const QString &line : run.out.split(u'\n'))
            QVERIFY2(line.size() <= 130, qPrintable(line));

        CommandRun json = zrsupply(path.split(u' ') + QStringList{u"--help"_s, u"--json"_s});
        QCOMPARE(json.run().json(), verb);
    }
}

void TestZrsupply::examplesWork()
{
    const QString path = QFileInfo(commandPath()).path() + u':' + qEnvironmentVariable("PATH");
    int examples = 0;
    for (const auto &verb : commandTable()[u"verbs"_s].toArray()) {
        // The examples of a verb run one after another in a folder that has what they name, and may write there.
        const QTemporaryDir folder;
        for (const QString &name : {u"schema"_s, u"tools"_s})
            QFile::link(sourcePath(name), folder.filePath(name));
        for (const auto &example : verb[u"examples"_s].toArray()) {
            const QString line = example[u"commandLine"_s].toString();
            provideCatalogues(line, folder.path());
            CommandRun shell = zrsupply({u"-c"_s, u"cd \"$HOME\" && "_s + line});
            shell.program = u"/bin/sh"_s;
            // What a person might type into a verb that reads.
            shell.input = "roll 32100C0C8021004060000000\n";
            shell.environment.insert(u"PATH"_s, path);
            shell.environment.insert(u"HOME"_s, folder.path());
            shell.run();
            QVERIFY2(shell.status == 0, qPrintable(line + u'\n' + shell.err));
            QVERIFY2(shell.err.isEmpty(), qPrintable(line + u'\n' + shell.err));
            ++examples;
        }
    }
    QVERIFY(examples > 10);
}

void TestZrsupply::version()
{
    CommandRun plain = zrsupply({u"--version"_s});
    plain.run();
    QCOMPARE(plain.status, 0);
    QVERIFY(QRegularExpression(u"^zrsupply [0-9]+\\.[0-9]+\\.[0-9]+\n$"_s).match(plain.out).hasMatch());
    CommandRun json = zrsupply({u"--version"_s, u"--json"_s});
    QCOMPARE(u"zrsupply %1\n"_s.arg(json.run().json()[u"version"_s].toString()), plain.out);
}

void TestZrsupply::optionsBeforeTheVerb()
{
    const QJsonObject after = zrsupply({u"roll"_s, u"00144463"_s, u"--language"_s, u"1"_s, u"--json"_s}).run().json();
    QCOMPARE(after[u"colorName"_s].toString(), u"Weiß"_s);
    for (const QStringList &words :
         {QStringList{u"--language"_s, u"1"_s, u"--json"_s, u"roll"_s, u"00144463"_s},
          QStringList{u"--language=1"_s, u"roll"_s, u"--json"_s, u"00144463"_s},
          QStringList{u"roll"_s, u"--json"_s, u"--language"_s, u"1"_s, u"--"_s, u"00144463"_s}}) {
        QCOMPARE(zrsupply(words).run().json(), after);
    }
    // The value of an option may be a verb's word.
    QCOMPARE(zrsupply({u"--printer"_s, u"list"_s, u"roll"_s, u"00144463"_s, u"--json"_s})
                 .run()
                 .json()[u"printer"_s]
                 .toString(),
             u"list"_s);
    QCOMPARE(zrsupply({u"tag"_s, u"--json"_s, u"decode"_s, u"00"_s}).run().json()[u"input"_s].toString(), u"00"_s);
}

void TestZrsupply::colors_data()
{
    using Variables = QHash<QString, QString>;
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<Variables>("environment");
    QTest::addColumn<bool>("onTerminal");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("patches");

    const Variables modern = {{u"TERM"_s, u"xterm-256color"_s}, {u"COLORTERM"_s, u"truecolor"_s}};
    const Variables plain = {{u"TERM"_s, u"xterm"_s}};
    const Variables dumb = {{u"TERM"_s, u"dumb"_s}, {u"COLORTERM"_s, u"truecolor"_s}};
    Variables declined = modern;
    declined.insert(u"NO_COLOR"_s, u"1"_s);
    const QStringList never = {u"--color"_s, u"never"_s};
    const QStringList always = {u"--color=always"_s};

    QTest::newRow("into a file") << QStringList() << modern << false << false << false;
    QTest::newRow("into a file, always") << always << plain << false << true << true;
    QTest::newRow("terminal with 24 bits") << QStringList() << modern << true << true << true;
    QTest::newRow("terminal without 24 bits") << QStringList() << plain << true << true << false;
    QTest::newRow("terminal named for its 24 bits")
        << QStringList() << Variables{{u"TERM"_s, u"xterm-direct"_s}} << true << true << true;
    QTest::newRow("dumb terminal") << QStringList() << dumb << true << false << false;
    QTest::newRow("NO_COLOR") << QStringList() << declined << true << false << false;
    QTest::newRow("NO_COLOR, yet always") << always << declined << true << true << true;
    QTest::newRow("terminal, never") << never << modern << true << false << false;
}

void TestZrsupply::colors()
{
    using Variables = QHash<QString, QString>;
    QFETCH(QStringList, words);
    QFETCH(Variables, environment);
    QFETCH(bool, onTerminal);
    QFETCH(bool, bold);
    QFETCH(bool, patches);

    const Terminal terminal;
    CommandRun run = zrsupply(QStringList{u"roll"_s, u"00144463"_s} + words);
    run.environment.insert(environment);
    if (onTerminal)
        run.terminal = terminal.name();
    run.run();
    QCOMPARE(run.status, 0);
    const QString text = onTerminal ? terminal.read() : run.out;
    QVERIFY2(text.contains(u"#FFFFFF White"_s), qPrintable(text));
    QCOMPARE(text.contains(u"\033[1m"_s), bold);
    QCOMPARE(text.contains(u"\033[48;2;255;255;255m   \033[0m #FFFFFF"_s), patches);
    QCOMPARE(text.contains(u'\033'), bold || patches);
}

void TestZrsupply::fullDisk()
{
    for (const QStringList &words : {QStringList{u"list"_s, u"rolls"_s}, QStringList{u"--help"_s}}) {
        CommandRun run = zrsupply(words + QStringList{u"--json"_s});
        run.terminal = u"/dev/full"_s;
        run.run();
        QCOMPARE(run.status, 1);
        QCOMPARE(run.error()[u"message"_s].toString(), u"the answer could not be written: No space left on device"_s);
    }
}

void TestZrsupply::localeThatIsNotUtf8()
{
    CommandRun run = zrsupply({u"roll"_s, u"00144463"_s, u"--language"_s, u"1"_s});
    run.environment.insert(u"LC_ALL"_s, u"C"_s);
    run.run();
    QCOMPARE(run.err, QString());
    QVERIFY2(run.out.contains(u"Weiß"_s), qPrintable(run.out));
}

QTEST_GUILESS_MAIN(TestZrsupply)
#include "tst_zrsupply.moc"

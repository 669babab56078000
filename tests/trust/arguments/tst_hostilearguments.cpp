// SPDX-License-Identifier: LGPL-2.1-or-later
// Texts from strangers, pasted into SQL as they stand: what they can do and what they cannot.

#include "hostilehost.h"
#include "quietlog.h"
#include "sqlgrammar.h"

#include "support/signallog.h"
#include "support/tier.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtSql/QSqlDatabase>
#include <QtTest/QTest>

#include <sqlite3.h>

#include <sys/resource.h>

#include <cstdio>
#include <cstring>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr const char *askOption = "--ask";

/// A text as a C++ literal shows it, shortened.
QString shown(const QString &text)
{
    QString literal;
    for (const QChar character : text.left(2000)) {
        if (character.unicode() >= 0x20 && character.unicode() < 0x7F)
            literal += character;
        else
            literal += u"\\u%1"_s.arg(character.unicode(), 4, 16, QChar(u'0'));
    }
    return text.size() > 2000 ? u"%1… (%2 characters)"_s.arg(literal).arg(text.size()) : literal;
}

/// The numbers and texts in an answer.
QStringList partsOf(const QVariant &answer)
{
    if (answer.metaType() == QMetaType::fromType<QVariantList>())
        return answer.toStringList();
    if (answer.metaType() == QMetaType::fromType<QStringList>())
        return answer.toStringList();
    return {answer.toString()};
}

} // namespace

class TestHostileArguments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theWatchSeesWhatIsForbidden();
    void everyPlaceIsFound();
    void knownTextsInEveryPlace();
    void randomTexts();
    void stackedStatementGivesTheDefault();
    void whatAUnionReads_data();
    void whatAUnionReads();
    void storedTextsAreAskedLater();
    void nothingBesideTheCatalogueIsRead();
    void aTagHasTwentyCharactersOfSql();
    void anAnalysisIsAskedForAndRefused();
    void aLargeSortUsesATemporaryFile();
    void setupOpensNothingElse();
    void endlessStatementStillRuns();
    void aTokenizerOfAStrangerIsCalled();

private:
    void handAndUse(HostileHost &host, const TextPlace &place, const QString &text);

    int m_turn = 0;
};

void TestHostileArguments::init()
{
    m_turn = 0;
}

/// Hands the text over, then uses what may have been stored: another slot each time.
void TestHostileArguments::handAndUse(HostileHost &host, const TextPlace &place, const QString &text)
{
    static const QList<int> users = HostileHost::users();
    host.hand(place, text);
    slotcall::byIndex(host.database(), users.at(m_turn++ % users.size()), {});
}

void TestHostileArguments::theWatchSeesWhatIsForbidden()
{
    const FixtureCatalogue catalogue;
    const QString path = QFileInfo(catalogue.path()).canonicalFilePath();
    SqliteWatch watch(path);
    sqlite3 *connection = nullptr;
    QCOMPARE(sqlite3_open(QFile::encodeName(path).constData(), &connection), SQLITE_OK);
    const auto run = [connection](const char *sql) {
        return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr);
    };
    QCOMPARE(watch.counts().writableOpens, 1);
    watch.reset();

    QCOMPARE(run("SELECT count(*) FROM roll"), SQLITE_OK);
    QCOMPARE(watch.misdeeds(), QString());
    QCOMPARE(watch.counts().statements, 1);
    QVERIFY(watch.counts().reads > 0);

    QCOMPARE(run("UPDATE roll SET nUpCount=7"), SQLITE_OK);
    QCOMPARE(watch.counts().writingStatements, 1);
    QVERIFY(watch.counts().otherActions > 0);
    QVERIFY(watch.counts().writes > 0);
    QCOMPARE(watch.counts().otherNames, {path + u"-journal"_s});
    QVERIFY(watch.counts().deletions > 0);
    QVERIFY(!watch.misdeeds().isEmpty());

    watch.reset();
    const QByteArray other = QFile::encodeName(path + u".other"_s);
    QCOMPARE(run("ATTACH '" + other + "' AS other; CREATE TABLE other.t(x); PRAGMA other.user_version"), SQLITE_OK);
    QCOMPARE(watch.counts().attachments, 1);
    QCOMPARE(watch.counts().pragmas, 1);
    QCOMPARE(watch.attachedDatabases(), 1);
    QVERIFY(watch.counts().otherNames.contains(QFile::decodeName(other)));
    watch.reset();
    QCOMPARE(run("DETACH other"), SQLITE_OK);
    QVERIFY(!watch.misdeeds().isEmpty());
    QCOMPARE(watch.attachedDatabases(), 0);

    watch.reset();
    QCOMPARE(run("CREATE TABLE big AS SELECT zeroblob(100000); DROP TABLE big; VACUUM"), SQLITE_OK);
    QVERIFY(watch.counts().truncations > 0);

    watch.reset();
    QCOMPARE(run("SELECT load_extension('hostile')"), SQLITE_ERROR);
    QCOMPARE(watch.misdeeds(), QString());
    QCOMPARE(sqlite3_enable_load_extension(connection, 1), SQLITE_OK);
    QCOMPARE(run("SELECT load_extension('hostile')"), SQLITE_ERROR);
    QVERIFY(watch.counts().libraries > 0);
    QVERIFY(!watch.misdeeds().isEmpty());
    QCOMPARE(sqlite3_close(connection), SQLITE_OK);
}

void TestHostileArguments::everyPlaceIsFound()
{
    // What a text can be handed to follows from the meta-object; a new slot has to be looked at here.
    QCOMPARE(slotcall::takingText().size(), 61);
    QCOMPARE(HostileHost::places().size(), 72);
    QCOMPARE(HostileHost::users().size(), 58);
}

void TestHostileArguments::knownTextsInEveryPlace()
{
    HostileHost host;
    const QList<TextPlace> places = HostileHost::places();
    for (const QString &text : sqlgrammar::knownTexts()) {
        for (const TextPlace &place : places)
            handAndUse(host, place, text);
        QVERIFY2(host.watch().misdeeds().isEmpty(), qPrintable(host.watch().misdeeds() + u" by "_s + shown(text)));
    }
    QCOMPARE(host.harm(), QString());
}

void TestHostileArguments::randomTexts()
{
    HostileHost host;
    const QList<TextPlace> places = HostileHost::places();
    const unsigned seed = testSeed();
    RandomSource choices(seed);
    const int count = byTier(200'000, 2'000'000, 2'000'000);
    QString slowest;
    qint64 longest = 0;
    QElapsedTimer clock;
    // Qt warns of digits of other scripts behind a percent sign.
    auto quiet = std::make_unique<QuietQt>();
    for (int i = 0; i < count; ++i) {
        const QString text = sqlgrammar::hostileText(choices);
        const TextPlace &place = places.at(i % places.size());
        clock.start();
        handAndUse(host, place, text);
        if (clock.nsecsElapsed() > longest) {
            longest = clock.nsecsElapsed();
            slowest = place.name() + u' ' + shown(text).left(200);
        }
        const QString misdeeds = host.watch().misdeeds();
        QVERIFY2(misdeeds.isEmpty(),
                 qPrintable(u"ZR_SEED=%1, text %2: %3 by %4 %5"_s.arg(QString::number(seed), QString::number(i),
                                                                      misdeeds, place.name(), shown(text))));
    }
    quiet.reset();
    QCOMPARE(host.harm(), QString());
    QCOMPARE(host.database().supplyMaterialName(u"CONT-4"_s), u"Vinyl"_s);

    // A grammar that SQLite never understands would prove nothing.
    const SqliteWatch::Counts &counts = host.watch().counts();
    qInfo("%d texts (ZR_SEED=%u): %lld statements run, %lld readings and %lld pragmas asked for", count, seed,
          counts.statements, counts.reads, counts.pragmas);
    qInfo("%lld writing statements, %lld writes, %lld other files opened, %lld attachments", counts.writingStatements,
          counts.writes + counts.temporaryWrites + counts.truncations + counts.deletions,
          counts.writableOpens + counts.otherOpens + counts.temporaryOpens, counts.attachments);
    qInfo("slowest: %lld us, %s", longest / 1000, qPrintable(slowest));
    QVERIFY(counts.statements > count);
    QVERIFY(counts.pragmas > 0);
    QCOMPARE(counts.catalogueOpens, 1);
}

void TestHostileArguments::stackedStatementGivesTheDefault()
{
    HostileHost host;
    for (const TextPlace &place : HostileHost::places()) {
        if (place.method().returnMetaType() == QMetaType::fromType<void>())
            continue;
        const QVariant absent = host.hand(place, u"no such thing"_s);
        for (const QString &text : sqlgrammar::stackedStatements()) {
            host.watch().reset();
            const QVariant answer = host.hand(place, text);
            QVERIFY2(answer == absent, qPrintable(place.name() + u' ' + text));
            QCOMPARE(host.watch().misdeeds(), QString());
        }
    }
    QCOMPARE(host.harm(), QString());
}

void TestHostileArguments::whatAUnionReads_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("asText");
    QTest::addColumn<bool>("asNumber");

    // All else answers nothing of what a text reads: it is judged, or computed with, or only stored.
    static const QStringList texts = {
        u"supplySecColorName"_s,     u"supplySecColorNameEn"_s,    u"supplyMaterialName"_s,    u"supplyColorName"_s,
        u"supplyColorNameEn"_s,      u"supplyBackgroundImage"_s,   u"supplyRibbonColorName"_s, u"supplyRibbonType"_s,
        u"supplyRibbonColorNames"_s, u"supplyRibbonsColorNames"_s, u"supplyRibbonTypes"_s};
    static const QStringList numbers = {
        u"supplySensorId"_s,         u"supplySecColorWidth"_s,      u"supplySecColorRGB"_s,
        u"supplyMaterial"_s,         u"supplyColorRGB"_s,           u"supplyWidth"_s,
        u"supplyIsLandscape"_s,      u"supplySeparatorWidth"_s,     u"supplyNonContinuousLength"_s,
        u"supplyMultiUpCount"_s,     u"supplyRibbonPanels"_s,       u"supplyRibbonWidth"_s,
        u"supplyRibbonLength"_s,     u"supplyRibbonColorRGB"_s,     u"supplyRibbonHeat"_s,
        u"supplyRibbonHeatOffset"_s, u"supplyRibbonMaxSpeed"_s,     u"supplyRibbonTension"_s,
        u"supplyRibbonColorRGBs"_s,  u"supplyRibbonHeats"_s,        u"supplyRibbonHeatOffsets"_s,
        u"supplyRibbonMaxSpeeds"_s,  u"supplyRibbonTensions"_s,     u"supplyRibbonsColorRGBs"_s,
        u"supplyRibbonsHeats"_s,     u"supplyRibbonsHeatOffsets"_s, u"supplyRibbonsMaxSpeeds"_s,
        u"supplyRibbonsTensions"_s};
    const QList<TextPlace> places = HostileHost::places();
    for (int i = 0; i < places.size(); ++i) {
        const QString method = QString::fromLatin1(places.at(i).method().name());
        const bool isRollOfRibbon = places.at(i).name().endsWith(u".supplySku"_s); // only chooses the material
        const bool asText = texts.contains(method);
        const bool asNumber = asText || (numbers.contains(method) && !isRollOfRibbon);
        QTest::newRow(qPrintable(places.at(i).name())) << i << asText << asNumber;
    }
}

void TestHostileArguments::whatAUnionReads()
{
    QFETCH(int, index);
    QFETCH(bool, asText);
    QFETCH(bool, asNumber);
    HostileHost host;
    const TextPlace place = HostileHost::places().at(index);
    // A word of the file's own structure, and its length.
    const QString text = u"x' UNION ALL SELECT 'read '||name FROM sqlite_master WHERE name='ribbon_heat' --"_s;
    QCOMPARE(partsOf(host.hand(place, text)).contains(u"read ribbon_heat"_s), asText);
    const QString number = u"x' UNION ALL SELECT 9000+length(name) FROM sqlite_master WHERE name='ribbon_heat' --"_s;
    QCOMPARE(partsOf(host.hand(place, number)).contains(u"9011"_s), asNumber);
    QCOMPARE(host.harm(), QString());
}

void TestHostileArguments::storedTextsAreAskedLater()
{
    HostileHost host;
    ZrSupplyDatabase &database = host.database();
    SignalLog log(&database);
    const QString text = u"x' UNION ALL SELECT 'read '||name FROM sqlite_master WHERE name='ribbon_heat' --"_s;
    const QString number = u"x' UNION ALL SELECT 9000+length(name) FROM sqlite_master WHERE name='ribbon_heat' --"_s;

    database.setSupplySKU(text);
    QCOMPARE(database.supplyBackgroundImage(), "read ribbon_heat");
    database.setSupplySKU(number);
    QVERIFY(QMetaObject::invokeMethod(&database, "checkSupplyEdgeSensor"));
    QCOMPARE(log.take(), {u"notifySupplySensor(9011)"_s});

    database.setRibbonIds({text, number});
    QCOMPARE(database.supplyRibbonSKUs(), QStringList({u"read ribbon_heat"_s, u"9011"_s}));
    QVERIFY(
        QMetaObject::invokeMethod(&database, "supplySetRibbonSKUs", Q_ARG(QStringList, QStringList({number, text}))));
    QVERIFY(QMetaObject::invokeMethod(&database, "updateRibbon2Type"));
    QCOMPARE(database.ribbon2Type(), u"read ribbon_heat"_s);
    QCOMPARE(database.supplyRibbon1RGBs(), QStringList({u"9011"_s, u"9011"_s}));

    // The one question of the whole id: it is run, and answers nothing.
    database.setSupplyId(text);
    host.watch().reset();
    QVERIFY(!database.isSupplyIdShared());
    QCOMPARE(host.watch().counts().statements, 1);
    QCOMPARE(host.harm(), QString());
}

void TestHostileArguments::nothingBesideTheCatalogueIsRead()
{
    HostileHost host;
    const auto reads = [&host](const char *expression) {
        return host.database().supplyColorName(u"x' UNION ALL SELECT %1 --"_s.arg(QString::fromLatin1(expression)));
    };
    // What SQLite tells of itself, and where the catalogue lies.
    QCOMPARE(reads("sqlite_version()"), QString::fromLatin1(sqlite3_libversion()));
    QCOMPARE(reads("file FROM pragma_database_list"), QFileInfo(host.catalogue().path()).canonicalFilePath());
    for (const char *reader : {"readfile('/etc/hostname')", "load_extension('hostile')", "name FROM fsdir('/')",
                               "1 FROM csv('/etc/hostname')"})
        QCOMPARE(reads(reader), QString());
    // Where SQLite is built with the table of pages, as in Debian 13, it shows the catalogue's own.
    const bool hasPages = sqlite3_compileoption_used("ENABLE_DBPAGE_VTAB") != 0;
    QCOMPARE(reads("hex(substr(data, 1, 15)) FROM sqlite_dbpage WHERE pgno=1"),
             hasPages ? QString::fromLatin1(QByteArray("SQLite format 3").toHex().toUpper()) : QString());
    QCOMPARE(host.harm(), QString());
}

void TestHostileArguments::aTagHasTwentyCharactersOfSql()
{
    HostileHost host;
    ZrSupplyDatabase &database = host.database();
    // Enough to be taken for one of the rolls of the catalogue, or for one that it does not have.
    database.setSupplyId(u"'OR 1--"_s);
    QVERIFY(database.supplySKUList().contains(database.supplySKU()));
    database.setSupplyId(u"'UNION SELECT 77--  and whatever follows"_s);
    QCOMPARE(database.supplySKU(), u"77"_s);
    database.setSupplyId(u"'UNION SELECT sql FROM sqlite_master--"_s);
    QCOMPARE(database.supplySKU(), u"UnknownSupply"_s);
    QCOMPARE(host.harm(), QString());
}

void TestHostileArguments::anAnalysisIsAskedForAndRefused()
{
    // The one pragma of those that a SELECT can use which would write: the file is open for reading only.
    HostileHost host;
    const TextPlace place = HostileHost::places().at(6);
    QCOMPARE(place.name(), u"supplySecColorName/1.sku"_s);
    host.database().supplySecColorName(u"STRIPED"_s); // what was asked for before is what it would analyse
    // The mask asks for all tables, as SQLite before 3.46 takes them anyway.
    host.hand(place, u"x' UNION SELECT 1 FROM pragma_optimize(65538) --"_s);
    const SqliteWatch::Counts &counts = host.watch().counts();
    QVERIFY(counts.writingStatements > 0);
    // Since 3.46 SQLite notices that it cannot write before it compiles the analysis.
    QCOMPARE(counts.otherActions > 0, sqlite3_libversion_number() < 3'046'000);
    QCOMPARE(counts.writes + counts.temporaryWrites + counts.writableOpens + counts.otherOpens, 0);
    host.watch().reset();
    QCOMPARE(host.harm(), QString());
    QCOMPARE(host.database().supplyMaterialName(u"CONT-4"_s), u"Vinyl"_s);
}

void TestHostileArguments::aLargeSortUsesATemporaryFile()
{
    HostileHost host;
    const TextPlace place = HostileHost::places().at(6);
    host.hand(place, u"x' UNION ALL SELECT hex(randomblob(400)) FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                     "SELECT i+1 FROM n WHERE i<20000) SELECT i FROM n) ORDER BY 1 --"_s);
    const SqliteWatch::Counts &counts = host.watch().counts();
    QVERIFY(counts.temporaryOpens > 0);
    QVERIFY(counts.temporaryWrites > 0);
    QCOMPARE(counts.writes + counts.writableOpens + counts.otherOpens + counts.deletions, 0);
    host.watch().reset();
    QCOMPARE(host.harm(), QString());
}

void TestHostileArguments::setupOpensNothingElse()
{
    HostileHost host;
    const QuietQt quietQt;
    const QuietLog quietLog;
    const unsigned seed = testSeed();
    RandomSource choices(seed);
    for (int i = 0; i < byTier(2'000, 20'000, 20'000); ++i) {
        const QString text = sqlgrammar::hostileText(choices);
        const QString told = u"ZR_SEED=%1, text %2: %3"_s.arg(QString::number(seed), QString::number(i), shown(text));
        // A path is a file's name, whatever stands in it: at most that one file is opened, and only to be read.
        host.watch().reset();
        host.database().setup(text);
        const QStringList names = host.watch().counts().otherNames;
        QVERIFY2(names.size() <= 1 && host.watch().counts().writableOpens == 0, qPrintable(told + names.join(u' ')));
        // A name of a connection is a name: the catalogue is opened under it.
        host.watch().reset();
        QVERIFY2(host.database().setup(host.catalogue().path(), text), qPrintable(told));
        QVERIFY2(host.watch().misdeeds().isEmpty(), qPrintable(told + host.watch().misdeeds()));
        QSqlDatabase::removeDatabase(text);
    }
    QVERIFY(host.database().setup(host.catalogue().path()));
    host.watch().reset();
    QCOMPARE(host.database().supplyMaterialName(u"CONT-4"_s), u"Vinyl"_s);
    QCOMPARE(host.harm(), QString());
}

/// A process that asks texts of a catalogue, so that it may hang or crash.
class AskingChild
{
public:
    AskingChild(const FixtureCatalogue &catalogue, const QStringList &texts)
    {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(QCoreApplication::applicationFilePath(),
                        QStringList{QString::fromLatin1(askOption), catalogue.path()} + texts);
        if (!m_process.waitForReadyRead(60'000) || m_process.readLine() != "asking\n")
            qFatal("the child does not come to ask");
    }
    ~AskingChild()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(AskingChild)

    /// The answer may have come together with what the child says first.
    bool answersWithin(int milliseconds)
    {
        return m_process.bytesAvailable() > 0 || m_process.waitForReadyRead(milliseconds);
    }
    bool runs() const { return m_process.state() == QProcess::Running; }

private:
    QProcess m_process;
};

void TestHostileArguments::endlessStatementStillRuns()
{
    // A known limit: nothing here ends a statement, so that a text which never ends holds the host's thread. Where
    // this fails because the statement came back, the limit is gone and what the documents say of it is to change.
    const FixtureCatalogue catalogue;
    const QString text = u"x' UNION SELECT count(*) FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM "
                         "n%1) SELECT i FROM n) --"_s;
    AskingChild ending(catalogue, {text.arg(u" LIMIT 9"_s)});
    QVERIFY(ending.answersWithin(60'000));
    AskingChild endless(catalogue, {text.arg(u""_s)});
    QVERIFY(!endless.answersWithin(2'000));
    QVERIFY(endless.runs());
}

void TestHostileArguments::aTokenizerOfAStrangerIsCalled()
{
    // A known limit where SQLite is built so that any SQL may name the address of a tokenizer's code, as Debian's is:
    // one text tells where the library lies in memory, one sets an address, the next one has it called.
    const bool isPossible = sqlite3_compileoption_used("ENABLE_FTS3_TOKENIZER") != 0;
    HostileHost host;
    const QString address = host.database().supplyColorName(u"x' UNION SELECT hex(fts3_tokenizer('simple')) --"_s);
    QCOMPARE(address.size(), isPossible ? 2 * int(sizeof(void *)) : 0);

    const FixtureCatalogue catalogue;
    const QString use = u"x' UNION SELECT token FROM fts3tokenize WHERE input='a b' --"_s;
    AskingChild harmless(catalogue, {use});
    QVERIFY(harmless.answersWithin(60'000));
    const QString set = u"x' UNION SELECT fts3_tokenizer('simple',zeroblob(%1)||x'41') --"_s.arg(sizeof(void *) - 1);
    AskingChild harmful(catalogue, {set, use});
    QCOMPARE(harmful.answersWithin(60'000), !isPossible);
    QVERIFY(!isPossible || !harmful.runs());
}

namespace {

/// What the child process does.
int ask(const QStringList &arguments)
{
    const rlimit seconds = {20, 20};
    setrlimit(RLIMIT_CPU, &seconds);
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    ZrSupplyDatabase database;
    if (!database.setup(arguments.first()))
        return 1;
    std::puts("asking");
    std::fflush(stdout);
    for (const QString &text : arguments.sliced(1))
        database.supplyColorName(text);
    std::puts("answered");
    std::fflush(stdout);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc > 2 && std::strcmp(argv[1], askOption) == 0)
        return ask(QCoreApplication::arguments().sliced(2));
    TestHostileArguments test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hostilearguments.moc"

// SPDX-License-Identifier: LGPL-2.1-or-later
// The logger that is built where no CuteLogger is installed: what compat/cutelogger/README.md promises.
// What a process writes to standard error, and how it ends, is in tst_cuteloggerprocess; the format of a text is in
// tst_cuteloggerformat.

#include "support/actingappender.h"

#include <AbstractAppender.h>
#include <Logger.h>

#include <QScopeGuard>
#include <QTest>

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#if defined(logger) || defined(cuteLogger) || defined(LOG_DEBUG) || defined(LOG_INFO) || defined(LOG_WARNING)
#error "The header defines a macro that rewrites or collides with names of its users"
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

struct Record
{
    Logger::LogLevel level;
    QByteArray file;
    int line;
    QByteArray function;
    QString category;
    QString message;
};

// Keeps the records it is given, outside itself, and counts the appenders that are gone.
struct Log
{
    std::vector<Record> records;
    int deleted = 0;

    QStringList messages() const
    {
        QStringList texts;
        for (const Record &record : records)
            texts << record.message;
        return texts;
    }
};

class LogAppender : public AbstractAppender
{
public:
    explicit LogAppender(Log &log)
        : m_log(log)
    {
        setDetailsLevel(Logger::Trace);
    }
    ~LogAppender() override { ++m_log.deleted; }

protected:
    void append(const QDateTime &, Logger::LogLevel level, const char *file, int line, const char *function,
                const QString &category, const QString &message) override
    {
        m_log.records.push_back({level, file, line, function, category, message});
    }

private:
    Log &m_log;
};

// What a row writes into a stream.
struct Fill
{
    void (*call)(QDebug stream);
};

} // namespace

class TestCuteLogger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void levelName_data();
    void levelName();
    void unknownLevelName_data();
    void unknownLevelName();
    void detailsLevel_data();
    void detailsLevel();
    void recordContent();
    void stream_data();
    void stream();
    void logsOnceWhenDestroyed();
    void nestedStreams();
    void category_data();
    void category();
    void appenderOfSeveralCategories();
    void toGlobalLogger();
    void ownership();
    void appenderRemovesOthers();
    void noRecordLostBetweenThreads_data();
    void noRecordLostBetweenThreads();
    void removedAppenderIsNotWrittenTo();
    void messageHandlerStays();
};

void TestCuteLogger::levelName_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<Logger::LogLevel>("level");
    QTest::addRow("Trace") << 0 << Logger::Trace;
    QTest::addRow("Debug") << 1 << Logger::Debug;
    QTest::addRow("Info") << 2 << Logger::Info;
    QTest::addRow("Warning") << 3 << Logger::Warning;
    QTest::addRow("Error") << 4 << Logger::Error;
    QTest::addRow("Fatal") << 5 << Logger::Fatal;
}

void TestCuteLogger::levelName()
{
    QFETCH(const int, value);
    QFETCH(const Logger::LogLevel, level);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(int(level), value);
    QCOMPARE(Logger::levelToString(level), name);
    QCOMPARE(Logger::levelFromString(name), level);
    QCOMPARE(Logger::levelFromString(name.toUpper()), level);
    QCOMPARE(Logger::levelFromString(name.toLower()), level);
}

void TestCuteLogger::unknownLevelName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("empty") << u""_s;
    QTest::addRow("another word") << u"critical"_s;
    QTest::addRow("a blank around it") << u" Error"_s;
}

void TestCuteLogger::unknownLevelName()
{
    QFETCH(const QString, name);
    QCOMPARE(Logger::levelFromString(name), Logger::Debug);
}

void TestCuteLogger::detailsLevel_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QStringList>("passed");
    const QStringList all = {u"Trace"_s, u"Debug"_s, u"Info"_s, u"Warning"_s, u"Error"_s};
    QTest::addRow("not set, as debug") << QString() << all.mid(1);
    QTest::addRow("trace") << u"trace"_s << all;
    QTest::addRow("debug") << u"debug"_s << all.mid(1);
    QTest::addRow("warning") << u"Warning"_s << all.mid(3);
    QTest::addRow("error") << u"ERROR"_s << all.mid(4);
    QTest::addRow("fatal") << u"fatal"_s << QStringList();
}

void TestCuteLogger::detailsLevel()
{
    QFETCH(const QString, set);
    QStringList passed;
    Logger target;
    auto *appender = new ActingAppender([&passed](const QString &message) { passed << message; });
    target.registerAppender(appender);
    if (!set.isNull()) {
        appender->setDetailsLevel(set);
        QCOMPARE(appender->detailsLevel(), Logger::levelFromString(set));
    }
    for (const auto level : {Logger::Trace, Logger::Debug, Logger::Info, Logger::Warning, Logger::Error})
        log(target, Logger::levelToString(level), nullptr, level);
    QTEST(passed, "passed");
}

void TestCuteLogger::recordContent()
{
    Log seen;
    Logger target;
    target.registerAppender(new LogAppender(seen));
    CuteMessageLogger(&target, Logger::Info, "roll.cpp", 12, "fn").write("%d of %s", 3, "four");
    CuteMessageLogger(&target, Logger::Error, nullptr, 0, nullptr, "").write(u"100 %d"_s);
    QCOMPARE(seen.messages(), QStringList({u"3 of four"_s, u"100 %d"_s}));
    QCOMPARE(seen.records[0].level, Logger::Info);
    QCOMPARE(seen.records[0].file, "roll.cpp");
    QCOMPARE(seen.records[0].line, 12);
    QCOMPARE(seen.records[0].function, "fn");
    QCOMPARE(seen.records[0].category, QString());
    QCOMPARE(seen.records[1].level, Logger::Error);
    QVERIFY(seen.records[1].file.isNull());
    QVERIFY(seen.records[1].function.isNull());
}

void TestCuteLogger::stream_data()
{
    QTest::addColumn<Fill>("fill");
    QTest::addColumn<QString>("message");
    QTest::addRow("literal and text: blanks and quotes are the stream's") << Fill{[](QDebug stream) {
        stream << "Database Opening Error: " << u"unable to open database file Error opening database"_s;
    }} << u"Database Opening Error:  \"unable to open database file Error opening database\" "_s;
    QTest::addRow("literal alone: ends in a blank") << Fill{[](QDebug stream) { stream << "text"; }} << u"text "_s;
    QTest::addRow("numbers: parted by blanks") << Fill{[](QDebug stream) { stream << 1 << 2.5; }} << u"1 2.5 "_s;
    QTest::addRow("without blanks and quotes")
        << Fill{[](QDebug stream) { stream.nospace().noquote() << 1 << u"a"_s; }} << u"1a"_s;
    QTest::addRow("text beyond Latin 1") << Fill{[](QDebug stream) { stream.noquote() << u"色"_s; }} << u"色 "_s;
    QTest::addRow("nothing: an empty record") << Fill{[](QDebug) {}} << u""_s;
}

void TestCuteLogger::stream()
{
    QFETCH(const Fill, fill);
    Log seen;
    Logger target;
    target.registerAppender(new LogAppender(seen));
    fill.call(CuteMessageLogger(&target, Logger::Debug, "zrsupplydatabase", 1569, "setup").write());
    QCOMPARE(seen.records.size(), 1U);
    QTEST(seen.records[0].message, "message");
    QCOMPARE(seen.records[0].level, Logger::Debug);
    QCOMPARE(seen.records[0].file, "zrsupplydatabase");
    QCOMPARE(seen.records[0].line, 1569);
    QCOMPARE(seen.records[0].function, "setup");
}

void TestCuteLogger::logsOnceWhenDestroyed()
{
    Log seen;
    Logger target;
    target.registerAppender(new LogAppender(seen));
    {
        CuteMessageLogger message(&target, Logger::Debug, "roll.cpp", 12, "fn");
        message.write(u"replaced"_s);
        message.write("start,");
        message.write() << "more";
        QVERIFY(seen.records.empty());
    }
    {
        const CuteMessageLogger untouched(&target, Logger::Debug, "roll.cpp", 12, "fn");
    }
    QCOMPARE(seen.messages(), QStringList({u"start,more "_s, u""_s}));
}

void TestCuteLogger::nestedStreams()
{
    Log seen;
    Logger target;
    target.registerAppender(new LogAppender(seen));
    const auto inner = [&target] {
        CuteMessageLogger(&target, Logger::Debug, "roll.cpp", 1, "inner").write() << "inner";
        return 7;
    };
    CuteMessageLogger(&target, Logger::Debug, "roll.cpp", 2, "outer").write() << "outer" << inner();
    QCOMPARE(seen.messages(), QStringList({u"inner "_s, u"outer 7 "_s}));
}

void TestCuteLogger::category_data()
{
    QTest::addColumn<QString>("defaultCategory");
    QTest::addColumn<QByteArray>("category"); // null: the record names none
    QTest::addColumn<QStringList>("takers");
    QTest::addColumn<QString>("told");
    QTest::addRow("no category") << QString() << QByteArray() << QStringList{u"all"_s} << QString();
    QTest::addRow("category with an appender")
        << QString() << QByteArray("rolls") << QStringList{u"rolls"_s} << u"rolls"_s;
    QTest::addRow("another category with an appender")
        << QString() << QByteArray("ribbons") << QStringList{u"ribbons"_s} << u"ribbons"_s;
    QTest::addRow("default category, named")
        << u"rolls"_s << QByteArray("rolls") << QStringList{u"all"_s, u"rolls"_s} << u"rolls"_s;
    QTest::addRow("default category, not named")
        << u"rolls"_s << QByteArray() << QStringList{u"all"_s, u"rolls"_s} << u"rolls"_s;
}

void TestCuteLogger::category()
{
    QFETCH(const QString, defaultCategory);
    QFETCH(const QByteArray, category);
    QFETCH(const QString, told);
    Log all;
    Log rolls;
    Log ribbons;
    Logger target(defaultCategory);
    QCOMPARE(target.defaultCategory(), defaultCategory);
    target.registerAppender(new LogAppender(all));
    target.registerCategoryAppender(u"rolls"_s, new LogAppender(rolls));
    target.registerCategoryAppender(u"ribbons"_s, new LogAppender(ribbons));
    log(target, u"text"_s, category.isNull() ? nullptr : category.constData());

    QStringList takers;
    for (const auto &[name, log] : {std::pair(u"all"_s, &all), {u"rolls"_s, &rolls}, {u"ribbons"_s, &ribbons}}) {
        for (const Record &record : log->records) {
            takers << name;
            QCOMPARE(record.category, told);
        }
    }
    QTEST(takers, "takers");
}

void TestCuteLogger::appenderOfSeveralCategories()
{
    Log seen;
    {
        Logger target(u"rolls"_s);
        auto *appender = new LogAppender(seen);
        target.registerAppender(appender);
        target.registerCategoryAppender(u"rolls"_s, appender);
        target.registerCategoryAppender(u"ribbons"_s, appender);
        log(target, u"default"_s);
        log(target, u"other"_s, "ribbons");
        QCOMPARE(seen.messages(), QStringList({u"default"_s, u"other"_s}));
    }
    QCOMPARE(seen.deleted, 1);
}

void TestCuteLogger::toGlobalLogger()
{
    Log global;
    Log own;
    LogAppender globalAppender(global);
    loggerInstance()->registerAppender(&globalAppender);
    const auto restore = qScopeGuard([&] { loggerInstance()->removeAppender(&globalAppender); });

    Logger target(u"rolls"_s, true);
    target.registerAppender(new LogAppender(own));
    log(target, u"both"_s);
    target.logToGlobalInstance(u"rolls"_s, false);
    log(target, u"own only"_s);
    target.logToGlobalInstance(u"ribbons"_s, true);
    log(target, u"global only"_s, "ribbons");
    QCOMPARE(own.messages(), QStringList({u"both"_s, u"own only"_s}));
    QCOMPARE(global.messages(), QStringList({u"both"_s, u"global only"_s}));
    QCOMPARE(global.records[0].category, u"rolls"_s);

    loggerInstance()->logToGlobalInstance(u"ribbons"_s, true);
    log(*loggerInstance(), u"linked category"_s, "ribbons");
    loggerInstance()->logToGlobalInstance(u"ribbons"_s, false);
    QCOMPARE(global.messages().last(), u"linked category"_s);
}

void TestCuteLogger::ownership()
{
    Log kept;
    Log removed;
    auto appender = std::make_unique<LogAppender>(removed);
    {
        Logger target;
        target.registerAppender(new LogAppender(kept));
        target.registerAppender(appender.get());
        target.registerCategoryAppender(u"ribbons"_s, appender.get());
        log(target, u"first"_s);
        target.removeAppender(appender.get());
        target.removeAppender(appender.get());
        log(target, u"second"_s);
        QCOMPARE(kept.deleted, 0);
    }
    QCOMPARE(kept.messages(), QStringList({u"first"_s, u"second"_s}));
    QCOMPARE(kept.deleted, 1);
    QCOMPARE(removed.messages(), QStringList{u"first"_s});
    QCOMPARE(removed.deleted, 0);
}

void TestCuteLogger::appenderRemovesOthers()
{
    Log seen;
    Logger target;
    AbstractAppender *self = nullptr;
    AbstractAppender *other = nullptr;
    ActingAppender appender([&](const QString &) {
        target.removeAppender(self);
        target.removeAppender(other);
        delete other;
    });
    self = &appender;
    other = new LogAppender(seen);
    target.registerAppender(self);
    target.registerAppender(other);
    target.registerAppender(new LogAppender(seen));
    log(target, u"first"_s);
    log(target, u"second"_s);
    QCOMPARE(seen.deleted, 1);
    QCOMPARE(seen.messages(), QStringList({u"first"_s, u"second"_s}));
}

void TestCuteLogger::noRecordLostBetweenThreads_data()
{
    QTest::addColumn<bool>("straight");
    QTest::addRow("through a logger") << false;
    QTest::addRow("straight to the appender") << true;
}

void TestCuteLogger::noRecordLostBetweenThreads()
{
    QFETCH(const bool, straight);
    constexpr int threadCount = 4;
    constexpr int perThread = 20000;
    Log seen;
    LogAppender appender(seen);
    Logger target;
    target.registerAppender(&appender);
    const auto restore = qScopeGuard([&] { target.removeAppender(&appender); });
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < perThread; ++i) {
                const QString text = QString::number(i);
                if (straight)
                    appender.write(QDateTime(), Logger::Debug, "roll.cpp", thread, "fn", QString(), text);
                else
                    target.write(Logger::Debug, "roll.cpp", thread, "fn", nullptr, text);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();

    QCOMPARE(seen.records.size(), std::size_t(threadCount * perThread));
    std::array<int, threadCount> next = {};
    for (const Record &record : seen.records)
        QCOMPARE(record.message, QString::number(next.at(std::size_t(record.line))++));
}

void TestCuteLogger::removedAppenderIsNotWrittenTo()
{
    Log kept;
    Logger target;
    target.registerAppender(new LogAppender(kept));
    std::atomic<bool> stop = false;
    std::vector<std::thread> threads;
    threads.reserve(2);
    for (int thread = 0; thread < 2; ++thread) {
        threads.emplace_back([&target, &stop] {
            while (!stop)
                log(target, u"text"_s);
        });
    }
    int writtenAfterwards = 0;
    for (int i = 0; i < 500; ++i) {
        std::atomic<bool> removed = false;
        auto appender = std::make_unique<ActingAppender<std::function<void(const QString &)>>>(
            [&](const QString &) { writtenAfterwards += removed ? 1 : 0; });
        target.registerAppender(appender.get());
        target.removeAppender(appender.get());
        removed = true;
    }
    stop = true;
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(writtenAfterwards, 0);
}

void TestCuteLogger::messageHandlerStays()
{
    static int handled;
    handled = 0;
    const QtMessageHandler mine = [](QtMsgType, const QMessageLogContext &, const QString &) { ++handled; };
    const QtMessageHandler before = qInstallMessageHandler(mine);
    Log seen;
    LogAppender appender(seen);
    loggerInstance()->registerAppender(&appender);
    log(*loggerInstance(), u"text"_s);
    qWarning("a warning of the host");
    loggerInstance()->removeAppender(&appender);
    const QtMessageHandler after = qInstallMessageHandler(before);
    QVERIFY(after == mine);
    QCOMPARE(handled, 1);
    QCOMPARE(seen.messages(), QStringList{u"text"_s});
}

QTEST_GUILESS_MAIN(TestCuteLogger)

#include "tst_cutelogger.moc"

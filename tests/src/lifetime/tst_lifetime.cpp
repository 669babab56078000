// SPDX-License-Identifier: LGPL-2.1-or-later
// An object that a host keeps until its process ends: each way of keeping it is a process of its own, which has to
// end with status 0 and without a word on standard error.

#include "support/fixturecatalogue.h"

#include <QtCore/QLibraryInfo>
#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <utility>

#include <sys/resource.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Ended
{
    int status = -1; // -1: a signal ended it
    QByteArray output;
    QByteArray errors;
};

Ended run(const QString &program, const QStringList &arguments, const QProcessEnvironment &added = {})
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"QT_MESSAGE_PATTERN"_s, u"QT_LOGGING_RULES"_s})
        environment.remove(name);
    environment.insert(added);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] {
        const rlimit none = {0, 0};
        setrlimit(RLIMIT_CORE, &none);
    });
    process.start(QString::fromLatin1(ZR_PROGRAM_DIR) + u'/' + program, arguments);
    Ended ended;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        ended.status = process.exitCode();
    ended.output = process.readAllStandardOutput();
    ended.errors = process.readAllStandardError();
    return ended;
}

bool connectionsNeedAnApplication()
{
    return QLibraryInfo::version() >= QVersionNumber(6, 5);
}

/// A logger that installs a message handler of Qt's, as upstream's does, in place of the one that is built here.
QProcessEnvironment handlingLogger()
{
    QProcessEnvironment environment;
#ifdef ZR_LOGGER_DIR
    environment.insert(u"LD_LIBRARY_PATH"_s, QString::fromLatin1(ZR_LOGGER_DIR));
#endif
    return environment;
}

} // namespace

class TestLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsQuietly_data();
    void endsQuietly();
    void setupWithoutApplication();
    void pluginIsUnloaded_data();
    void pluginIsUnloaded();
    void messageHandler_data();
    void messageHandler();

private:
    FixtureCatalogue m_catalogue;
};

void TestLifetime::endsQuietly_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("scene");
    QTest::addColumn<QByteArray>("output");

    const QByteArray answer = "16777215\n";
    const QString host = u"lifetime_host"_s;
    QTest::newRow("local") << host << u"local"_s << answer;
    QTest::newRow("local, the host calls exit()") << host << u"local, exit()"_s << answer;
    QTest::newRow("never deleted") << host << u"never deleted"_s << answer;
    QTest::newRow("function-local static") << host << u"function static"_s << answer;
    QTest::newRow("function-local static, the host calls exit()") << host << u"function static, exit()"_s << answer;
    QTest::newRow("Q_GLOBAL_STATIC") << host << u"global static"_s << answer;
    QTest::newRow("function-local static pointer") << host << u"function static pointer"_s << answer;
    QTest::newRow("static pointer") << host << u"namespace pointer"_s << answer;
    QTest::newRow("static pointer, the host calls exit()") << host << u"namespace pointer, exit()"_s << answer;
    QTest::newRow("two static objects") << host << u"two objects"_s << answer;
    QTest::newRow("static objects without setup(), Qt SQL used by the host")
        << host << u"no setup()"_s << QByteArray("no setup\n");
    // A shared library is made ready before the program, a static one after the program's own static objects.
    for (const auto &[program, kind] : {std::pair(u"lifetime_early"_s, "shared"), {u"lifetime_inside"_s, "static"}}) {
        QTest::addRow("namespace-scope static, %s library", kind) << program << u"before main()"_s << answer;
        QTest::addRow("namespace-scope static, %s library, the host calls exit()", kind)
            << program << u"before main(), exit()"_s << answer;
        QTest::addRow("namespace-scope static without setup(), %s library, Qt SQL used by the host", kind)
            << program << u"before main(), no setup()"_s << QByteArray("no setup\n");
        QTest::addRow("namespace-scope static, %s library, unset values", kind)
            << program << u"before main(), unset values"_s << QByteArray("-1 -1 -1\n");
    }
    QTest::newRow("function-local static, static library") << u"lifetime_inside"_s << u"function static"_s << answer;
    QTest::newRow("static pointer, static library") << u"lifetime_inside"_s << u"namespace pointer"_s << answer;
}

void TestLifetime::endsQuietly()
{
    QFETCH(const QString, program);
    QFETCH(const QString, scene);
    QFETCH(const QByteArray, output);
    for (const QString &application : {u"local"_s, u"leaked"_s}) {
        const Ended ended = run(program, {scene, m_catalogue.path(), application});
        const QByteArray where = "application: " + application.toLatin1() + '\n' + ended.errors;
        QVERIFY2(ended.errors.isEmpty(), where.constData());
        QVERIFY2(ended.status == 0, where.constData());
        QCOMPARE(ended.output, output);
    }
}

void TestLifetime::setupWithoutApplication()
{
    const Ended ended = run(u"lifetime_host"_s, {u"local"_s, m_catalogue.path(), u"none"_s});
    QCOMPARE(ended.status, 0);
    if (!connectionsNeedAnApplication()) {
        QCOMPARE(ended.errors, QByteArray());
        QCOMPARE(ended.output, QByteArray("16777215\n"));
        return;
    }
    QCOMPARE(ended.output, QByteArray("-1\n"));
    QVERIFY2(ended.errors.contains("setup() failed\n"), ended.errors.constData());
    QVERIFY2(ended.errors.contains("<ZrSupplyDatabase::setup> Database Opening Error:  \"Driver not loaded"),
             ended.errors.constData());
}

void TestLifetime::pluginIsUnloaded_data()
{
    QTest::addColumn<QProcessEnvironment>("environment");
    QTest::addColumn<bool>("opens");
    QTest::addColumn<QByteArray>("errors");

    const QByteArray own = "after the plugin\nafter the plugin\nafter the application\n";
    QTest::newRow("catalogue opens") << QProcessEnvironment() << true << own;
#ifdef ZR_LOGGER_DIR
    const QByteArray record =
        "<ZrSupplyDatabase::setup> Database Opening Error:  \"unable to open database file Error "
        "opening database\" \n";
    QTest::newRow("setup() fails, the logger that is built here")
        << QProcessEnvironment() << false
        << "No appenders registered with logger\n[Debug  ] " + record + "after the plugin\n[Debug  ] " + record +
               "after the plugin\nafter the application\n";
    QTest::newRow("catalogue opens, a logger with a message handler") << handlingLogger() << true << own;
    const QByteArray full =
        "[Debug] <bool ZrSupplyDatabase::setup(QString, QString)> Database Opening Error:  \"unable to "
        "open database file Error opening database\" \n[Warning] <> after the plugin\n";
    QTest::newRow("setup() fails, a logger with a message handler")
        << handlingLogger() << false
        << full + "[Debug] <Logger::end> the application ends\n" + full + "[Warning] <> after the application\n";
#endif
}

void TestLifetime::pluginIsUnloaded()
{
    QFETCH(const QProcessEnvironment, environment);
    QFETCH(const bool, opens);
    QFETCH(const QByteArray, errors);
    const QString catalogue = opens ? m_catalogue.path() : u"/nowhere/catalogue.sqlite"_s;
    const Ended ended = run(u"lifetime_loader"_s, {QString::fromLatin1(ZR_PLUGIN), catalogue}, environment);
    QCOMPARE(ended.errors, errors);
    QCOMPARE(ended.status, 0);
    QCOMPARE(ended.output, QByteArray(opens ? "16777215\n16777215\n" : "setup() failed\nsetup() failed\n"));
}

void TestLifetime::messageHandler_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("the host uses the logger first") << u"logger"_s << QByteArray("host: a warning\n");
    // What the documentation warns of; without it the row above would prove nothing.
    QTest::newRow("setup() uses the logger first") << u"handler"_s << QByteArray("[Warning] <> a warning\n");
}

void TestLifetime::messageHandler()
{
#ifndef ZR_LOGGER_DIR
    QSKIP("the logger of this build is an installed one");
#endif
    QFETCH(const QString, first);
    QFETCH(const QByteArray, line);
    const Ended ended = run(u"lifetime_loggerhost"_s, {first, u"/nowhere/catalogue.sqlite"_s}, handlingLogger());
    QCOMPARE(ended.status, 1);
    QVERIFY2(ended.errors.contains('\n' + line), ended.errors.constData());
    QVERIFY2(ended.errors.contains("Database Opening Error:"), ended.errors.constData());
}

QTEST_GUILESS_MAIN(TestLifetime)

#include "tst_lifetime.moc"

// An object that a host keeps until its process ends: each way of keeping it is a process of its own, which has to
// end with status 0 and without a word on standard error.

#include "support/fixturecatalogue.h"

#include <QtCore/QLibraryInfo>
#include <QtCore/QProcess>
#include <QtTest/QTest>

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

} // namespace

class TestLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsQuietly_data();
    void endsQuietly();
    void setupWithoutApplication();

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
    const QString early = u"lifetime_early"_s;
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
    QTest::newRow("namespace-scope static") << early << u"before main()"_s << answer;
    QTest::newRow("namespace-scope static, the host calls exit()") << early << u"before main(), exit()"_s << answer;
    QTest::newRow("namespace-scope static without setup(), Qt SQL used by the host")
        << early << u"before main(), no setup()"_s << QByteArray("no setup\n");
    QTest::newRow("namespace-scope static, unset values")
        << early << u"before main(), unset values"_s << QByteArray("-1 -1 -1\n");
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

QTEST_GUILESS_MAIN(TestLifetime)

#include "tst_lifetime.moc"

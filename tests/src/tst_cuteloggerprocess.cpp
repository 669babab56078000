// SPDX-License-Identifier: LGPL-2.1-or-later
// The logger that is built where no CuteLogger is installed, seen from outside: what a process that uses it writes to
// standard error and how it ends. This program runs itself with the name of a scene.

#include "support/actingappender.h"

#include <ConsoleAppender.h>
#include <Logger.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <array>
#include <atomic>
#include <iostream>
#include <thread>
#include <vector>

#include <sys/resource.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct LogsAtEnd
{
    LogsAtEnd() = default;
    ~LogsAtEnd() { log(*loggerInstance(), u"from a static object"_s); }
    Q_DISABLE_COPY_MOVE(LogsAtEnd)
};

struct SaysGoodbye : ConsoleAppender
{
    ~SaysGoodbye() override { std::cerr << "appender deleted\n"; }
    Q_DISABLE_COPY_MOVE(SaysGoodbye)
    SaysGoodbye() = default;
};

struct Scene
{
    const char *name;
    void (*play)();
    const char *standardError;
    bool aborts = false;
};

// Each runs in a process of its own, without a QCoreApplication unless it makes one.
const std::array scenes = {
    Scene{"no appender: one note, then every record",
          [] {
              log(*loggerInstance(), u"first"_s);
              log(*cuteLoggerInstance(), u"second"_s, nullptr, Logger::Trace);
          },
          "No appenders registered with logger\n[Debug  ] <Roll::load> first\n[Trace  ] <Roll::load> second\n"},
    Scene{"category without appender: one note, then every record",
          [] {
              Logger target;
              target.registerAppender(new ConsoleAppender);
              log(target, u"first"_s, "ribbons");
              log(target, u"second"_s, "ribbons");
          },
          "No appenders associated with category ribbons\n[Debug  ] <Roll::load> first\n"
          "[Debug  ] <Roll::load> second\n"},
    Scene{"registered twice: a note, one record",
          [] {
              auto *appender = new ConsoleAppender;
              Logger target;
              target.registerAppender(appender);
              target.registerAppender(appender);
              log(target, u"once"_s);
          },
          "The appender is registered already, the second registration is ignored\n[Debug  ] <Roll::load> once\n"},
    Scene{"null appender: a note",
          [] {
              Logger target;
              target.registerAppender(nullptr);
          },
          "A null appender is not registered\n"},
    Scene{"record inside append: goes to standard error",
          [] {
              Logger target;
              Logger other;
              target.registerAppender(new ActingAppender([&](const QString &message) {
                  log(target, u"inside "_s + message, nullptr, Logger::Trace);
                  log(other, u"to another logger"_s);
              }));
              log(target, u"outer"_s);
          },
          "[Trace  ] <Roll::load> inside outer\n[Debug  ] <Roll::load> to another logger\n"},
    Scene{"console appender: drops trace, null texts are empty",
          [] {
              Logger target;
              target.registerAppender(new ConsoleAppender);
              log(target, u"dropped"_s, nullptr, Logger::Trace);
              target.write(Logger::Warning, nullptr, 0, nullptr, nullptr, u"kept"_s);
          },
          "[Warning] <> kept\n"},
    Scene{"console appender: the environment's pattern wins unless ignored",
          [] {
              qputenv("QT_MESSAGE_PATTERN", "%{if-category}%{category}: %{endif}%{if-fatal}!%{endif}%{message}");
              auto *appender = new ConsoleAppender;
              Logger target;
              target.registerAppender(appender);
              target.registerCategoryAppender(u"ribbons"_s, appender);
              log(target, u"plain"_s);
              log(target, u"named"_s, "ribbons");
              appender->ignoreEnvironmentPattern(true);
              log(target, u"own format"_s);
          },
          "plain\nribbons: named\n[Debug  ] <Roll::load> own format\n"},
    Scene{"fatal record: written, then the process aborts",
          [] {
              loggerInstance()->registerAppender(new ConsoleAppender);
              log(*loggerInstance(), u"the end"_s, nullptr, Logger::Fatal);
              std::cerr << "still there\n";
          },
          "[Fatal  ] <Roll::load> the end\n", true},
    Scene{"fatal stream without an appender: aborts too",
          [] {
              CuteMessageLogger(loggerInstance(), Logger::Fatal, "f", 1, "fn").write() << "the end";
              std::cerr << "still there\n";
          },
          "No appenders registered with logger\n[Fatal  ] <fn> the end \n", true},
    Scene{"assertion: a fatal record with the condition",
          [] { loggerInstance()->writeAssert("roll.cpp", 12, "void Roll::check()", "feet > 0"); },
          "No appenders registered with logger\n[Fatal  ] <Roll::check> ASSERT: \"feet > 0\"\n", true},
    Scene{"application ends: deletes the appenders, the logger stays",
          [] {
              for (int i = 1; i <= 2; ++i) {
                  int argc = 0;
                  const QCoreApplication application(argc, nullptr);
                  loggerInstance()->registerAppender(new SaysGoodbye);
                  log(*loggerInstance(), u"application %1"_s.arg(i));
              }
              log(*loggerInstance(), u"after it"_s);
          },
          "[Debug  ] <Roll::load> application 1\nappender deleted\n[Debug  ] <Roll::load> application 2\n"
          "appender deleted\nNo appenders registered with logger\n[Debug  ] <Roll::load> after it\n"},
    Scene{"static object older than the logger: logs while the process ends",
          [] {
              static const LogsAtEnd atEnd;
              loggerInstance()->registerAppender(new ConsoleAppender);
          },
          "[Debug  ] <Roll::load> from a static object\n"},
    Scene{"static object: the first to log, while the process ends", [] { static const LogsAtEnd atEnd; },
          "No appenders registered with logger\n[Debug  ] <Roll::load> from a static object\n"},
    Scene{"first access from eight threads: one logger",
          [] {
              std::array<Logger *, 8> seen = {};
              std::atomic<int> waiting = int(seen.size());
              std::vector<std::thread> threads;
              threads.reserve(seen.size());
              for (Logger *&mine : seen) {
                  threads.emplace_back([&mine, &waiting] {
                      --waiting;
                      while (waiting > 0) {}
                      mine = loggerInstance();
                  });
              }
              for (std::thread &thread : threads)
                  thread.join();
              for (const Logger *each : seen)
                  std::cerr << (each && each == seen[0] ? '=' : '!');
          },
          "========"},
};

int play(const char *name)
{
    // An abort that is wanted leaves no core file.
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_CORE, &none);
    for (const Scene &scene : scenes) {
        if (qstrcmp(scene.name, name) == 0) {
            scene.play();
            return 0;
        }
    }
    std::cerr << "no such scene\n";
    return 2;
}

} // namespace

class TestCuteLoggerProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void behaviour_data();
    void behaviour();
};

void TestCuteLoggerProcess::behaviour_data()
{
    QTest::addColumn<QByteArray>("standardError");
    QTest::addColumn<bool>("aborts");
    for (const Scene &scene : scenes)
        QTest::addRow("%s", scene.name) << QByteArray(scene.standardError) << scene.aborts;
}

void TestCuteLoggerProcess::behaviour()
{
    QFETCH(const QByteArray, standardError);
    QFETCH(const bool, aborts);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"QT_MESSAGE_PATTERN"_s);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(),
                  {u"--scene"_s, QString::fromUtf8(QTest::currentDataTag())});
    const bool finished = process.waitForFinished();
    if (!finished)
        process.kill();
    QVERIFY2(finished, "the scene does not end");
    QCOMPARE(process.readAllStandardError(), standardError);
    QCOMPARE(process.exitStatus(), aborts ? QProcess::CrashExit : QProcess::NormalExit);
    if (!aborts)
        QCOMPARE(process.exitCode(), 0);
}

// Not Qt Test's own main function: a scene runs without a QCoreApplication.
int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--scene") == 0)
        return play(argv[2]);
    const QCoreApplication application(argc, argv);
    TestCuteLoggerProcess test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_cuteloggerprocess.moc"

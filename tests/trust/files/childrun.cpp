// SPDX-License-Identifier: LGPL-2.1-or-later
#include "childrun.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::Literals::StringLiterals;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool memoryIsLimited = false;
#elif defined(__has_feature)
constexpr bool memoryIsLimited = !__has_feature(address_sanitizer);
#else
constexpr bool memoryIsLimited = true;
#endif

void limit(decltype(RLIMIT_CPU) resource, rlim_t most)
{
    const rlimit both{most, most};
    setrlimit(resource, &both);
}

/// The answer line's words: statement, milliseconds, and the rest.
void readAnswer(const QString &line, Server::Answers &answers)
{
    answers.insert(line.section(u' ', 1, 1), {line.section(u' ', 3), line.section(u' ', 2, 2).toLongLong()});
}

} // namespace

Child::Child(const QStringList &arguments, const ChildLimits &limits)
{
    m_process.setChildProcessModifier([limits] {
        limit(RLIMIT_CORE, 0);
        limit(RLIMIT_CPU, rlim_t(limits.seconds));
        limit(RLIMIT_FSIZE, rlim_t(limits.fileMebibytes) << 20);
        if (memoryIsLimited)
            limit(RLIMIT_AS, rlim_t(limits.memoryMebibytes) << 20);
    });
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QCoreApplication::applicationDirPath() + u"/trust_child"_s, arguments);
    if (!m_process.waitForStarted())
        qFatal("trust_child does not start: %s", qPrintable(m_process.errorString()));
}

Child::~Child()
{
    m_process.kill();
    m_process.waitForFinished();
}

QString Child::argument(const QString &path)
{
    return QString::fromLatin1(path.toUtf8().toHex());
}

bool Child::isMemoryLimited()
{
    return memoryIsLimited;
}

void Child::send(const QByteArray &line)
{
    m_process.write(line + '\n');
    m_process.waitForBytesWritten();
}

void Child::closeInput()
{
    m_process.closeWriteChannel();
}

QString Child::line(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!m_process.canReadLine()) {
        const int left = milliseconds - int(timer.elapsed());
        if (left <= 0 || !m_process.waitForReadyRead(left))
            break;
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

QString Child::lineOf(const QString &word)
{
    for (QString next = line(); !next.isEmpty(); next = line()) {
        if (next.section(u' ', 0, 0) == word)
            return next;
    }
    return {};
}

Child::Report Child::report(const QString &word)
{
    constexpr int longestSilence = 1'800'000;
    Report report;
    for (QString next = line(longestSilence); !next.isEmpty(); next = line(longestSilence)) {
        if (next.section(u' ', 0, 0) == word)
            report.summary = next;
        else
            report.complaints.append(next);
    }
    return report;
}

ChildEnd Child::end(int milliseconds)
{
    closeInput();
    m_process.waitForFinished(milliseconds);
    return state();
}

ChildEnd Child::state() const
{
    if (m_process.state() != QProcess::NotRunning)
        return ChildEnd::Running;
    if (m_process.exitStatus() == QProcess::NormalExit)
        return ChildEnd::Exited;
    switch (m_process.exitCode()) { // after a crash: the signal
    case SIGXCPU:
    case SIGKILL:
        return ChildEnd::OutOfTime;
    case SIGABRT:
        return ChildEnd::OutOfMemory;
    case SIGXFSZ:
        return ChildEnd::OutOfDisk;
    default:
        return ChildEnd::Crashed;
    }
}

Server::Server(const QString &path, const QStringList &options, const ChildLimits &limits)
    : m_child(QStringList{u"serve"_s, Child::argument(path)} + options, limits)
{
    m_child.lineOf(u"setting"_s);
    readSetup();
}

void Server::readSetup()
{
    m_log.clear();
    m_isSetUp = false;
    for (QString line = m_child.line(); !line.isEmpty(); line = m_child.line()) {
        if (line.startsWith("log "_L1))
            m_log.append(line.mid(4));
        if (line.startsWith("opened "_L1)) {
            m_isSetUp = true;
            m_opened = line == "opened 1"_L1;
            return;
        }
    }
}

bool Server::setUpAgain()
{
    m_child.send("setup");
    readSetup();
    return m_opened;
}

Server::Answers Server::ask(const QStringList &statements)
{
    m_child.send("ask " + statements.join(u' ').toUtf8());
    Answers answers;
    for (QString line = m_child.line(); !line.isEmpty(); line = m_child.line()) {
        if (line.startsWith("answer "_L1))
            readAnswer(line, answers);
        if (line.startsWith("asked "_L1)) {
            m_peakKibibytes = line.mid(6).toLong();
            break;
        }
    }
    return answers;
}

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QStringList>

/// What a child may use. Memory is not limited where a sanitizer runs, which takes terabytes of addresses for itself.
struct ChildLimits
{
    int seconds = 60; ///< Of processor time.
    int memoryMebibytes = 1024;
    int fileMebibytes = 16; ///< Of any file that it writes.
};

/// How a child ended.
enum class ChildEnd {
    Exited,      ///< By itself; the exit status says how it went.
    OutOfTime,   ///< The processor time was used up.
    OutOfMemory, ///< It gave up without memory.
    OutOfDisk,   ///< It wrote a file that is larger than allowed.
    Crashed,     ///< By any other signal.
    Running,     ///< It is still at it.
};

/// The program trust_child at work, under limits, one line of it at a time.
class Child
{
public:
    explicit Child(const QStringList &arguments, const ChildLimits &limits = {});
    ~Child();
    Q_DISABLE_COPY_MOVE(Child)

    /// A path as an argument of the child.
    static QString argument(const QString &path);
    static bool isMemoryLimited();

    void send(const QByteArray &line);
    void closeInput();
    /// The next line; empty when the child ended, or none came for so long.
    QString line(int milliseconds = 120'000);
    /// Reads up to the line that begins with `word`: that line, empty when it never came.
    QString lineOf(const QString &word);
    /// Reads to the end of a child that checks by itself: the line that begins with `word`, and all others.
    struct Report
    {
        QString summary;
        QStringList complaints;
    };
    Report report(const QString &word);
    /// Waits for its end.
    ChildEnd end(int milliseconds = 600'000);
    ChildEnd state() const;
    int exitStatus() const { return m_process.exitCode(); }

private:
    QProcess m_process;
};

/// A child with a catalogue of its own, asked as often as a test likes.
class Server
{
public:
    explicit Server(const QString &path, const QStringList &options = {}, const ChildLimits &limits = {});

    struct Answer
    {
        QString told;
        qint64 milliseconds = 0;
    };
    using Answers = QMap<QString, Answer>;

    /// Whether setup() answered, what it answered, and what it logged.
    bool isSetUp() const { return m_isSetUp; }
    bool opened() const { return m_opened; }
    const QStringList &log() const { return m_log; }

    bool setUpAgain();
    /// The answers that came; without a name to all questions.
    Answers ask(const QStringList &statements = {});
    /// The most memory that the child had while it answered the last questions.
    long peakMebibytes() const { return m_peakKibibytes / 1024; }
    Child &child() { return m_child; }

private:
    void readSetup();

    Child m_child;
    bool m_isSetUp = false;
    bool m_opened = false;
    long m_peakKibibytes = 0;
    QStringList m_log;
};

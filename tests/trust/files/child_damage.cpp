// SPDX-License-Identifier: LGPL-2.1-or-later
#include "child.h"
#include "damages.h"
#include "questions.h"
#include "smallcatalogue.h"

#include <QtCore/QFile>

#include <optional>

#include <sys/mman.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int longestSeconds = 5; // of processor time for one damaged file; a sound one takes milliseconds

constexpr int mostEnds = 3; // hangs and crashes after which the rest is not worth the wait

/// What the process that asks shares with the one that watches it.
struct Progress
{
    qsizetype current;
    qsizetype wrong;
    qint64 files;
    qint64 undecided; // answers that only had to be of their type
    qint64 worstNanoseconds;
    qsizetype worst;
};

void writeAt(QFile &file, qsizetype offset, const QByteArray &bytes)
{
    if (!file.seek(offset) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

/// Ends the process when it stays with one file for too long: a hang is told like a crash.
void restartTimer()
{
    const itimerval limit{{0, 0}, {longestSeconds, 0}};
    setitimer(ITIMER_PROF, &limit, nullptr);
}

qint64 processorNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

QVariantList answersOfLibrary(const QString &path)
{
    ZrSupplyDatabase database;
    return database.setup(path) ? askEverything(database) : defaultAnswers();
}

/// What is wrong with the answers, a line each: neither what SQLite reads now, nor what it read of the sound file,
/// nor the default. One connection may have read more of a damaged file than another before it met the damage. Where
/// the file does not decide the answer, that has to be of its type.
QStringList wrongAnswers(const QVariantList &answers, const QString &path, const QVariantList &soundValues,
                         Progress &progress)
{
    QStringList wrong;
    const QVariantList values = answersOfFile(path);
    std::optional<QSet<qsizetype>> undecided;
    for (qsizetype i = 0; i < questions().size(); ++i) {
        const Question &question = questions()[i];
        if (!isValueOrDefault(question, answers[i], values[i]) &&
            !isValueOrDefault(question, answers[i], soundValues[i])) {
            if (!undecided)
                undecided = undecidedByFile(path);
            if (undecided->contains(i) && answers[i].metaType() == question.absent.metaType()) {
                ++progress.undecided;
                continue;
            }
            wrong.append(question.statement + u" answers "_s + toldAnswer(answers[i]) + u", the file says "_s +
                         toldAnswer(values[i]));
        }
    }
    return wrong;
}

void askDamaged(const QString &path, const Damage &damage, const QVariantList &soundValues, Progress &progress)
{
    restartTimer();
    const qint64 begin = processorNanoseconds();
    const QVariantList answers = answersOfLibrary(path);
    const qint64 nanoseconds = processorNanoseconds() - begin;
    if (nanoseconds > progress.worstNanoseconds) {
        progress.worstNanoseconds = nanoseconds;
        progress.worst = progress.current;
    }
    ++progress.files;

    const QStringList wrong = wrongAnswers(answers, path, soundValues, progress);
    for (const QString &line : wrong)
        child::tell("wrong %s: %s", damage.what.constData(), qPrintable(line));
    progress.wrong += wrong.size();
}

void askFrom(const QString &path, const QByteArray &sound, const QList<Damage> &damages, qsizetype step,
             Progress &progress)
{
    const QVariantList soundValues = answersOfFile(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        qFatal("cannot open %s", qPrintable(path));
    for (; progress.current < damages.size(); progress.current += step) {
        const Damage &damage = damages[progress.current];
        if (damage.replacement.isEmpty())
            file.resize(damage.offset);
        else
            writeAt(file, damage.offset, damage.replacement);
        askDamaged(path, damage, soundValues, progress);
        const qsizetype kept = damage.replacement.isEmpty() ? sound.size() : damage.replacement.size();
        writeAt(file, damage.offset, sound.mid(damage.offset, kept));
        file.resize(sound.size()); // a replacement at the end may have made it longer
        // A header that asks for a write-ahead log has SQLite make them.
        for (const char *suffix : {"-wal", "-shm"})
            unlink((QFile::encodeName(path) + suffix).constData());
    }
}

/// Has every step-th damage asked about in processes of their own: one that ends with a file is followed by another
/// that goes on after it. How many ended so, or -1 where none could be started.
int watch(const QString &path, const QByteArray &sound, const QList<Damage> &damages, qsizetype step,
          Progress &progress)
{
    int ended = 0;
    for (; progress.current < damages.size() && ended < mostEnds; progress.current += step) {
        const pid_t asking = fork();
        if (asking == 0) {
            askFrom(path, sound, damages, step, progress);
            _exit(0);
        }
        int status = 0;
        if (asking < 0 || waitpid(asking, &status, 0) != asking)
            return -1;
        if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
            break;
        ++ended;
        const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
        child::tell("%s %s: signal %d", signal == SIGPROF ? "hang" : "crash",
                    damages[progress.current].what.constData(), signal);
        writeFile(path, sound);
    }
    return ended;
}

} // namespace

int child::damage(const QStringList &arguments)
{
    const QString path = pathOf(arguments[0]);
    const qsizetype step = arguments[2].toInt();
    void *shared = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED || step < 1)
        return 2;
    Progress &progress = *new (shared) Progress{arguments[1].toInt(), 0, 0, 0, 0, 0};
    const QByteArray sound = bytesOfFile(path);
    const QList<Damage> damages = damagesOf(sound);
    const int ended = watch(path, sound, damages, step, progress);
    tell("damages %lld files %lld undecided %lld worst %.1f ms at %s", qlonglong(damages.size()), progress.files,
         progress.undecided, double(progress.worstNanoseconds) / 1e6, damages.value(progress.worst).what.constData());
    return ended != 0 || progress.wrong > 0 ? 1 : 0;
}

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "child.h"
#include "questions.h"

#include <AbstractAppender.h>
#include <Logger.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>

#include <sqlite3.h>

#include <iostream>
#include <string>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Tells the library's log records; those of Qt, which some loggers collect too, come from no file.
class Teller : public AbstractAppender
{
public:
    Teller() { setDetailsLevel(Logger::Trace); }

protected:
    void append(const QDateTime &, Logger::LogLevel, const char *file, int, const char *, const QString &,
                const QString &message) override
    {
        if (file)
            child::tell("log %s", qPrintable(message));
    }
};

void setUp(ZrSupplyDatabase &database, const QString &path)
{
    // A path may be one that never opens.
    child::tell("setting up");
    child::tell("opened %d", int(database.setup(path)));
}

void ask(ZrSupplyDatabase &database, const QStringList &statements)
{
    if (statements.isEmpty())
        takeInSupplies(database);
    for (const Question &question : questions()) {
        if (!statements.isEmpty() && !statements.contains(question.statement))
            continue;
        QElapsedTimer timer;
        timer.start();
        const QString told = toldAnswer(askOne(database, question));
        child::tell("answer %s %lld %s", qPrintable(question.statement), timer.elapsed(), qPrintable(told));
    }
    child::tell("asked %ld", child::peakKibibytes());
}

/// Opens the file to write; ends the process where that does not go.
sqlite3 *opened(const QString &path)
{
    sqlite3 *file = nullptr;
    if (sqlite3_open(QFile::encodeName(path).constData(), &file) != SQLITE_OK)
        std::exit(2);
    return file;
}

void mustRun(sqlite3 *file, const char *script)
{
    char *message = nullptr;
    if (sqlite3_exec(file, script, nullptr, nullptr, &message) == SQLITE_OK)
        return;
    std::fprintf(stderr, "trust_child: %s\n", message);
    std::exit(2);
}

void waitForEnd()
{
    for (std::string line; std::getline(std::cin, line);) {}
}

} // namespace

int child::serve(const QStringList &arguments)
{
    const QString path = pathOf(arguments[0]);
    Teller teller;
    Logger::globalInstance()->registerAppender(&teller);
    {
        ZrSupplyDatabase database;
        setUp(database, path);
        for (std::string line; std::getline(std::cin, line);) {
            const QStringList words = QString::fromStdString(line).split(u' ', Qt::SkipEmptyParts);
            if (words.value(0) == "ask"_L1)
                ask(database, words.mid(1));
            else if (words.value(0) == "setup"_L1)
                setUp(database, path);
        }
    }
    Logger::globalInstance()->removeAppender(&teller);
    return 0;
}

int child::hold(const QStringList &arguments)
{
    sqlite3 *file = opened(pathOf(arguments[0]));
    mustRun(file, "BEGIN EXCLUSIVE");
    tell("held");
    waitForEnd();
    sqlite3_close(file);
    return 0;
}

int child::leaveJournal(const QStringList &arguments)
{
    sqlite3 *file = opened(pathOf(arguments[0]));
    // A cache of one page makes the transaction write to the file before it ends.
    mustRun(file, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL; PRAGMA cache_size = 1; BEGIN;"
                  "UPDATE materialwidth SET width = 99.0;"
                  "CREATE TABLE filler (a); INSERT INTO filler VALUES (zeroblob(200000));");
    tell("left");
    _exit(0);
}

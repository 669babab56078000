// SPDX-License-Identifier: LGPL-2.1-or-later
// The catalogue changes while it is open: what is answered before setup() is called again, and that nothing crashes.

#include "childrun.h"
#include "questions.h"
#include "smallcatalogue.h"

#include <QtCore/QDir>
#include <QtTest/QtTest>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What every answer has to be.
enum class Stated {
    Old, ///< What the file said when it was opened.
    New, ///< What the changed file says.
    Defaults,
    Mixture, ///< Each one of these three.
};

/// A catalogue at a path, another that says something else, and a change from the one to the other.
class Scene
{
public:
    Scene()
    {
        SmallCatalogue().make(path());
        SmallCatalogue().make(other());
        mustRunSql(other(), newRows);
        m_old = answersOfFile(path());
        m_new = answersOfFile(other());
    }

    QString path() const { return m_folder.filePath(u"catalogue.sqlite"_s); }
    QString other() const { return m_folder.filePath(u"other.sqlite"_s); }
    QString folder() const { return m_folder.path(); }

    /// The first answer that is not as stated, told; empty when all are.
    QString differing(const Server::Answers &answers, Stated stated) const;

    static constexpr const char *newRows =
        "UPDATE materialwidth SET width = width + 1, length = length + 1, materialId = 1;"
        "UPDATE color SET rgbValue = rgbValue + 1, name = name || ' new';"
        "UPDATE ribbon SET width = width + 1, length = length + 1, panels = 3;"
        "UPDATE ribbon_heat SET heat = heat + 1, max_offset = max_offset + 1, max_speed = max_speed + 1,"
        " tension = tension + 1;"
        "UPDATE colorTS SET name = name || ' new'; UPDATE format SET type = type || ' new';";

private:
    QTemporaryDir m_folder;
    QVariantList m_old;
    QVariantList m_new;
};

QString Scene::differing(const Server::Answers &answers, Stated stated) const
{
    if (answers.size() != questions().size())
        return u"%1 answers came"_s.arg(answers.size());
    for (qsizetype i = 0; i < questions().size(); ++i) {
        const QString told = answers.value(questions()[i].statement).told;
        const bool isOld = told == toldAnswer(m_old[i]);
        const bool isNew = told == toldAnswer(m_new[i]);
        const bool isDefault = told == toldAnswer(questions()[i].absent);
        const bool isStated = (stated == Stated::Old && isOld) || (stated == Stated::New && isNew) ||
                              (stated == Stated::Defaults && isDefault) ||
                              (stated == Stated::Mixture && (isOld || isNew || isDefault));
        if (!isStated)
            return questions()[i].statement + u" answers "_s + told;
    }
    return {};
}

using Change = std::function<void(const Scene &scene)>;

void must(bool done)
{
    if (!done)
        qFatal("a change of the file failed");
}

void renameOver(const Scene &scene)
{
    must(::rename(QFile::encodeName(scene.other()).constData(), QFile::encodeName(scene.path()).constData()) == 0);
}

void overwrite(const Scene &scene)
{
    writeFile(scene.path(), bytesOfFile(scene.other()));
}

/// Overwritten by somebody who leaves the change counter, the sign for readers to drop what they have read.
void overwriteUnnoticed(const Scene &scene)
{
    constexpr qsizetype changeCounter = 24;
    QByteArray bytes = bytesOfFile(scene.other());
    bytes.replace(changeCounter, 4, bytesOfFile(scene.path()).mid(changeCounter, 4));
    QFile file(scene.path());
    must(file.open(QIODevice::ReadWrite) && file.write(bytes) == bytes.size());
}

void cut(const Scene &scene, qint64 length)
{
    must(truncate(QFile::encodeName(scene.path()).constData(), length) == 0);
}

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(Stated)

class TestTrustChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changed_data();
    void changed();
    void hotJournal_data();
    void hotJournal();
    void writeAheadLog_data();
    void writeAheadLog();
    void lockOfAnotherProcess();
    void lockOfAWriterThatOnlyPrepares();
};

void TestTrustChanges::changed_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<Stated>("before");
    QTest::addColumn<bool>("opensAgain");
    QTest::addColumn<Stated>("after");
    const auto row = [](const char *name, const Change &change, Stated before, bool opensAgain, Stated after) {
        QTest::newRow(name) << change << before << opensAgain << after;
    };
    // "before" and "after" a second setup().
    row(
        "not at all", [](const Scene &) {}, Stated::Old, true, Stated::Old);
    row("another file renamed over it", renameOver, Stated::Old, true, Stated::New);
    row(
        "unlinked", [](const Scene &scene) { must(QFile::remove(scene.path())); }, Stated::Old, false,
        Stated::Defaults);
    row(
        "a folder in its place",
        [](const Scene &scene) { must(QFile::remove(scene.path()) && QDir().mkdir(scene.path())); }, Stated::Old,
        false, Stated::Defaults);
    row(
        "a link in its place",
        [](const Scene &scene) { must(QFile::remove(scene.path()) && QFile::link(scene.other(), scene.path())); },
        Stated::Old, true, Stated::New);
    row(
        "no permission any more", // the open file stays open
        [](const Scene &scene) { must(chmod(QFile::encodeName(scene.path()).constData(), 0) == 0); }, Stated::Old,
        false, Stated::Defaults);
    row("overwritten in place", overwrite, Stated::New, true, Stated::New);
    row("overwritten in place, with the same change counter", overwriteUnnoticed, Stated::Mixture, true, Stated::New);
    row(
        "changed by SQLite", [](const Scene &scene) { mustRunSql(scene.path(), Scene::newRows); }, Stated::New, true,
        Stated::New);
    row(
        "cut off to nothing", [](const Scene &scene) { cut(scene, 0); }, Stated::Defaults, true, Stated::Defaults);
    row(
        "cut off in the header", [](const Scene &scene) { cut(scene, 50); }, Stated::Mixture, true, Stated::Defaults);
    row(
        "cut off in the middle", [](const Scene &scene) { cut(scene, QFileInfo(scene.path()).size() / 2); },
        Stated::Mixture, true, Stated::Mixture);
    row(
        "filled with zeros",
        [](const Scene &scene) { writeFile(scene.path(), QByteArray(QFileInfo(scene.path()).size(), '\0')); },
        Stated::Mixture, true, Stated::Defaults);
    row(
        "something written behind its end",
        [](const Scene &scene) { writeFile(scene.path(), bytesOfFile(scene.path()) + QByteArray(4096, 'x')); },
        Stated::Old, true, Stated::Old);
}

void TestTrustChanges::changed()
{
    QFETCH(Change, change);
    QFETCH(Stated, before);
    QFETCH(bool, opensAgain);
    QFETCH(Stated, after);
    const Scene scene;
    must(chmod(QFile::encodeName(scene.folder()).constData(), 0755) == 0);
    Server server(scene.path(), {u"--unprivileged"_s});
    QVERIFY(server.opened());
    QCOMPARE(scene.differing(server.ask(), Stated::Old), QString());
    change(scene);
    QCOMPARE(scene.differing(server.ask(), before), QString());
    QCOMPARE(server.setUpAgain(), opensAgain);
    QCOMPARE(scene.differing(server.ask(), after), QString());
    QCOMPARE(server.child().end(), ChildEnd::Exited);
    QCOMPARE(server.child().exitStatus(), 0);
}

void TestTrustChanges::hotJournal_data()
{
    QTest::addColumn<bool>("openBefore");
    QTest::newRow("left before setup") << false;
    QTest::newRow("left while the catalogue is open") << true;
}

/// Half of a transaction is in the file and its journal beside it. Only who may write could undo that half, so
/// nothing is answered until somebody does.
void TestTrustChanges::hotJournal()
{
    QFETCH(bool, openBefore);
    const Scene scene;
    std::optional<Server> server;
    if (openBefore) {
        server.emplace(scene.path());
        QCOMPARE(scene.differing(server->ask(), Stated::Old), QString());
    }
    Child writer({u"journal"_s, Child::argument(scene.path())});
    QCOMPARE(writer.end(), ChildEnd::Exited);
    QCOMPARE(writer.exitStatus(), 0);
    const QString journal = scene.path() + u"-journal"_s;
    QVERIFY(QFileInfo(journal).size() > 0);
    const QByteArray torn = bytesOfFile(scene.path());
    if (!openBefore)
        server.emplace(scene.path());
    QVERIFY(server->opened());
    QCOMPARE(scene.differing(server->ask(), Stated::Defaults), QString());
    QCOMPARE(bytesOfFile(scene.path()), torn);
    QVERIFY(QFileInfo::exists(journal));
    // Whoever opens the file to write undoes what was left, and the same connection answers again.
    mustRunSql(scene.path(), "SELECT count(*) FROM roll");
    QVERIFY(!QFileInfo::exists(journal));
    QCOMPARE(scene.differing(server->ask(), Stated::Old), QString());
    QCOMPARE(server->child().end(), ChildEnd::Exited);
    QCOMPARE(server->child().exitStatus(), 0);
}

void TestTrustChanges::writeAheadLog_data()
{
    QTest::addColumn<int>("folderMode");
    QTest::addColumn<Stated>("stated");
    QTest::newRow("in a folder that can be written") << 0777 << Stated::New;
    QTest::newRow("in a folder that cannot be written") << 0555 << Stated::Defaults;
}

/// A file in write-ahead-log mode needs two files beside it, which the library's connection makes where it may.
void TestTrustChanges::writeAheadLog()
{
    QFETCH(int, folderMode);
    QFETCH(Stated, stated);
    const Scene scene;
    mustRunSql(scene.path(), QByteArray("PRAGMA journal_mode = WAL;") + Scene::newRows);
    must(chmod(QFile::encodeName(scene.path()).constData(), 0644) == 0);
    must(chmod(QFile::encodeName(scene.folder()).constData(), mode_t(folderMode)) == 0);
    Server server(scene.path(), {u"--unprivileged"_s});
    QVERIFY(server.opened());
    QCOMPARE(scene.differing(server.ask(), stated), QString());
    QCOMPARE(QFileInfo::exists(scene.path() + u"-shm"_s), stated == Stated::New);
    QCOMPARE(server.child().end(), ChildEnd::Exited);
    QCOMPARE(server.child().exitStatus(), 0);
}

/// Qt waits five seconds for a lock before a lookup gives up, so this test takes as long.
void TestTrustChanges::lockOfAnotherProcess()
{
    constexpr qint64 leastMilliseconds = 4500;
    const Scene scene;
    Server server(scene.path());
    QVERIFY(server.opened());
    Child holder({u"hold"_s, Child::argument(scene.path())});
    QCOMPARE(holder.line(), u"held"_s);
    const Server::Answer locked = server.ask({u"rollWidth"_s}).value(u"rollWidth"_s);
    QCOMPARE(locked.told, toldAnswer(-1.0));
    QVERIFY2(locked.milliseconds >= leastMilliseconds, qPrintable(QString::number(locked.milliseconds)));
    QCOMPARE(holder.end(), ChildEnd::Exited);
    QCOMPARE(holder.exitStatus(), 0);
    QCOMPARE(scene.differing(server.ask(), Stated::Old), QString());
}

void TestTrustChanges::lockOfAWriterThatOnlyPrepares()
{
    const Scene scene;
    Server server(scene.path());
    sqlite3 *writer = nullptr;
    QCOMPARE(sqlite3_open(QFile::encodeName(scene.path()).constData(), &writer), SQLITE_OK);
    QCOMPARE(sqlite3_exec(writer, "BEGIN IMMEDIATE; DELETE FROM ribbon", nullptr, nullptr, nullptr), SQLITE_OK);
    QCOMPARE(scene.differing(server.ask(), Stated::Old), QString());
    sqlite3_close(writer);
}

QTEST_GUILESS_MAIN(TestTrustChanges)
#include "tst_trust_changes.moc"

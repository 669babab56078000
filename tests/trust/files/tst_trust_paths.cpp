// SPDX-License-Identifier: LGPL-2.1-or-later
// What setup() makes of every kind of path. Nothing is ever created, and only one kind of path never comes back.

#include "childrun.h"
#include "questions.h"
#include "smallcatalogue.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtTest/QtTest>

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

enum class Answers { Values, Defaults };

/// Puts something into the folder and names the path to ask for.
using Place = std::function<QString(const QString &folder)>;

const auto unprivileged = u"--unprivileged"_s;

QString catalogueAt(const QString &path)
{
    SmallCatalogue().make(path);
    return path;
}

/// A sound catalogue of this name.
Place named(const QString &name)
{
    return [name](const QString &folder) { return catalogueAt(folder + u'/' + name); };
}

/// A path of this name with nothing done for it.
Place bare(const QString &name)
{
    return [name](const QString &folder) { return folder + u'/' + name; };
}

/// The very path, wherever that is.
Place exactly(const QString &path)
{
    return [path](const QString &) { return path; };
}

Place withBytes(const QByteArray &bytes)
{
    return [bytes](const QString &folder) {
        writeFile(folder + u"/file"_s, bytes);
        return folder + u"/file"_s;
    };
}

Place link(const QByteArray &target)
{
    return [target](const QString &folder) {
        catalogueAt(folder + u"/catalogue.sqlite"_s);
        const QString path = folder + u"/link"_s;
        if (symlink(target.constData(), QFile::encodeName(path).constData()) != 0)
            qFatal("cannot link");
        return path;
    };
}

/// A sound catalogue in a folder of its own, with the permissions of both.
Place withModes(mode_t fileMode, mode_t folderMode)
{
    return [fileMode, folderMode](const QString &folder) {
        const QString inner = folder + u"/inner"_s;
        if (!QDir().mkpath(inner))
            qFatal("cannot make a folder");
        const QString path = catalogueAt(inner + u"/catalogue.sqlite"_s);
        if (chmod(QFile::encodeName(path).constData(), fileMode) != 0 ||
            chmod(QFile::encodeName(inner).constData(), folderMode) != 0)
            qFatal("cannot set permissions");
        return path;
    };
}

/// A sound catalogue whose address, not path, is asked for.
Place address(const QString &parameters)
{
    return [parameters](const QString &folder) {
        return u"file:"_s + catalogueAt(folder + u"/catalogue.sqlite"_s) + parameters;
    };
}

/// A sound catalogue so deep that its path has this many characters.
Place deep(qsizetype length)
{
    return [length](const QString &folder) {
        QString inner = folder;
        while (length - inner.size() > 250)
            inner += u'/' + QString(200, u'd');
        if (!QDir().mkpath(inner))
            qFatal("cannot make a folder");
        const QString path = inner + u'/' + QString(length - inner.size() - 1, u'f');
        SmallCatalogue().make(folder + u"/short"_s);
        // SQLite itself could not make a file of that name.
        if (!QFile::copy(folder + u"/short"_s, path))
            qFatal("cannot copy");
        return path;
    };
}

Place socketFile()
{
    return [](const QString &folder) {
        const QString path = folder + u"/socket"_s;
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        qstrncpy(name.sun_path, QFile::encodeName(path).constData(), sizeof name.sun_path);
        const int made = socket(AF_UNIX, SOCK_STREAM, 0);
        if (bind(made, reinterpret_cast<const sockaddr *>(&name), sizeof name) != 0)
            qFatal("cannot bind");
        close(made);
        return path;
    };
}

QStringList everythingIn(const QString &folder)
{
    QStringList found;
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        found.append(all.next());
    found.sort();
    return found;
}

} // namespace

Q_DECLARE_METATYPE(Place)
Q_DECLARE_METATYPE(Answers)

class TestTrustPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void path_data();
    void path();
    void pipeStillBlocks();
    void pipeLetsGoWhenItIsWritten();
};

void TestTrustPaths::path_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<bool>("opens");
    QTest::addColumn<Answers>("answers");
    QTest::addColumn<QStringList>("options");
    const auto row = [](const char *name, const Place &place, bool opens, Answers answers,
                        const QStringList &options = {}) {
        QTest::newRow(name) << place << opens << answers << options;
    };
    constexpr bool opened = true;
    constexpr bool refused = false;
    constexpr Answers values = Answers::Values;
    constexpr Answers defaults = Answers::Defaults;

    row("a file", named(u"catalogue.sqlite"_s), opened, values);
    row("missing", bare(u"missing"_s), refused, defaults);
    row("in a missing folder", bare(u"missing/catalogue.sqlite"_s), refused, defaults);
    row("a directory", bare(u""_s), refused, defaults);
    row("a socket", socketFile(), refused, defaults);
    row("an empty file", withBytes({}), opened, defaults);
    row("a text file", withBytes("width,length\n"_ba.repeated(200)), opened, defaults);

    // A device has no size, so that SQLite takes it for an empty file and reads none of it.
    for (const char *device : {"/dev/null", "/dev/zero", "/dev/full", "/dev/urandom"})
        row(device, exactly(QString::fromLatin1(device)), opened, defaults);

    row("a link", link("catalogue.sqlite"), opened, values);
    row("a link to nothing", link("missing"), refused, defaults);
    row("a loop of links", link("link"), refused, defaults);

    row("readable only", withModes(0444, 0555), opened, values, {unprivileged});
    row("not readable", withModes(0000, 0755), refused, defaults, {unprivileged});
    row("writable only", withModes(0222, 0755), refused, defaults, {unprivileged});
    row("in a folder of somebody else's", withModes(0644, 0000), refused, defaults, {unprivileged});

    row("quotes in the name", named(u"it's \"the\" `catalogue`"_s), opened, values);
    row("percent signs in the name", named(u"%20%1%%.sqlite"_s), opened, values);
    row("line ends in the name", named(u"cata\nlogue\r\n"_s), opened, values);
    row("connect options in the name", named(u"a;QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=0"_s), opened, values);
    row("blanks around the name", named(u" catalogue "_s), opened, values);
    row("a backslash in the name", named(u"a\\b"_s), opened, values);
    row("query signs in the name", named(u"a?mode=memory#b"_s), opened, values);
    row("another script in the name", named(u"\u76EE\u9332\U0001F5A8"_s), opened, values);
    row("the unset text", exactly(u"-1"_s), refused, defaults);

    // A QString cannot name it: what it has in place of the byte is another name.
    row(
        "bytes that are no UTF-8",
        [](const QString &folder) {
            const QString sound = catalogueAt(folder + u"/catalogue.sqlite"_s);
            const QByteArray odd = QFile::encodeName(folder) + "/cata\xFFlogue";
            if (rename(QFile::encodeName(sound).constData(), odd.constData()) != 0)
                qFatal("cannot rename");
            return QString::fromUtf8(odd);
        },
        refused, defaults);
    // The system's names end at a zero byte, so what comes behind it does not count.
    row(
        "a zero byte after the name",
        [](const QString &folder) { return catalogueAt(folder + u"/catalogue.sqlite"_s) + QChar(0) + u"more"_s; },
        opened, values);

    // SQLite's own limit is 512 characters for the path.
    row("a path of 500 characters", deep(500), opened, values);
    row("a path of 600 characters", deep(600), refused, defaults);
    row("a path of 50,000 characters", bare(QString(50'000, u'x')), refused, defaults);

    // Whether addresses are read is settled where SQLite is compiled.
    const bool readsAddresses = sqlite3_compileoption_used("USE_URI") != 0;
    row("an address", address({}), readsAddresses, readsAddresses ? values : defaults);
    row("an address of memory", address(u"?mode=memory"_s), readsAddresses, defaults);
    row("an address to write", address(u"?mode=rwc"_s), false, defaults);
    row("no path", exactly(u""_s), opened, defaults);
    row("memory", exactly(u":memory:"_s), opened, defaults);
}

void TestTrustPaths::path()
{
    QFETCH(Place, place);
    QFETCH(bool, opens);
    QFETCH(Answers, answers);
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    const auto cleanUp = qScopeGuard([&folder] {
        // Qt cannot name, and so not remove, what has a name that is no text.
        std::error_code ignored;
        std::filesystem::remove_all(QFile::encodeName(folder.path()).toStdString(), ignored);
    });
    // Nobody has to get as far as to the file.
    QVERIFY(chmod(QFile::encodeName(folder.path()).constData(), 0755) == 0);
    const QString path = place(folder.path());
    const QStringList before = everythingIn(folder.path());

    Server server(path, options);
    QVERIFY(server.isSetUp());
    QCOMPARE(server.opened(), opens);
    QCOMPARE(server.log().size(), opens ? 0 : 1);
    if (!opens)
        QVERIFY2(server.log().first().startsWith("Database Opening Error: "_L1), qPrintable(server.log().first()));

    const Server::Answers found = server.ask();
    QCOMPARE(found.size(), questions().size());
    const QString sound = folder.filePath(u"sound.sqlite"_s);
    const QVariantList values = answersOfFile(catalogueAt(sound));
    QVERIFY(QFile::remove(sound));
    for (qsizetype i = 0; i < questions().size(); ++i) {
        const Question &question = questions()[i];
        QCOMPARE(found.value(question.statement).told,
                 toldAnswer(answers == Answers::Values ? values[i] : question.absent));
    }
    QCOMPARE(server.child().end(), ChildEnd::Exited);
    QCOMPARE(server.child().exitStatus(), 0);
    QCOMPARE(everythingIn(folder.path()), before);
}

/// A pipe that nobody writes: known to block. A cure makes this test fail, and is then written down in its place.
void TestTrustPaths::pipeStillBlocks()
{
    const QTemporaryDir folder;
    const QByteArray pipe = QFile::encodeName(folder.filePath(u"pipe"_s));
    QVERIFY(mkfifo(pipe.constData(), 0644) == 0);
    Child child({u"serve"_s, Child::argument(folder.filePath(u"pipe"_s))});
    QCOMPARE(child.line(), u"setting up"_s);
    QCOMPARE(child.line(1000), QString());
    QCOMPARE(child.state(), ChildEnd::Running);
}

void TestTrustPaths::pipeLetsGoWhenItIsWritten()
{
    const QTemporaryDir folder;
    const QByteArray pipe = QFile::encodeName(folder.filePath(u"pipe"_s));
    QVERIFY(mkfifo(pipe.constData(), 0644) == 0);
    Child child({u"serve"_s, Child::argument(folder.filePath(u"pipe"_s))});
    QCOMPARE(child.line(), u"setting up"_s);
    // A writer that does not wait gets the pipe only while a reader waits for it: that is where the child is.
    int writer = -1;
    QVERIFY(QTest::qWaitFor([&] { return (writer = open(pipe.constData(), O_WRONLY | O_NONBLOCK)) >= 0; }, 10'000));
    // What cannot be read at a place of one's own choosing is no database file.
    QVERIFY(child.line().startsWith("log Database Opening Error: "_L1));
    QCOMPARE(child.line(), u"opened 0"_s);
    child.send("ask rollWidth");
    QCOMPARE(child.lineOf(u"answer"_s).section(u' ', 3), toldAnswer(-1.0));
    close(writer);
    QCOMPARE(child.end(), ChildEnd::Exited);
    QCOMPARE(child.exitStatus(), 0);
}

QTEST_GUILESS_MAIN(TestTrustPaths)
#include "tst_trust_paths.moc"

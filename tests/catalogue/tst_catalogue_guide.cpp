// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/sourcefolder.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Step
{
    int line = 0; ///< In the document.
    QString command;
    QString shown;
};

/// The commands of a document's code blocks with what stands below them, in order.
QList<Step> stepsOf(const QString &document)
{
    QList<Step> steps;
    bool isBlock = false;
    bool isSession = false;
    int number = 0;
    for (const QString &line : document.split(u'\n')) {
        ++number;
        if (line.startsWith("```"_L1)) {
            isBlock = !isBlock;
            isSession = false;
        } else if (isBlock && line.startsWith("$ "_L1)) {
            isSession = true;
            steps.append({number, line.mid(2), {}});
        } else if (isSession) {
            steps.last().shown += line + u'\n';
        }
    }
    return steps;
}

/// Without the checksums, which change with every name in the sample.
QString comparable(QString text)
{
    static const QRegularExpression checksum(u"\\b[0-9a-f]{64}\\b"_s);
    return text.replace(checksum, u"CHECKSUM"_s);
}

} // namespace

/// What `docs/catalogue.md` has its reader type prints what the document shows below it.
class TestCatalogueGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sessionsOfTheDocument()
    {
        const QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QList<Step> steps = stepsOf(QString::fromUtf8(bytesOf(sourcePath(u"docs/catalogue.md"_s))));
        QVERIFY(steps.size() > 20);

        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        const QString command = environment.value(u"ZRSUPPLY_TEST_COMMAND"_s);
        environment.insert(u"PATH"_s, QFileInfo(command).path() + u':' + environment.value(u"PATH"_s));
        environment.insert(u"ZRSUPPLY_CATALOGUE"_s, sampleCatalogue());
        for (const Step &step : steps) {
            QProcess shell;
            shell.setProcessEnvironment(environment);
            shell.setWorkingDirectory(folder.path());
            shell.setProcessChannelMode(QProcess::MergedChannels);
            shell.start(u"/bin/sh"_s, {u"-c"_s, step.command});
            QVERIFY(shell.waitForFinished());
            const QString printed = QString::fromUtf8(shell.readAll());
            const QString place = u"line %1: %2\n"_s.arg(QString::number(step.line), step.command);
            QCOMPARE(place + comparable(printed), place + comparable(step.shown));
        }
    }
};

QTEST_GUILESS_MAIN(TestCatalogueGuide)
#include "tst_catalogue_guide.moc"

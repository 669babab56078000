// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/scriptrun.h"
#include "support/sourcefolder.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QJsonArray>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What stands between two texts, the first time.
QString between(const QString &text, const QString &begin, const QString &end)
{
    const qsizetype from = text.indexOf(begin);
    if (from < 0)
        return {};
    const qsizetype start = from + begin.size();
    return text.sliced(start, text.indexOf(end, start) - start);
}

QString section(const QString &page, const QString &id)
{
    return between(page, u"<section id=\"%1\""_s.arg(id), u"</section>"_s);
}

/// The card of a roll or ribbon.
QString card(const QString &page, const QString &sku)
{
    for (const QString &one : page.split(u"<li class=\"card\""_s)) {
        if (one.contains(u"<h3>%1</h3>"_s.arg(sku)))
            return one.section(u"</li>"_s, 0, 0);
    }
    return {};
}

/// The field of the matrix for a roll and a ribbon: class and reason.
QStringList cell(const QString &page, const QString &roll, const QString &ribbon)
{
    const QString matrix = section(page, u"matrix"_s);
    const QStringList head = between(matrix, u"<thead>"_s, u"</thead>"_s).split(u"<th "_s).mid(2);
    qsizetype column = -1;
    for (qsizetype i = 0; i < head.size(); ++i) {
        if (head[i].contains(u'>' + ribbon + u'<'))
            column = i;
    }
    for (const QString &row : matrix.split(u"<tr "_s)) {
        if (!row.contains(u'>' + roll + u"</a>"_s))
            continue;
        const QString field = row.split(u"<td "_s).value(column + 1);
        return {between(field, u"class=\""_s, u"\""_s), between(field, u"title=\""_s, u"\""_s)};
    }
    return {};
}

} // namespace

/// `zrsupply catalogue report`: the page shows what the catalogue says, needs nothing else, and lets nothing of the
/// catalogue run. How it looks is for eyes.
class TestCatalogueReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        m_sample = report(sampleCatalogue());
        QVERIFY(!m_sample.isEmpty());
    }

    void everyRollAndRibbon()
    {
        for (const auto &row : sampleRows(u"roll"_s)) {
            const QString shown = card(section(m_sample, u"rolls"_s), row[u"itemNum"_s]);
            QVERIFY2(!shown.isEmpty(), qPrintable(row[u"itemNum"_s]));
            QVERIFY2(shown.contains(row[u"supplyId"_s]), qPrintable(shown));
        }
        for (const auto &row : sampleRows(u"ribbon"_s))
            QVERIFY2(!card(section(m_sample, u"ribbons"_s), row[u"sku"_s]).isEmpty(), qPrintable(row[u"sku"_s]));
    }

    void rollCard_data()
    {
        QTest::addColumn<QString>("sku");
        QTest::addColumn<QStringList>("says");
        QTest::newRow("continuous") << u"00143465"_s << QStringList{u"<bdi>Vinyl (1)</bdi>"_s,
                                                                    u"#FFFFFF"_s,
                                                                    u"4 in"_s,
                                                                    u"100 ft"_s,
                                                                    u"Continuous (1)"_s,
                                                                    u"EDGE"_s,
                                                                    u"3200000C802080404141"_s};
        QTest::newRow("striped") << u"00144463"_s
                                 << QStringList{u"Continuous, striped (2)"_s, u"<dt>Stripe</dt><dd>1 1/2 in"_s,
                                                u"Orange"_s, u"data-picture=\"1\""_s};
        QTest::newRow("die-cut") << u"00144724"_s
                                 << QStringList{u"1200 labels"_s, u"3/8 in, gap 1/8 in"_s, u"<dt>Across</dt><dd>4<"_s,
                                                u"landscape"_s, u"GAP"_s};
        QTest::newRow("format 3 counts feet") << u"00145368"_s << QStringList{u"100 ft"_s, u"Perforated tag (3)"_s};
        QTest::newRow("another family") << u"145532"_s << QStringList{u"not offered: family HM1"_s};
        QTest::newRow("no sensor") << u"00143660"_s << QStringList{u"<dt>Sensor</dt><dd>none"_s};
    }

    void rollCard()
    {
        QFETCH(QString, sku);
        QFETCH(QStringList, says);
        const QString shown = card(m_sample, sku);
        for (const QString &text : says)
            QVERIFY2(shown.contains(text), qPrintable(text + u" in "_s + shown));
    }

    void drawnToScale_data()
    {
        QTest::addColumn<QString>("sku");
        QTest::addColumn<QStringList>("shapes");
        // Every drawing is seven inches of the roll, and one unit is one inch.
        QTest::newRow("4 inches wide") << u"00143465"_s << QStringList{u"viewBox=\"0 0 7 4\""_s};
        QTest::newRow("half an inch") << u"00144212"_s << QStringList{u"viewBox=\"0 0 7 0.5\""_s};
        QTest::newRow("stripe of 1.5 inches")
            << u"00144463"_s
            << QStringList{u"viewBox=\"0 0 7 6\""_s,
                           u"<rect fill=\"#FF6A13\" x=\"0\" y=\"0\" width=\"7\" height=\"1.5\"/>"_s};
        QTest::newRow("labels, one behind the other")
            << u"00144760"_s << QStringList{u"M0.06 0.06h5.875v3.88h-5.875z"_s, u"M6.06 0.06h0.94v"_s};
    }

    void drawnToScale()
    {
        QFETCH(QString, sku);
        QFETCH(QStringList, shapes);
        const QString drawing = between(card(m_sample, sku), u"<svg class=\"drawing\""_s, u"</svg>"_s);
        for (const QString &shape : shapes)
            QVERIFY2(drawing.contains(shape), qPrintable(shape + u" in "_s + drawing));
    }

    void labelsSideBySide()
    {
        const QString drawing = between(card(m_sample, u"00144724"_s), u"<svg class=\"drawing\""_s, u"</svg>"_s);
        QCOMPARE(drawing.count("M0.06 "_L1), 4);
    }

    void matrix_data()
    {
        QTest::addColumn<QString>("roll");
        QTest::addColumn<QString>("ribbon");
        QTest::addColumn<QString>("verdict");
        QTest::addColumn<QString>("reason");
        QTest::newRow("prints") << u"00143465"_s << u"R530901"_s << u"ok"_s << u"heat 104"_s;
        QTest::newRow("narrow, but the roll is not wide")
            << u"00143465"_s << u"R530905"_s << u"ok"_s << u"heat 104"_s;
        QTest::newRow("too narrow for a wide roll")
            << u"00144463"_s << u"R530905"_s << u"narrow"_s << u"under 4 1/2 in"_s;
        QTest::newRow("no heat") << u"00158377"_s << u"R530901"_s << u"heat"_s << u"no heat for material 3 (Paper)"_s;
        QTest::newRow("exactly 4.5 inches") << u"00144463"_s << u"R530902"_s << u"ok"_s << u"heat 110"_s;
        QTest::newRow("special") << u"00144463"_s << u"R4417TX"_s << u"special"_s << u"special ribbon"_s;
    }

    void matrix()
    {
        QFETCH(QString, roll);
        QFETCH(QString, ribbon);
        QFETCH(QString, verdict);
        QFETCH(QString, reason);
        const QStringList found = cell(m_sample, roll, ribbon);
        QCOMPARE(found.value(0), verdict);
        QVERIFY2(found.value(1).contains(reason), qPrintable(found.value(1)));
    }

    void everyRollIsInTheMatrix()
    {
        const QString verdicts = section(m_sample, u"matrix"_s);
        for (const auto &row : sampleRows(u"roll"_s))
            QVERIFY2(verdicts.contains(u'>' + row[u"itemNum"_s] + u"</a>"_s), qPrintable(row[u"itemNum"_s]));
    }

    void namesInOtherLanguages()
    {
        const QString page = report(sampleCatalogue(), {u"--language"_s, u"1"_s});
        QVERIFY(card(page, u"00144463"_s).contains("Endlos, gestreift"_L1));
        QVERIFY(card(page, u"00143660"_s).contains("Polyester"_L1));
        // A language without names: English.
        QVERIFY(card(report(sampleCatalogue(), {u"--language"_s, u"77"_s}), u"00143465"_s).contains("Vinyl (1)"_L1));
    }

    void nothingFromElsewhere()
    {
        static const QRegularExpression reference(u"(?:src|href|url|action|data)\\s*[=(]\\s*[\"']?([^\"')> ]+)"_s);
        QString markup = m_sample;
        markup.remove(between(m_sample, u"<script>"_s, u"</script>"_s));
        auto matches = reference.globalMatch(markup);
        int seen = 0;
        while (matches.hasNext()) {
            const QString target = matches.next().captured(1);
            QVERIFY2(target.startsWith(u'#') || target.startsWith("data:image/svg+xml;base64,"_L1),
                     qPrintable(target));
            ++seen;
        }
        QVERIFY(seen > 100);
        const QString script = between(m_sample, u"<script>"_s, u"</script>"_s);
        QVERIFY(!script.contains("fetch"_L1) && !script.contains("import"_L1) && !script.contains("http"_L1));
        QVERIFY(!m_sample.contains("@import"_L1) && !m_sample.contains("<link"_L1) &&
                !m_sample.contains("<iframe"_L1));
    }

    void policyAllowsTheOneScript()
    {
        QCOMPARE(m_sample.count("<script"_L1), 1);
        const QString script = between(m_sample, u"<script>"_s, u"</script>"_s);
        const QByteArray hash = QCryptographicHash::hash(script.toUtf8(), QCryptographicHash::Sha256).toBase64();
        QVERIFY(m_sample.contains(
            u"default-src 'none'; img-src data:; style-src 'unsafe-inline'; script-src 'sha256-%1'"_s.arg(
                QString::fromLatin1(hash))));
        QVERIFY(!m_sample.contains("{{"_L1));
    }

    void picturesAreDataAndThereOnce()
    {
        for (const QString &id : {u"1"_s, u"6"_s}) {
            const QString data =
                rowsOf(sampleCatalogue(), u"SELECT CAST(svg AS TEXT) FROM background WHERE id = "_s + id).first();
            QCOMPARE(m_sample.count(QString::fromLatin1(data.toUtf8().toBase64())), 1);
        }
        QVERIFY(!m_sample.contains("<title>Striped roll"_L1)); // not part of the page itself
    }

    void whatTheCatalogueSaysDoesNotRun()
    {
        const QString file = m_folder.filePath(u"hostile.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, QString::fromUtf8(bytesOf(sourcePath(u"tests/data/report/hostile.sql"_s)))),
                 QString());
        const QString page = report(file);
        QCOMPARE(page.count("<script"_L1), 1);
        QVERIFY(page.contains("&lt;script&gt;alert(1)&lt;/script&gt;"_L1));
        QVERIFY(page.contains("{{script}}"_L1)); // shown, not filled in
        // Within a tag an attribute of ours ends with the quote that we write.
        static const QRegularExpression handler(u"<[a-z][^>\"]*(?:\"[^\"]*\"[^>\"]*)*\\son[a-z]+\\s*="_s);
        const QRegularExpressionMatch found = handler.match(page);
        QVERIFY2(!found.hasMatch(), qPrintable(found.captured().right(200)));
        QVERIFY(!page.contains("href=\"javascript"_L1));
        QVERIFY(!page.contains("<svg onload"_L1));
    }

    void oddValues()
    {
        const QString file = m_folder.filePath(u"odd.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, QString::fromUtf8(bytesOf(sourcePath(u"tests/data/report/odd.sql"_s)))), QString());
        const QString page = report(file);
        QVERIFY(page.size() < 2 * m_sample.size());
        QVERIFY(!card(page, u"00143465"_s).isEmpty());
        QVERIFY(!page.contains("nan"_L1) && !page.contains("inf\""_L1));
        QVERIFY(page.contains("<title>odd.sqlite</title>"_L1));
    }

    void emptyCatalogue()
    {
        const QString file = m_folder.filePath(u"empty.sqlite"_s);
        QCOMPARE(runScript(file, QString::fromUtf8(bytesOf(sourcePath(u"schema/catalogue.sql"_s)))), QString());
        const QString page = report(file);
        QVERIFY(page.contains("0 rolls"_L1));
        QVERIFY(page.contains("<li>none</li>"_L1));
    }

    void sameBytes() { QCOMPARE(report(sampleCatalogue()), m_sample); }

    void wrongCalls()
    {
        const CommandRun noOutput = run({sampleCatalogue()});
        QCOMPARE(noOutput.status, 2);
        QVERIFY(noOutput.err.contains("--output"_L1));
        const QString page = m_folder.filePath(u"kept.html"_s);
        writeBytes(page, "kept");
        const QString text = m_folder.filePath(u"text"_s);
        writeBytes(text, "no database");
        QCOMPARE(run({text, u"-o"_s, page}).status, 1);
        QCOMPARE(bytesOf(page), "kept"_ba);
        QCOMPARE(run({sampleCatalogue(), u"-o"_s, m_folder.filePath(u"none/page.html"_s)}).status, 1);
    }

    void answer()
    {
        const QString page = m_folder.filePath(u"answer.html"_s);
        const QJsonObject said = run({sampleCatalogue(), u"-o"_s, page, u"--json"_s}).json();
        QCOMPARE(said[u"file"_s].toString(), page);
        QCOMPARE(said[u"rolls"_s].toInt(), sampleRows(u"roll"_s).size());
        QCOMPARE(said[u"ribbons"_s].toInt(), sampleRows(u"ribbon"_s).size());
        QCOMPARE(said[u"bytes"_s].toInt(), bytesOf(page).size());
    }

private:
    static CommandRun run(const QStringList &words)
    {
        CommandRun command = zrsupply(QStringList{u"catalogue"_s, u"report"_s} + words);
        command.run();
        return command;
    }

    QString report(const QString &file, const QStringList &more = {}) const
    {
        const QString page = m_folder.filePath(u"page.html"_s);
        QFile::remove(page);
        const CommandRun command = run(QStringList{file, u"-o"_s, page} + more);
        if (command.status != 0)
            qWarning("%s", qPrintable(command.err));
        return QString::fromUtf8(bytesOf(page));
    }

    QTemporaryDir m_folder;
    QString m_sample;
};

QTEST_GUILESS_MAIN(TestCatalogueReport)
#include "tst_catalogue_report.moc"

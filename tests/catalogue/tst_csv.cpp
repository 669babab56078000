// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/csv.h"

#include <QtCore/QBuffer>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace zrsupply;

namespace {

/// A line per record: its number, then "column=text" per field; or what is wrong with it.
QStringList recordsOf(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        qFatal("a buffer does not open");
    CsvReader csv(buffer);
    QStringList records;
    while (csv.next()) {
        if (csv.problem()) {
            records.append(
                u"%1:%2 %3"_s.arg(csv.problem()->line).arg(csv.problem()->column).arg(csv.problem()->message));
            continue;
        }
        QString record = QString::number(csv.line());
        for (const CsvField &field : csv.fields())
            record += u" %1=%2"_s.arg(field.column).arg(QString::fromUtf8(field.text));
        records.append(record);
    }
    return records;
}

} // namespace

class TestCsv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void records_data();
    void records();
    void positionsAcrossBlocks();
    void writtenFieldsAreReadBack_data();
    void writtenFieldsAreReadBack();
};

void TestCsv::records_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("nothing") << QByteArray("") << QStringList();
    QTest::newRow("two rows") << QByteArray("a,b\nc,d\n") << QStringList{u"1 1=a 3=b"_s, u"2 1=c 3=d"_s};
    QTest::newRow("no end of line at the end") << QByteArray("a,b") << QStringList{u"1 1=a 3=b"_s};
    QTest::newRow("CR LF") << QByteArray("a,b\r\nc,d\r\n") << QStringList{u"1 1=a 3=b"_s, u"2 1=c 3=d"_s};
    QTest::newRow("CR at the very end") << QByteArray("a,b\r") << QStringList{u"1 1=a 3=b"_s};
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a,b\n")
                                     << QStringList{u"1 1=a 3=b"_s};
    QTest::newRow("empty fields") << QByteArray(",\n\n") << QStringList{u"1 1= 2="_s, u"2 1="_s};
    QTest::newRow("empty field at the end of the file") << QByteArray("a,") << QStringList{u"1 1=a 3="_s};
    QTest::newRow("blanks are kept") << QByteArray(" a , b\n") << QStringList{u"1 1= a  5= b"_s};
    QTest::newRow("comma in quotes") << QByteArray("\"a,b\",c\n") << QStringList{u"1 1=a,b 7=c"_s};
    QTest::newRow("doubled quote") << QByteArray("\"a\"\"b\",c\n") << QStringList{u"1 1=a\"b 8=c"_s};
    QTest::newRow("quotes around nothing") << QByteArray("\"\",\"\"") << QStringList{u"1 1= 4="_s};
    QTest::newRow("line break in quotes")
        << QByteArray("\"a\nb\",c\nd,e\n") << QStringList{u"1 1=a\nb 4=c"_s, u"3 1=d 3=e"_s};
    QTest::newRow("columns are characters, not bytes")
        << QByteArray("größe,日本,c\n") << QStringList{u"1 1=größe 7=日本 10=c"_s};
    QTest::newRow("bytes that are no UTF-8 are fields too")
        << QByteArray("a\xDF,b\n") << QStringList{u"1 1=a\uFFFD 4=b"_s};

    QTest::newRow("quote that is never closed")
        << QByteArray("a,b\nc,\"d\ne,f\n")
        << QStringList{u"1 1=a 3=b"_s, u"2:3 the quote that opens here is never closed"_s};
    QTest::newRow("text behind a closed quote, and on with the next line")
        << QByteArray("\"a\"b,c\nd,e\n")
        << QStringList{u"1:4 text follows the quote that closes the field, which is opened in line 1, column 1"_s,
                       u"2 1=d 3=e"_s};
    QTest::newRow("quote left open until the next one")
        << QByteArray("a,\"b\nc,\"d\"\ne,f\n")
        << QStringList{u"2:4 text follows the quote that closes the field, which is opened in line 1, column 3"_s,
                       u"3 1=e 3=f"_s};
    QTest::newRow("quote inside a plain field")
        << QByteArray("a,b\"c\nd,e\n")
        << QStringList{u"1:4 a quote stands inside a field that does not begin with one"_s, u"2 1=d 3=e"_s};
    QTest::newRow("carriage return inside a plain field")
        << QByteArray("a,b\rc\nd,e\n")
        << QStringList{u"1:4 a carriage return stands inside a field"_s, u"2 1=d 3=e"_s};
}

void TestCsv::records()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    QCOMPARE(recordsOf(bytes), expected);
}

/// A record that begins in one block of the file and ends in the next.
void TestCsv::positionsAcrossBlocks()
{
    const QByteArray row = "0123456789,\"a \"\"quoted\"\" text\",größe\r\n";
    constexpr int rows = 20000;
    const QStringList records = recordsOf(row.repeated(rows));
    QCOMPARE(records.size(), rows);
    for (int i = 0; i < rows; ++i)
        QCOMPARE(records[i], u"%1 1=0123456789 12=a \"quoted\" text 32=größe"_s.arg(i + 1));
}

void TestCsv::writtenFieldsAreReadBack_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("plain") << QByteArray("White") << QByteArray("White");
    QTest::newRow("blanks need no quotes") << QByteArray(" a b ") << QByteArray(" a b ");
    QTest::newRow("comma") << QByteArray("a,b") << QByteArray("\"a,b\"");
    QTest::newRow("quote") << QByteArray("5\" wide") << QByteArray("\"5\"\" wide\"");
    QTest::newRow("line feed") << QByteArray("a\nb") << QByteArray("\"a\nb\"");
    QTest::newRow("carriage return") << QByteArray("a\rb") << QByteArray("\"a\rb\"");
    QTest::newRow("nothing") << QByteArray("") << QByteArray("");
}

void TestCsv::writtenFieldsAreReadBack()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, written);
    QByteArray line = "x,";
    appendCsvField(line, text);
    QCOMPARE(line, "x," + written);
    QCOMPARE(recordsOf(line), QStringList{u"1 1=x 3="_s + QString::fromUtf8(text)});
}

QTEST_GUILESS_MAIN(TestCsv)
#include "tst_csv.moc"

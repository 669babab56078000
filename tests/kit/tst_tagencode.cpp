// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tag/tagfields.h"

#include <tag/taglayout_p.h>

#include <QtTest/QtTest>

#include <random>

using namespace Qt::Literals::StringLiterals;
using namespace ZrSupplyKit;

namespace {

struct LayoutRow
{
    const char *name;
    int formatEnum;
    int tagRevision;
};

constexpr LayoutRow layouts[] = {{"continuous, revision 0", 1, 0},
                                 {"continuous, revision 2", 2, 2},
                                 {"die-cut, revision 1", 5, 1},
                                 {"die-cut, revision 15", 63, 15}};

/// The field values that decoding gives.
TagValues decoded(const QString &tag)
{
    const SupplyC record(tag);
    TagValues values;
    for (const TagField &field : tagFields())
        values.insert(field.member, field.value(record));
    return values;
}

TagValues layoutValues(const LayoutRow &layout)
{
    return {{u"formatEnum"_s, layout.formatEnum}, {u"tagRevision"_s, layout.tagRevision}};
}

/// The digits with the bits that no field reads set to zero.
QString withoutUnreadBits(const QString &tag)
{
    const SupplyC record(tag);
    const TagLayout layout(record.formatEnum, record.tagRevision);
    QByteArray bytes = QByteArray::fromHex(tag.toLatin1());
    for (const taglayout::Field &row : taglayout::fields) {
        const bool isField = row.number != nullptr || row.flag != nullptr;
        if (isField || !taglayout::applies(row.readWhen, layout.continuous, layout.multiUp))
            continue;
        for (int bit = row.first; bit < row.first + row.width; ++bit)
            bytes[bit / 8] = char(uchar(bytes[bit / 8]) & ~(0x80U >> (bit % 8)));
    }
    return QString::fromLatin1(bytes.toHex()).toUpper();
}

/// The failure that encoding ends in; the tag where it does not fail.
Failure refused(const TagValues &values)
{
    try {
        return {Status::Ok, encodeTag(values), {}, {}};
    } catch (const Failure &failure) {
        return failure;
    }
}

} // namespace

/// Encoding is the opposite of the library's decoding.
class TestTagEncode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomFieldsComeBack();
    void randomTagsComeBack();
    void range_data();
    void range();
    void notCarried_data();
    void notCarried();
    void nothingGiven();
    void severalErrors();
};

void TestTagEncode::randomFieldsComeBack()
{
    std::mt19937 random(20260214);
    int carriedFields = 0;
    for (int round = 0; round < 20000; ++round) {
        // Continuous formats and early revisions would be rare among all numbers.
        const int format = int(random() % 2 == 0 ? random() % 3 : random() % 64);
        const int revision = int(random() % 2 == 0 ? random() % 2 : random() % 16);
        const TagLayout layout(format, revision);
        TagValues values;
        for (const TagField &field : tagFields()) {
            const std::optional<TagBitRange> bits = tagBitsOf(field, layout);
            int value = valueWhenNotCarried(field, layout, format);
            if (bits) {
                const int smallest = smallestValue(field);
                value = smallest + int(random() % quint32(largestValue(field, *bits) - smallest + 1));
                ++carriedFields;
            }
            values.insert(field.member, value);
        }
        values.insert(u"formatEnum"_s, format);
        values.insert(u"tagRevision"_s, revision);
        if (!layout.multiUp)
            values.insert(u"typeIndex"_s, format);

        const QString tag = encodeTag(values);
        QCOMPARE(tag.size(), 24);
        QCOMPARE(decoded(tag), values);
    }
    QVERIFY(carriedFields > 20000 * 17);
}

void TestTagEncode::randomTagsComeBack()
{
    std::mt19937 random(96);
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes(12, '\0');
        for (char &byte : bytes)
            byte = char(random() % 256);
        const QString tag = QString::fromLatin1(bytes.toHex()).toUpper();
        QCOMPARE(encodeTag(decoded(tag)), withoutUnreadBits(tag));
    }
}

void TestTagEncode::range_data()
{
    QTest::addColumn<TagValues>("values");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("accepted");

    for (const LayoutRow &layout : layouts) {
        for (const TagField &field : tagFields()) {
            const std::optional<TagBitRange> bits =
                tagBitsOf(field, TagLayout(layout.formatEnum, layout.tagRevision));
            // These two choose the layout, so their limits are rows of their own below.
            if (!bits || field.member == "formatEnum"_L1 || field.member == "tagRevision"_L1)
                continue;
            const int smallest = smallestValue(field);
            const int largest = largestValue(field, *bits);
            const auto addRow = [&](const char *what, int value, bool accepted) {
                QTest::addRow("%s, %s %s", layout.name, qPrintable(field.name()), what)
                    << layoutValues(layout) << field.member << value << accepted;
            };
            addRow("just under", smallest - 1, false);
            addRow("at its smallest", smallest, true);
            addRow("at its largest", largest, true);
            addRow("just over", largest + 1, false);
        }
    }
    const TagValues none;
    QTest::newRow("format 63") << none << u"formatEnum"_s << 63 << true;
    QTest::newRow("format 64") << none << u"formatEnum"_s << 64 << false;
    QTest::newRow("format -1") << none << u"formatEnum"_s << -1 << false;
    QTest::newRow("revision 15") << none << u"tagRevision"_s << 15 << true;
    QTest::newRow("revision 16") << none << u"tagRevision"_s << 16 << false;
    QTest::newRow("revision -1") << none << u"tagRevision"_s << -1 << false;
}

void TestTagEncode::range()
{
    QFETCH(TagValues, values);
    QFETCH(QString, field);
    QFETCH(int, value);
    QFETCH(bool, accepted);

    values.insert(field, value);
    const Failure failure = refused(values);
    if (accepted) {
        QCOMPARE(failure.status, Status::Ok);
        QCOMPARE(decoded(failure.message).value(field), value);
        return;
    }
    const QString name = findTagField(field)->name();
    QCOMPARE(failure.status, Status::Usage);
    QVERIFY2(failure.message.startsWith(u"%1 is %2, but its "_s.arg(name).arg(value)), qPrintable(failure.message));
    QVERIFY2(failure.remedy.startsWith(u"give --%1 a number from "_s.arg(name)), qPrintable(failure.remedy));
}

void TestTagEncode::notCarried_data()
{
    QTest::addColumn<TagValues>("values");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("reads");

    for (const LayoutRow &layout : layouts) {
        const TagLayout chosen(layout.formatEnum, layout.tagRevision);
        for (const TagField &field : tagFields()) {
            if (!tagBitsOf(field, chosen)) {
                QTest::addRow("%s, %s", layout.name, qPrintable(field.name()))
                    << layoutValues(layout) << field.member << valueWhenNotCarried(field, chosen, layout.formatEnum);
            }
        }
    }
}

void TestTagEncode::notCarried()
{
    QFETCH(TagValues, values);
    QFETCH(QString, field);
    QFETCH(int, reads);

    const QString leftOut = encodeTag(values);
    values.insert(field, reads);
    QCOMPARE(encodeTag(values), leftOut);
    QCOMPARE(decoded(leftOut).value(field), reads);

    values.insert(field, reads == 0 ? 1 : 0);
    const Failure failure = refused(values);
    QCOMPARE(failure.status, Status::Usage);
    QVERIFY2(failure.message.contains(u"does not carry it"_s), qPrintable(failure.message));
    QVERIFY2(failure.remedy.startsWith(u"leave it out"_s), qPrintable(failure.remedy));
}

void TestTagEncode::nothingGiven()
{
    QCOMPARE(encodeTag({}), u"000000000000000000000000"_s);
    QCOMPARE(decoded(encodeTag({{u"tagRevision"_s, 2}})).value(u"typeIndex"_s), 1);
}

void TestTagEncode::severalErrors()
{
    const Failure failure = refused({{u"widthInches"_s, 64}, {u"lengthFeet"_s, 512}, {u"secColorEnum"_s, 3}});
    QCOMPARE(failure.status, Status::Usage);
    QVERIFY(failure.message.startsWith(u"3 fields cannot be written"_s));
    const QJsonArray fields = failure.details.value(u"fields"_s).toArray();
    QCOMPARE(fields.size(), 3);
    QCOMPARE(fields[0][u"field"_s].toString(), u"sec-color-enum"_s);
    QCOMPARE(fields[1][u"field"_s].toString(), u"length-feet"_s);
    QCOMPARE(fields[1][u"largest"_s].toInt(), 511);
    QCOMPARE(fields[2][u"field"_s].toString(), u"width-inches"_s);
}

QTEST_GUILESS_MAIN(TestTagEncode)
#include "tst_tagencode.moc"

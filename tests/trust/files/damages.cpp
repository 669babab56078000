// SPDX-License-Identifier: LGPL-2.1-or-later
#include "damages.h"

#include <QtCore/QtEndian>

namespace {

constexpr qsizetype fileHeaderSize = 100;

QByteArray bigEndian(quint32 value, int width)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes.right(width);
}

int number(const QByteArray &file, qsizetype offset, int width)
{
    int value = 0;
    for (int i = 0; i < width; ++i)
        value = value << 8 | uchar(file[offset + i]);
    return value;
}

/// A number of the file's header, by the offsets of the file format.
struct HeaderField
{
    const char *name;
    qsizetype offset;
    int width;
};

constexpr HeaderField headerFields[] = {
    {"page size", 16, 2},       {"write version", 18, 1},     {"read version", 19, 1},
    {"reserved bytes", 20, 1},  {"largest payload", 21, 1},   {"smallest payload", 22, 1},
    {"leaf payload", 23, 1},    {"change counter", 24, 4},    {"pages in the file", 28, 4},
    {"first free page", 32, 4}, {"free pages", 36, 4},        {"schema cookie", 40, 4},
    {"schema format", 44, 4},   {"cache size", 48, 4},        {"largest root page", 52, 4},
    {"encoding", 56, 4},        {"user version", 60, 4},      {"incremental vacuum", 64, 4},
    {"application id", 68, 4},  {"version valid for", 92, 4}, {"version number", 96, 4},
};

class Collector
{
public:
    explicit Collector(const QByteArray &file)
        : m_file(file)
    {
    }

    void everyByte();
    void everyLength();
    void header();
    void everyPage();

    QList<Damage> take() { return std::move(m_damages); }

private:
    void put(const QByteArray &what, qsizetype offset, const QByteArray &value)
    {
        const QByteArray replacement = value.left(m_file.size() - offset);
        if (m_file.mid(offset, replacement.size()) != replacement)
            m_damages.append({what, offset, replacement});
    }
    void putNumbers(const QByteArray &what, qsizetype offset, int width, const QList<quint32> &values)
    {
        for (const quint32 value : values)
            put(what + " = " + QByteArray::number(value), offset, bigEndian(value, width));
    }
    void page(int index, int size);

    QByteArray m_file;
    QList<Damage> m_damages;
};

void Collector::everyByte()
{
    for (qsizetype at = 0; at < m_file.size(); ++at) {
        const int byte = uchar(m_file[at]);
        const QByteArray where = "byte " + QByteArray::number(at);
        // A bit that wanders, so that each of the eight is met all over the file.
        const int flipped = byte ^ (1 << (at % 8));
        for (const int value : {0, 255, flipped, (byte + 1) % 256})
            put(where + " = " + QByteArray::number(value), at, QByteArray(1, char(value)));
    }
}

void Collector::everyLength()
{
    for (qsizetype length = 0; length < m_file.size(); ++length)
        m_damages.append({"cut off at " + QByteArray::number(length), length, {}});
}

void Collector::header()
{
    for (const HeaderField &field : headerFields) {
        const quint32 now = quint32(number(m_file, field.offset, field.width));
        putNumbers(field.name, field.offset, field.width,
                   {0,    1,     2,     3,     4,          5,          127,        128,     255,     256,    512,
                    4096, 32768, 65535, 65536, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, now - 1, now + 1, now * 2});
    }
}

void Collector::page(int index, int size)
{
    const qsizetype start = qsizetype(index) * size;
    const qsizetype head = index == 0 ? fileHeaderSize : start;
    const QByteArray name = "page " + QByteArray::number(index + 1);
    const int type = number(m_file, head, 1);
    const bool isInterior = type == 2 || type == 5;
    if (!isInterior && type != 10 && type != 13)
        return; // an overflow or free page
    const int cells = number(m_file, head + 3, 2);
    const quint32 pages = quint32(m_file.size() / size);
    const QList<quint32> pageNumbers = {0, 1, quint32(index + 1), 2, pages, pages + 1, 0x7FFFFFFF, 0xFFFFFFFF};
    const QList<quint32> offsets = {0, 1, quint32(head - start), quint32(size - 1), quint32(size - 4), 65535};

    putNumbers(name + " type", head, 1, {0, 2, 5, 10, 13, 1});
    putNumbers(name + " first free block", head + 1, 2, offsets);
    putNumbers(name + " cells", head + 3, 2, {0, 1, quint32(cells + 1), quint32(size / 2), 65535});
    putNumbers(name + " content", head + 5, 2, offsets);
    putNumbers(name + " fragments", head + 7, 1, {255});
    if (isInterior)
        putNumbers(name + " last child", head + 8, 4, pageNumbers);
    const qsizetype pointers = head + (isInterior ? 12 : 8);
    for (int cell = 0; cell < cells; ++cell) {
        const qsizetype at = pointers + 2 * cell;
        const int content = number(m_file, at, 2);
        const QByteArray cellName = name + " cell " + QByteArray::number(cell);
        putNumbers(cellName + " pointer", at, 2, offsets);
        putNumbers(cellName + " pointer", at, 2, {quint32(content - 1), quint32(content + 1)});
        if (isInterior)
            putNumbers(cellName + " child", start + content, 4, pageNumbers);
        else
            // The length of the row as a number of nine bytes, the largest there is.
            put(cellName + " endless", start + content, QByteArray(8, '\xFF') + '\x7F');
    }
}

void Collector::everyPage()
{
    const int size = number(m_file, 16, 2);
    for (int index = 0; index < m_file.size() / size; ++index)
        page(index, size);
}

} // namespace

QList<Damage> damagesOf(const QByteArray &file)
{
    Collector collector(file);
    collector.everyByte();
    collector.everyLength();
    collector.header();
    collector.everyPage();
    return collector.take();
}

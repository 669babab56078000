// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/csv.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype blockBytes = 1 << 18;

bool endsPlainField(char byte)
{
    return byte == ',' || byte == '\n' || byte == '\r' || byte == '"';
}

} // namespace

CsvReader::CsvReader(QIODevice &device)
    : m_device(device)
{
    if (m_device.peek(3) == "\xEF\xBB\xBF")
        m_device.skip(3);
}

bool CsvReader::fill()
{
    m_buffer.resize(blockBytes);
    const qint64 count = m_device.read(m_buffer.data(), blockBytes);
    m_next = m_buffer.constData();
    m_end = m_next + qMax<qint64>(count, 0);
    return m_next != m_end;
}

char CsvReader::take()
{
    const char byte = *m_next++;
    if (byte == '\n') {
        ++m_line;
        m_column = 1;
    } else if ((byte & 0xC0) != 0x80) {
        ++m_column; // a character of UTF-8 is counted by its first byte
    }
    return byte;
}

void CsvReader::fail(int atLine, int atColumn, const QString &message, const QString &remedy)
{
    if (!m_problem)
        m_problem = CsvProblem{atLine, atColumn, message, remedy};
    // The rest of the line says nothing any more.
    while (!atEnd() && *m_next != '\n')
        take();
}

void CsvReader::readPlain()
{
    while (!atEnd() && !endsPlainField(*m_next))
        m_text.append(take());
    if (!atEnd() && *m_next == '"') {
        fail(m_line, m_column, u"a quote stands inside a field that does not begin with one"_s,
             u"put the whole field in quotes and write the quote inside twice"_s);
    }
}

void CsvReader::readQuoted()
{
    const int openLine = m_line;
    const int openColumn = m_column;
    take();
    for (;;) {
        if (atEnd()) {
            fail(openLine, openColumn, u"the quote that opens here is never closed"_s,
                 u"close the field with a quote; a quote inside a field is written twice"_s);
            return;
        }
        const char byte = take();
        if (byte != '"') {
            m_text.append(byte);
            continue;
        }
        if (atEnd() || *m_next != '"')
            break;
        m_text.append(take());
    }
    if (!atEnd() && *m_next != ',' && *m_next != '\n' && *m_next != '\r') {
        fail(m_line, m_column,
             u"text follows the quote that closes the field, which is opened in line %1, column %2"_s.arg(openLine)
                 .arg(openColumn),
             u"close that field where it ends; a quote inside a field is written twice"_s);
    }
}

bool CsvReader::endOfField()
{
    if (atEnd())
        return true;
    const char byte = take();
    if (byte == ',')
        return false;
    if (byte == '\r') {
        if (!atEnd() && *m_next != '\n')
            fail(m_line, m_column - 1, u"a carriage return stands inside a field"_s,
                 u"end lines with LF or CR LF, or put the field in quotes"_s);
        if (!atEnd())
            take();
    }
    return true;
}

bool CsvReader::next()
{
    m_text.clear();
    m_spans.clear();
    m_fields.clear();
    m_problem.reset();
    if (atEnd())
        return false;
    m_recordLine = m_line;
    do {
        m_spans.push_back({m_text.size(), m_line, m_column});
        if (!atEnd() && *m_next == '"')
            readQuoted();
        else
            readPlain();
    } while (!endOfField());
    if (m_problem)
        return true;

    for (size_t i = 0; i < m_spans.size(); ++i) {
        const qsizetype end = i + 1 < m_spans.size() ? m_spans[i + 1].begin : m_text.size();
        const Span &span = m_spans[i];
        m_fields.push_back({QByteArrayView(m_text).sliced(span.begin, end - span.begin), span.line, span.column});
    }
    return true;
}

void appendCsvField(QByteArray &line, QByteArrayView text)
{
    const bool needsQuotes = text.contains(',') || text.contains('"') || text.contains('\n') || text.contains('\r');
    if (!needsQuotes) {
        line.append(text);
        return;
    }
    line.append('"');
    for (const char byte : text) {
        if (byte == '"')
            line.append('"');
        line.append(byte);
    }
    line.append('"');
}

} // namespace zrsupply

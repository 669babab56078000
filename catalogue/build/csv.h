// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>
#include <QtCore/QString>

#include <optional>
#include <vector>

/// Comma-separated values: fields that hold a comma, a quote or a line's end stand in double quotes, a quote inside
/// is doubled, lines end with LF or CR LF, a byte order mark at the beginning is passed over.
///
/// The reader is our own, because an author needs to be told the line and the column of every mistake in one run, and
/// the columns come from catalogue.sql at run time. Of Debian's parsers libcsv knows no positions, and libfccp fixes
/// the columns at compile time, reads no field of several lines and ends with the first mistake.
namespace zrsupply {

struct CsvField
{
    QByteArrayView text;
    int line = 0;   ///< Where it begins, from 1.
    int column = 0; ///< In characters, from 1.
};

/// What is wrong with the form of a record.
struct CsvProblem
{
    int line = 0;
    int column = 0;
    QString message;
    QString remedy;
};

class CsvReader
{
public:
    explicit CsvReader(QIODevice &device);

    /// Reads the next record; false at the end. A record with a `problem()` has no fields; reading goes on after it.
    bool next();

    /// Valid until the next `next()`.
    const std::vector<CsvField> &fields() const { return m_fields; }
    const std::optional<CsvProblem> &problem() const { return m_problem; }
    int line() const { return m_recordLine; }

private:
    struct Span
    {
        qsizetype begin;
        int line;
        int column;
    };

    bool fill();
    bool atEnd() { return m_next == m_end && !fill(); }
    char take();
    void readPlain();
    void readQuoted();
    bool endOfField();
    void fail(int atLine, int atColumn, const QString &message, const QString &remedy);

    QIODevice &m_device;
    QByteArray m_buffer;
    const char *m_next = nullptr;
    const char *m_end = nullptr;
    QByteArray m_text; // all fields of the record, one behind the other
    std::vector<Span> m_spans;
    std::vector<CsvField> m_fields;
    std::optional<CsvProblem> m_problem;
    int m_recordLine = 0;
    int m_line = 1;
    int m_column = 1;
};

/// `text` as a field, in quotes where it needs them.
void appendCsvField(QByteArray &line, QByteArrayView text);

} // namespace zrsupply

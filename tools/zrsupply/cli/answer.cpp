// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/answer.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cwchar>
#include <numeric>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype columnGap = 2;
constexpr qsizetype swatchColumns = 4;
constexpr qsizetype noteColumns = 96;

QString blanks(qsizetype count)
{
    return QString(count, u' ');
}

qsizetype cellWidth(const Cell &cell, const Style &style)
{
    return displayWidth(cell.text) + (cell.rgb && style.swatches ? swatchColumns : 0);
}

QString cellText(const Cell &cell, qsizetype width, Qt::Alignment alignment, const Style &style)
{
    const QString patch = cell.rgb ? swatch(*cell.rgb, style) : QString();
    return patch + padded(cell.text, width - (patch.isEmpty() ? 0 : swatchColumns), alignment);
}

/// A line ends where its last visible character does.
QString withoutTrailingBlanks(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

} // namespace

qsizetype displayWidth(const QString &text)
{
    const auto characters = text.toUcs4();
    return std::accumulate(characters.begin(), characters.end(), qsizetype(0), [](qsizetype width, uint character) {
        return width + std::max(0, ::wcwidth(wchar_t(character)));
    });
}

QString padded(const QString &text, qsizetype width, Qt::Alignment alignment)
{
    const QString filling = blanks(std::max<qsizetype>(0, width - displayWidth(text)));
    return alignment.testFlag(Qt::AlignRight) ? filling + text : text + filling;
}

QString wrapped(const QString &text, qsizetype width, qsizetype indent)
{
    static const QRegularExpression blank(u"\\s+"_s);
    QStringList lines;
    QString line;
    for (const QString &word : text.split(blank, Qt::SkipEmptyParts)) {
        if (!line.isEmpty() && displayWidth(line) + 1 + displayWidth(word) > width) {
            lines.append(blanks(indent) + line);
            line.clear();
        }
        line += line.isEmpty() ? word : u' ' + word;
    }
    lines.append(blanks(indent) + line);
    return lines.join(u'\n');
}

QString emphasised(const QString &text, const Style &style)
{
    return style.emphasis ? u"\033[1m"_s + text + u"\033[0m"_s : text;
}

QString swatch(int rgb, const Style &style)
{
    if (!style.swatches)
        return {};
    return u"\033[48;2;%1;%2;%3m   \033[0m "_s.arg((rgb >> 16) & 0xff).arg((rgb >> 8) & 0xff).arg(rgb & 0xff);
}

Table::Table(QList<Column> columns)
    : m_columns(std::move(columns))
{
}

void Table::addRow(const QList<Cell> &cells)
{
    Q_ASSERT(cells.size() == m_columns.size());
    m_rows.append(cells);
}

QJsonArray Table::toJson() const
{
    QJsonArray list;
    for (const QList<Cell> &row : m_rows) {
        QJsonObject object;
        for (qsizetype column = 0; column < m_columns.size(); ++column) {
            if (!m_columns[column].key.isEmpty())
                object.insert(m_columns[column].key, row[column].value);
        }
        list.append(object);
    }
    return list;
}

QString Table::toText(const Style &style, qsizetype indent) const
{
    QList<qsizetype> widths;
    for (qsizetype column = 0; column < m_columns.size(); ++column) {
        qsizetype width = displayWidth(m_columns[column].label);
        for (const QList<Cell> &row : m_rows)
            width = std::max(width, cellWidth(row[column], style));
        widths.append(width);
    }

    const auto line = [&](const auto &cellAt) {
        QString text = blanks(indent);
        for (qsizetype column = 0; column < m_columns.size(); ++column) {
            if (m_columns[column].label.isEmpty())
                continue;
            text += cellText(cellAt(column), widths[column], m_columns[column].alignment, style) + blanks(columnGap);
        }
        return withoutTrailingBlanks(text);
    };

    QString text = emphasised(line([&](qsizetype column) {
                                  return Cell{{}, m_columns[column].label, {}};
                              }),
                              style) +
                   u'\n';
    for (const QList<Cell> &row : m_rows)
        text += line([&](qsizetype column) { return row[column]; }) + u'\n';
    return text;
}

Answer::Answer(const QString &title)
    : m_title(title)
{
}

void Answer::beginGroup(const QString &heading, const QString &key)
{
    m_blocks.append({heading, key, {}, {}});
}

void Answer::add(const QString &key, const QString &label, const Cell &cell)
{
    if (m_blocks.isEmpty() || m_blocks.last().table)
        beginGroup({});
    m_blocks.last().facts.append({key, label, cell});
}

void Answer::addJson(const QString &key, const QJsonValue &value)
{
    add(key, {}, {value, {}, {}});
}

void Answer::addTable(const QString &heading, const QString &key, const Table &table)
{
    m_blocks.append({heading, key, {}, table});
}

void Answer::addNote(const QString &note)
{
    m_notes.append(note);
}

QJsonObject Answer::toJson() const
{
    QJsonObject answer;
    for (const Block &block : m_blocks) {
        if (block.table) {
            answer.insert(block.key, block.table->toJson());
            continue;
        }
        QJsonObject group = block.key.isEmpty() ? answer : answer.value(block.key).toObject();
        for (const Fact &fact : block.facts) {
            if (!fact.key.isEmpty())
                group.insert(fact.key, fact.cell.value);
        }
        if (block.key.isEmpty())
            answer = group;
        else
            answer.insert(block.key, group);
    }
    if (!m_notes.isEmpty())
        answer.insert(u"notes"_s, QJsonArray::fromStringList(m_notes));
    return answer;
}

QString Answer::toText(const Style &style) const
{
    // One label column for the whole answer, so that the values of all groups stand below each other.
    qsizetype labels = 0;
    for (const Block &block : m_blocks) {
        for (const Fact &fact : block.facts)
            labels = std::max(labels, displayWidth(fact.label));
    }

    QString text;
    if (!m_title.isEmpty())
        text += emphasised(m_title, style) + u'\n';
    for (const Block &block : m_blocks) {
        if (!text.isEmpty() && (!block.heading.isEmpty() || block.table))
            text += u'\n';
        if (!block.heading.isEmpty())
            text += emphasised(block.heading, style) + u'\n';
        for (const Fact &fact : block.facts) {
            if (fact.label.isEmpty())
                continue;
            const QString value = cellText(fact.cell, 0, Qt::AlignLeft, style);
            text += withoutTrailingBlanks(u"  "_s + padded(fact.label, labels + columnGap) + value) + u'\n';
        }
        if (block.table)
            text += block.table->toText(style, block.heading.isEmpty() ? 0 : 2);
    }
    for (const QString &note : m_notes)
        text += u'\n' + wrapped(u"Note: "_s + note, noteColumns) + u'\n';
    return text;
}

} // namespace zrsupply

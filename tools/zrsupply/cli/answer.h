// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace zrsupply {

/// How an answer is written for a person.
struct Style
{
    bool emphasis = false; ///< Headings in bold, notes faint.
    bool swatches = false; ///< Colours as 24-bit patches.
};

/// One value: as JSON and as a person reads it.
struct Cell
{
    QJsonValue value;
    QString text;
    std::optional<int> rgb = {}; ///< Packed RGB, shown as a patch before the text.
};

/// Rows under column headings; in JSON a list of objects.
class Table
{
public:
    struct Column
    {
        QString key;   ///< Member name in JSON; empty: for people only.
        QString label; ///< Empty: in JSON only.
        Qt::Alignment alignment = Qt::AlignLeft;
    };

    explicit Table(QList<Column> columns);

    void addRow(const QList<Cell> &cells);
    bool isEmpty() const { return m_rows.isEmpty(); }

    QJsonArray toJson() const;
    /// Columns aligned by what a terminal shows, each line after `indent` blanks.
    QString toText(const Style &style, qsizetype indent = 0) const;

private:
    QList<Column> m_columns;
    QList<QList<Cell>> m_rows;
};

/// What a verb answers: facts by label in groups, tables and notes, said once for a person and for JSON.
class Answer
{
public:
    explicit Answer(const QString &title = {});

    /// Begins a group of facts under a heading. In JSON they are members of the object `key`, of the whole answer
    /// when it is empty.
    void beginGroup(const QString &heading, const QString &key = {});
    /// A fact of the current group. An empty label: in JSON only. An empty key: for people only.
    void add(const QString &key, const QString &label, const Cell &cell);
    void addJson(const QString &key, const QJsonValue &value);
    /// A table under a heading of its own; `key` names the list in JSON.
    void addTable(const QString &heading, const QString &key, const Table &table);
    /// A remark for the reader: what to beware of in this answer. In JSON the list `notes`.
    void addNote(const QString &note);

    QJsonObject toJson() const;
    QString toText(const Style &style) const;

private:
    struct Fact
    {
        QString key;
        QString label;
        Cell cell;
    };
    struct Block
    {
        QString heading;
        QString key;
        QList<Fact> facts;
        std::optional<Table> table;
    };

    QString m_title;
    QList<Block> m_blocks;
    QStringList m_notes;
};

/// Columns that a terminal needs for `text`: East Asian characters take two, combining ones none.
qsizetype displayWidth(const QString &text);
/// `text` filled up to `width` columns with blanks.
QString padded(const QString &text, qsizetype width, Qt::Alignment alignment = Qt::AlignLeft);
/// `text` broken at blanks into lines of at most `width` columns, each after `indent` blanks.
QString wrapped(const QString &text, qsizetype width, qsizetype indent = 0);
/// `text` in bold where the style has emphasis.
QString emphasised(const QString &text, const Style &style);
/// A patch of the colour, three columns wide and followed by a blank; empty where the style has no swatches.
QString swatch(int rgb, const Style &style);

} // namespace zrsupply

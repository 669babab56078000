// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplydatabase.h"

#include <QtCore/QList>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

/// One SQL text of the library, the operation that asks it, and what the operation makes of the rows.
struct Question
{
    /// What the library makes of the rows.
    enum class Reading { Int, IntOrUnset, Real, Text, Bytes, Texts, Colors, AlwaysFalse };

    QString statement;  ///< As tests/data/statements.tsv calls it.
    QStringList values; ///< What fills the text; `materialOfRoll` stands for what the roll's material is.
    QString operation;  ///< A slot; a public function of the object where no slot asks the text alone.
    QVariantList given; ///< The operation's arguments.
    Reading reading;
    QVariant absent; ///< The default: closed catalogue, failed statement, no row.
};

inline constexpr auto materialOfRoll = "the roll's material";

/// One for each of the library's SQL texts, so that the rows of tests/data/fixture.sql answer each with a value.
const QList<Question> &questions();

QVariant askOne(ZrSupplyDatabase &database, const Question &question);

/// Takes in a roll and two ribbons, as a host does. Some questions are then about the roll's tag.
void takeInSupplies(ZrSupplyDatabase &database);
/// That of the roll.
QString takenInTag();

/// Does so, and then asks every question; the answers in their order.
QVariantList askEverything(ZrSupplyDatabase &database);

/// What SQLite's C interface reads from this file, put through the same conversions: the answers that must come.
QVariantList answersOfFile(const QString &path);

/// The questions, by their number, for which SQLite meets a row that leaves its page. What lies behind the page in
/// memory is then read as part of the row, so that the file does not say what the answer is.
QSet<qsizetype> undecidedByFile(const QString &path);

QVariantList defaultAnswers();

/// How an answer is allowed to differ from the value while SQLite fails.
enum class Lenience {
    None,      ///< The value or the default.
    EmptyText, ///< Also an empty text: SQLite had no memory left to convert a text that it had found.
};

/// Whether `answer` is the value or the default. A list may end early: rows are collected until one fails.
bool isValueOrDefault(const Question &question, const QVariant &answer, const QVariant &value,
                      Lenience lenience = Lenience::None);

/// An answer as a line of text.
QString toldAnswer(const QVariant &answer);

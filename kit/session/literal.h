// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include <QtCore/QJsonValue>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <optional>

/// How values are written in a session: the text that is printed is the text that is read.
///
/// Texts stand in quotes as in JSON or, where they hold no blank, bare; lists and tables are JSON; numbers are
/// written so that they read back exactly.
namespace ZrSupplyKit {

/// One word of a line.
struct Word
{
    QString raw;  ///< As it stands.
    QString text; ///< Without the quotes where the whole word is quoted.
    bool quoted = false;
};

/// The words of a line up to a comment. Throws a usage failure when quotes or brackets are not closed.
ZRSUPPLYKIT_EXPORT QList<Word> splitWords(const QString &line);

/// The value as it is read back by `parseLiteral()`. An invalid value is the bare word void.
ZRSUPPLYKIT_EXPORT QString literal(const QVariant &value);
/// The values after each other, each after a blank.
ZRSUPPLYKIT_EXPORT QString literals(const QVariantList &values);
ZRSUPPLYKIT_EXPORT QJsonValue literalJson(const QVariant &value);

/// `word` as a value of `type`; nothing when it is not one. Lists of texts may also be written with commas: A,B.
ZRSUPPLYKIT_EXPORT std::optional<QVariant> parseLiteral(const Word &word, QMetaType type);

/// What a person calls the type: "a whole number".
ZRSUPPLYKIT_EXPORT QString typeText(QMetaType type);

} // namespace ZrSupplyKit

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/answer.h"
#include "cli/catalogue.h"

/// What a command line says is loaded: --roll SKU|TAG, and up to two ribbons behind --ribbons or as arguments.
namespace zrsupply {

constexpr qsizetype ribbonCount = 2;

/// The 20 digits that identify a roll, or more of its tag; no SKU is as long.
bool looksLikeTag(const QString &text);

/// Hands the roll to the library. Throws when a SKU is in no catalogue; what to beware of becomes a note of `answer`.
void takeInRoll(Catalogue &catalogue, const QString &roll, Answer &answer);

/// The words for the ribbons, ribbon 1 first. Throws when they are more than two.
QStringList ribbonWords(const Invocation &call);
/// The SKU that such a word means: a SKU, an id from a ribbon's tag, or "-1" for none.
QString ribbonSku(Catalogue &catalogue, const QString &word, Answer &answer);
/// The SKUs of both ribbons, "-1" for an empty place.
QStringList ribbonSkus(Catalogue &catalogue, const Invocation &call, Answer &answer);

/// The rows of the command table for them.
Argument secondRibbonArgument();
Option rollOption();
Option ribbonsOption();

} // namespace zrsupply

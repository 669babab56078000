// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "randomsource.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

/// Texts as an attacker puts them where the library pastes a SKU, an id or a name between two quotes.
///
/// Every text that runs at all runs to its end: what recurses is bounded, and a text names few tables. A statement
/// without end is a case of its own.
namespace sqlgrammar {

/// The next text of a random sequence.
QString hostileText(ChoiceSource &choices);

/// The classics, each worth a call of every slot.
QStringList knownTexts();

/// Texts that close the quote, end the statement and begin another one.
QStringList stackedStatements();

} // namespace sqlgrammar

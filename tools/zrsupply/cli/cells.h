// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/answer.h"
#include "text/units.h"
#include "usekit.h"

namespace zrsupply {

// A value and its unit, as a person reads it. JSON keeps the library's own number, -1 for what it does not know.

/// "4 3/16 in (106.4 mm)"
Cell widthCell(double inches, const QString &absent = notKnown);
/// "1200 in (100 ft)"
Cell lengthCell(double inches, const QString &absent = notKnown);
Cell numberCell(int number, const QString &absent = notKnown);
/// "12 Polyester"
Cell codeCell(int code, const QString &name);
/// A patch, "#FFD000" and the name.
Cell colorCell(int rgb, const QString &name = {}, const QString &absent = notKnown);
Cell textCell(const QString &text, const QString &absent = notKnown);
Cell yesNoCell(bool yes);

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include <QtCore/QString>

namespace ZrSupplyKit {

// A value with its unit, as a person reads it. `absent` stands for the library's -1, which is a value that it does
// not know.

/// What stands for an unknown value where the caller names nothing else.
inline const QString notKnown = QStringLiteral("not known");

/// At most `decimals` digits after the point, without zeros at the end.
ZRSUPPLYKIT_EXPORT QString decimalText(double value, int decimals);
/// "4 3/16 in": sixteenths below 1000 inches as a fraction, anything else with up to four decimals.
ZRSUPPLYKIT_EXPORT QString inchText(double inches);
/// "4 3/16 in (106.4 mm)"
ZRSUPPLYKIT_EXPORT QString widthText(double inches, const QString &absent = notKnown);
/// "1200 in (100 ft)"
ZRSUPPLYKIT_EXPORT QString lengthText(double inches, const QString &absent = notKnown);
/// "7"
ZRSUPPLYKIT_EXPORT QString numberText(int number, const QString &absent = notKnown);
/// "12 Polyester"; the code alone without a name.
ZRSUPPLYKIT_EXPORT QString codeText(int code, const QString &name);
/// "#FFD000" of a packed RGB value.
ZRSUPPLYKIT_EXPORT QString rgbText(int rgb);

} // namespace ZrSupplyKit

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "reasons/reasons.h"
#include "text/answer.h"

class ZrSupplyDatabase;

namespace zrsupply {

/// What is installed: SKUs, remaining fractions as bars, colours and the verdicts of the checks. Asks lookups and
/// members only, so that looking makes the library announce nothing.
Answer installedAnswer(ZrSupplyDatabase &library);

/// "████████████░░░░░░░░  60 %"; empty and overfull bars end at their ends, the number says how far beyond.
QString barText(double fraction);

/// "White Vinyl, 4 in wide, 100 ft" of the installed roll.
QString rollText(ZrSupplyDatabase &library);
/// The same of the roll `sku`; of the last tag for an empty text.
QString rollText(ZrSupplyDatabase &library, const QString &sku);
/// "Black Resin, 4 1/2 in wide, prints on …" of a ribbon.
QString ribbonText(ZrSupplyDatabase &library, const QString &sku);

/// "ribbon 1 does not suit the roll: R530901 has no heat for material 3 (Paper)": the summary and what fired.
QString verdictText(const Verdict &verdict);

/// The signal that a verdict is announced by, as a session writes it; "silence" without one.
QString announcementText(const Verdict &verdict);

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/answer.h"
#include "supplies/installed.h"
#include "usekit.h"

namespace zrsupply {

/// What is installed, for a person: SKUs, remaining fractions as bars, colours and the verdicts of the checks. The
/// JSON of it is the kit's.
Answer installedAnswer(const Installed &installed);

/// "████████████░░░░░░░░  60 %"; empty and overfull bars end at their ends, the number says how far beyond.
QString barText(double fraction);

} // namespace zrsupply

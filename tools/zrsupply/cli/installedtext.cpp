// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/installedtext.h"

#include "cli/cells.h"

#include <zrsupplydatabase.h>

#include <algorithm>
#include <cmath>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int barColumns = 20;

/// A fraction as the library keeps it, -1 unknown.
bool isKnown(double fraction)
{
    return fraction != -1.0;
}

void addSupply(Answer &answer, const QString &heading, const InstalledSupply &supply)
{
    answer.beginGroup(heading);
    answer.add({}, u"SKU"_s, textCell(supply.sku));
    if (supply.sku != unsetString)
        answer.add({}, u"Is"_s, textCell(supply.description));
    answer.add({}, u"Remaining"_s, textCell(barText(supply.remainingFraction)));
    for (qsizetype i = 0; i < supply.colorNames.size(); ++i) {
        answer.add({}, supply.colorNames.size() == 1 ? u"Colour"_s : u"Panel %1"_s.arg(i + 1),
                   colorCell(supply.rgbs.value(i, unsetString).toInt(), supply.colorNames[i], u"not known"_s));
    }
}

} // namespace

QString barText(double fraction)
{
    if (!isKnown(fraction) || std::isnan(fraction))
        return QString(barColumns, u'·') + u"  not known"_s;
    const int full = int(std::lround(std::clamp(fraction, 0.0, 1.0) * barColumns));
    return QString(full, u'█') + QString(barColumns - full, u'░') + u"  %1 %"_s.arg(fraction * 100, 0, 'f', 1);
}

Answer installedAnswer(const Installed &installed)
{
    Answer answer;
    addSupply(answer, u"Roll"_s, installed.roll);
    for (size_t i = 0; i < installed.ribbons.size(); ++i)
        addSupply(answer, u"Ribbon %1"_s.arg(i + 1), installed.ribbons[i]);
    answer.beginGroup(u"Verdicts"_s);
    for (const Verdict &verdict : installed.verdicts)
        answer.add({}, nameOf(verdict.check).title, textCell(verdictText(verdict)));
    return answer;
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/installedroll.h"

#include "models/remaining.h"

#include "reasons/reasons.h"
#include "supplies/installed.h"
#include "text/units.h"
#include <zrsupplydatabase.h>

#include <cmath>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double inchesPerFoot = 12.0;

/// The type index with what it stands for.
QString typeText(int type)
{
    const QString names[] = {InstalledRoll::tr("by its tag"), InstalledRoll::tr("continuous"),
                             InstalledRoll::tr("die-cut"), InstalledRoll::tr("special die-cut"),
                             InstalledRoll::tr("special die-cut, wide separator")};
    if (type < 0)
        return InstalledRoll::tr("not known");
    return type < int(std::size(names)) ? u"%1, %2"_s.arg(QString::number(type), names[type]) : QString::number(type);
}

} // namespace

QColor colorOf(int rgb)
{
    return rgb < 0 ? QColor() : QColor::fromRgb(QRgb(rgb));
}

int fullMileageOf(ZrSupplyDatabase &library, int tagLengthInches)
{
    const double inchesPerMetre = library.mmToInches(1000.0);
    return tagLengthInches <= 0 ? 0 : int(std::lround(tagLengthInches / inchesPerMetre * 1000.0));
}

QString rollName(ZrSupplyDatabase &library, const QString &sku)
{
    QStringList words = {library.supplyColorName(sku), library.supplyMaterialName(sku)};
    words.removeAll(QString());
    words.removeAll(unsetString); // a code that the catalogue does not know
    return words.join(u' ');
}

QString rollDescription(ZrSupplyDatabase &library, const QString &sku)
{
    QStringList parts;
    if (const double width = library.supplyWidth(sku); width > 0.0)
        parts.append(InstalledRoll::tr("%1 wide").arg(ZrSupplyKit::inchText(width)));
    if (const double label = library.supplyNonContinuousLength(sku); label > 0.0)
        parts.append(InstalledRoll::tr("labels of %1").arg(ZrSupplyKit::inchText(label)));
    if (const double stripe = library.supplySecColorWidth(sku); stripe > 0.0) {
        parts.append(
            InstalledRoll::tr("%1 stripe of %2").arg(library.supplySecColorName(sku), ZrSupplyKit::inchText(stripe)));
    }
    if (const int across = library.supplyMultiUpCount(sku); across > 1)
        parts.append(InstalledRoll::tr("%1 across").arg(across));
    return parts.join(", "_L1);
}

InstalledRoll::InstalledRoll(QObject *parent)
    : QObject(parent)
{
}

void InstalledRoll::refresh(ZrSupplyDatabase &library, const QString &printer)
{
    m_sku = library.supplySKU();
    m_known = !ZrSupplyKit::isUnknownRoll(m_sku);
    m_installed = m_sku != unsetString || library.supplyId() != unsetString;
    m_title = m_installed ? rollName(library, m_sku) : tr("No roll");
    if (m_title.isEmpty())
        m_title = tr("Unnamed media");
    m_description = m_installed ? rollDescription(library, m_sku) : tr("Load one, or paste its tag");
    m_lengthInches = library.supplyLength(QString());
    m_fullMileage = fullMileageOf(library, library.supplyTagLength());
    refreshShape(library);
    refreshFacts(library, printer);
    Q_EMIT changed();
}

void InstalledRoll::refreshFraction(ZrSupplyDatabase &library, int mileage)
{
    m_mileage = mileage;
    m_fraction = library.supplySupplyPercent();
    Q_EMIT fractionChanged();
}

void InstalledRoll::refreshShape(ZrSupplyDatabase &library)
{
    m_shape = {};
    m_color = {};
    m_stripeColor = {};
    m_background.clear();
    m_landscape = false;
    if (!m_installed)
        return;
    m_shape.width = library.supplyWidth(m_sku);
    m_shape.labelLength = std::max(library.supplyNonContinuousLength(m_sku), 0.0);
    m_shape.separator = std::max(library.supplySeparatorWidth(m_sku), 0.0);
    m_shape.across = library.supplyMultiUpCount(m_sku);
    // Only a tag knows the gap, and it is the installed roll's.
    m_shape.gap = std::max(library.supplyMultiUpGapSize(QString()), 0.0);
    m_shape.stripe = m_shape.isDieCut() ? 0.0 : std::max(library.supplySecColorWidth(m_sku), 0.0);
    m_color = colorOf(library.supplyColorRGB(m_sku));
    m_stripeColor = colorOf(library.supplySecColorRGB(m_sku));
    // "UnknownSupply" would be looked up like any SKU; without one the tag answers.
    m_landscape = library.supplyIsLandscape(m_known ? m_sku : QString()) > 0;
    m_background = library.supplyBackgroundImage(m_sku);
}

void InstalledRoll::refreshFacts(ZrSupplyDatabase &library, const QString &printer)
{
    if (!m_installed) {
        m_facts.setRows({});
        return;
    }
    const auto inches = [](double value) {
        return value > 0.0 ? ZrSupplyKit::inchText(value) : InstalledRoll::tr("not known");
    };
    QList<Fact> rows = {
        {tr("SKU"), m_known ? m_sku : tr("in no catalogue")},
        {tr("Width"), inches(m_shape.width)},
        {tr("Length"), m_lengthInches > 0.0 ? ZrSupplyKit::lengthText(m_lengthInches) : tr("not known")},
        {tr("Format"), library.supplyFormatName(m_sku)},
        {tr("Type"), typeText(library.supplyTypeIndex(m_sku, printer))},
    };
    if (m_shape.isDieCut()) {
        rows += {{tr("Label length"), inches(m_shape.labelLength)},
                 {tr("Separator"), inches(m_shape.separator)},
                 {tr("Across"), QString::number(m_shape.across)},
                 {tr("Orientation"), m_landscape ? tr("landscape") : tr("portrait")}};
    } else if (m_landscape) {
        rows.append({tr("Orientation"), tr("landscape")});
    }
    if (m_shape.stripe > 0.0)
        rows.append({tr("Stripe"), u"%1, %2"_s.arg(library.supplySecColorName(m_sku), inches(m_shape.stripe))});
    rows.append({tr("Sensor"), ZrSupplyKit::gatherRoll(library, m_sku).sensorText});
    rows.append({tr("Tag"), library.supplyId()});
    for (Fact &fact : rows) {
        if (fact.text.isEmpty())
            fact.text = tr("not known");
    }
    m_facts.setRows(rows);
}

QString InstalledRoll::remainingWord() const
{
    return Remaining(m_fraction).word();
}

QString InstalledRoll::remainingPercent() const
{
    return Remaining(m_fraction).percent();
}

QString InstalledRoll::remainingLength() const
{
    const Remaining remaining(m_fraction);
    if (remaining.level() == Remaining::Level::Unknown || m_lengthInches <= 0.0)
        return tr("the mileage is not known");
    const double feet = m_lengthInches / inchesPerFoot;
    return tr("%1 of %2 ft").arg(QString::number(remaining.share() * feet, 'f', 0), QString::number(feet, 'f', 0));
}

} // namespace panel

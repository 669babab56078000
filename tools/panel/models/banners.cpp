// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/banners.h"

#include "models/remaining.h"
#include "supplies/installed.h"

#include <zrsupplydatabase.h>

#include <algorithm>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype mostRibbonsTried = 200; // a catalogue may hold thousands, a person wants two
constexpr qsizetype ribbonsNamed = 2;
constexpr qsizetype supplyIdDigits = 20; // of a tag, what identifies a roll

/// What the rules say that decided, else what they say at all.
QString reasonOf(const ZrSupplyKit::Verdict &verdict)
{
    const auto fires = [](const ZrSupplyKit::Finding &finding) {
        return finding.outcome == ZrSupplyKit::Outcome::Fires;
    };
    const bool isDecided = std::any_of(verdict.findings.begin(), verdict.findings.end(), fires);
    QStringList says;
    for (const ZrSupplyKit::Finding &finding : verdict.findings) {
        if (!isDecided || fires(finding))
            says.append(finding.says);
    }
    says.removeDuplicates();
    return sentence(says.join(u"; "_s));
}

Severity severityOf(const ZrSupplyKit::Verdict &verdict, const ZrSupplyKit::Facts &facts)
{
    if (!verdict.good)
        return Severity::Problem;
    const bool hasRibbon = facts.ribbons[0].sku != unsetString || facts.ribbons[1].sku != unsetString;
    return verdict.check == ZrSupplyKit::Check::Combination && hasRibbon ? Severity::Good : Severity::Info;
}

/// What to do about a pair that does not suit.
QString combinationRemedy(ZrSupplyDatabase &library, const ZrSupplyKit::Facts &facts)
{
    const QStringList suiting = ZrSupplyKit::ribbonsThatSuit(library, facts.roll, ribbonsNamed, mostRibbonsTried);
    if (suiting.isEmpty())
        return Banners::tr("No ribbon of this catalogue suits the roll: load another roll.");
    return Banners::tr("Load a ribbon that suits the roll, for example %1.")
        .arg(suiting.join(u' ' + Banners::tr("or") + u' '));
}

} // namespace

QString sentence(QString text)
{
    if (!text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

QString Banner::detail() const
{
    QStringList parts = {reason, remedy};
    parts.removeAll(QString());
    return parts.join(u"  "_s);
}

QString Banner::spoken() const
{
    QStringList parts = {title, reason, remedy};
    parts.removeAll(QString());
    return parts.join(u". "_s);
}

Banner Banners::ofVerdict(ZrSupplyDatabase &library, const ZrSupplyKit::Verdict &verdict,
                          const ZrSupplyKit::Facts &facts)
{
    const ZrSupplyKit::CheckName &name = ZrSupplyKit::nameOf(verdict.check);
    Banner banner;
    banner.severity = severityOf(verdict, facts);
    banner.subject = name.word;
    banner.title = verdict.check == ZrSupplyKit::Check::Combination ? sentence(verdict.summary)
                                                                    : u"%1: %2"_s.arg(name.title, verdict.summary);
    banner.reason = reasonOf(verdict);
    if (!verdict.good)
        banner.remedy = combinationRemedy(library, facts);
    return banner;
}

std::optional<Banner> Banners::ofFraction(const QString &subject, const QString &what, double fraction)
{
    const Remaining remaining(fraction);
    switch (remaining.level()) {
    case Remaining::Level::Empty:
        return Banner{Severity::Problem, subject, tr("%1 is empty").arg(what),
                      tr("Its mileage says that nothing is left."), tr("Load a new one.")};
    case Remaining::Level::Low:
        return Banner{Severity::Warning, subject, tr("%1 is low").arg(what),
                      tr("%1 is left.").arg(remaining.percent()), tr("Keep a new one at hand.")};
    default:
        return {};
    }
}

std::optional<Banner> Banners::ofRoll(ZrSupplyDatabase &library)
{
    const QString sku = library.supplySKU();
    if (sku == unsetString && library.supplyId() == unsetString) {
        return Banner{Severity::Info, u"roll"_s, tr("No roll is loaded"), tr("No tag has been read yet."),
                      tr("Choose a roll, or paste a tag.")};
    }
    if (!ZrSupplyKit::isUnknownRoll(sku))
        return {};
    return Banner{Severity::Warning, u"roll"_s, tr("This roll is in no catalogue"),
                  tr("No roll has the supply id %1; what is shown comes from its tag.")
                      .arg(library.supplyId().left(supplyIdDigits)),
                  tr("Check the tag, or open a catalogue that knows the roll.")};
}

QList<Banner> Banners::of(ZrSupplyDatabase &library, bool isCatalogueOpen)
{
    QList<Banner> banners;
    if (!isCatalogueOpen) {
        banners.append({Severity::Warning, u"catalogue"_s, tr("No catalogue is open"),
                        tr("Without one only a roll's tag can be read."), tr("Open a catalogue file.")});
    }
    if (const auto roll = ofRoll(library))
        banners.append(*roll);
    const struct
    {
        QString subject;
        QString what;
        double fraction;
    } supplies[] = {
        {u"roll-left"_s, tr("The roll"), library.supplySupplyPercent()},
        {u"ribbon1-left"_s, tr("Ribbon 1"), library.supplyRibbon1Percent()},
        {u"ribbon2-left"_s, tr("Ribbon 2"), library.supplyRibbon2Percent()},
    };
    for (const auto &one : supplies) {
        if (const auto left = ofFraction(one.subject, one.what, one.fraction))
            banners.append(*left);
    }
    const ZrSupplyKit::Facts facts = ZrSupplyKit::gatherInstalled(library);
    for (const ZrSupplyKit::Verdict &verdict : ZrSupplyKit::judge(facts))
        banners.append(ofVerdict(library, verdict, facts));
    const auto worse = [](const Banner &a, const Banner &b) { return a.severity > b.severity; };
    // What is worth a look comes first; a good pair is told before what is merely known.
    std::stable_sort(banners.begin(), banners.end(), worse);
    const auto isGood = [](const Banner &banner) { return banner.severity == Severity::Good; };
    const auto firstInfo = std::find_if(banners.begin(), banners.end(),
                                        [](const Banner &banner) { return banner.severity == Severity::Info; });
    std::stable_partition(firstInfo, banners.end(), isGood);
    return banners;
}

} // namespace panel

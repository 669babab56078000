// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <array>
#include <optional>

class ZrSupplyDatabase;

/// Why the five checks of the library say what they say.
///
/// The checks announce verdicts and nothing else. Here the same rules are applied to the same values, and each step
/// is kept: what was read and where, which rule fired, which did not. Facts are gathered from the catalogue first,
/// judging them asks nothing, so one gathering serves many pairs. Nothing here prints.
namespace ZrSupplyKit {

enum class Check { Combination, ClearTail, EdgeSensor, RibbonWidth, RibbonTensions };

struct CheckName
{
    Check check;
    QString word;  ///< As a session and JSON spell it: "clear-tail".
    QString slot;  ///< The library's: "checkClearTail".
    QString title; ///< "Clear tail"
};

/// All five, in the order of the slots.
ZRSUPPLYKIT_EXPORT const std::array<CheckName, 5> &checkNames();
ZRSUPPLYKIT_EXPORT const CheckName &nameOf(Check check);

/// A value and where it was read.
struct Reading
{
    QString name;
    QVariant value; ///< As the library answers it, -1 where there is none.
    QString text;   ///< The value with its unit.
    QString source; ///< Table and row, or why there is none.
};

enum class Outcome {
    Passes,  ///< The rule was asked and has no objection.
    Fires,   ///< The rule decides the verdict.
    Waived,  ///< The rule objects, and another one overrules it.
    NotAsked ///< The rule has nothing to judge.
};

/// What a rule found. A code never changes its meaning; hosts that show texts of their own go by it.
enum class ReasonCode {
    NoRibbonToPrint,       ///< There is no ribbon whose heat could be judged.
    RibbonPrints,          ///< The ribbon has a heat above 0 for the material.
    RibbonHasNoHeat,       ///< The catalogue has no heat of the ribbon for the material.
    RibbonHeatNotPositive, ///< The heat is 0 or below, and not -1.
    RollIsNotWide,         ///< The roll is not wide, so any width of a ribbon will do.
    RibbonIsWide,          ///< The ribbon is not narrow.
    RibbonIsNarrow,        ///< The ribbon is narrower than the limit.
    MissingRibbonIsNarrow, ///< A missing ribbon counts as narrow.
    UnknownWidthIsNarrow,  ///< A ribbon without a width in the catalogue counts as narrow.
    SpecialIsNotJudged,    ///< A special ribbon is not judged by heat and width.
    TwoSpecialsAreNoPair,
    NoRibbon, ///< There is no ribbon, so there is nothing to judge.
    RibbonNeedsNoClearTail,
    RibbonNeedsClearTail,
    RollNeedsNoSensor, ///< Or the catalogue does not have the roll or its sensor; the text tells which.
    RollNeedsSensor,
    RibbonHasTension,
    RibbonHasNoTension
};

/// "ribbon-is-narrow": the code in JSON.
ZRSUPPLYKIT_EXPORT QString wordOf(ReasonCode code);

/// The values that a rule compared; those that it does not read are unset. -1 where the library does not know one.
struct ReasonValues
{
    std::optional<int> heat;     ///< The printer's heat setting.
    std::optional<int> tension;  ///< The printer's tension setting.
    std::optional<int> material; ///< The material's code.
    std::optional<int> sensor;   ///< The sensor's id in the catalogue.
    std::optional<double> ribbonWidthInches;
    std::optional<double> rollWidthInches;
    std::optional<double> narrowRibbonInches; ///< A ribbon below this is narrow.
    std::optional<double> wideRollInches;     ///< A roll above this needs a ribbon that is not narrow.
};

/// One rule as it was applied: why the check decided as it did.
struct Finding
{
    int ribbon = 0; ///< 1 or 2; 0 where no ribbon is meant.
    QString rule;   ///< "heat", "width", "special", "clear-tail", "sensor", "narrow" or "tension".
    Outcome outcome = Outcome::Passes;
    ReasonCode code = ReasonCode::NoRibbon;
    ReasonValues values = {};
    QString says = {};       ///< Exact, with SKUs, values and limits. For a person; never to be parsed.
    QString technician = {}; ///< Short, for a display: what a technician sees and can do.
};

/// A signal that the check emits.
struct Announcement
{
    QString signal;
    QVariantList arguments;
};

struct Verdict
{
    Check check = Check::Combination;
    bool good = true; ///< Whether there is nothing for the host to warn of.
    QString summary;
    QList<Finding> findings;
    QList<Reading> readings;
    QList<Announcement> announcements;
};

struct RollFacts
{
    QString sku; ///< As the library has it: "UnknownSupply", "-1" when unset.
    Reading width;
    Reading material;
    QString materialText; ///< "material 3 (Paper)"
    Reading sensor;
    QString sensorText; ///< What the sensor is, or why there is none.
};

struct RibbonFacts
{
    QString sku; ///< "-1" for a missing ribbon.
    Reading width;
    QString id; ///< `ribbon.id`, empty without a row.
};

/// A ribbon on a roll.
struct PairFacts
{
    Reading heat;
    Reading tension;
};

struct Facts
{
    RollFacts roll;
    std::array<RibbonFacts, 2> ribbons;
    std::array<PairFacts, 2> pairs;
};

ZRSUPPLYKIT_EXPORT RollFacts gatherRoll(ZrSupplyDatabase &library, const QString &sku);
ZRSUPPLYKIT_EXPORT RibbonFacts gatherRibbon(ZrSupplyDatabase &library, const QString &sku);
ZRSUPPLYKIT_EXPORT PairFacts gatherPair(ZrSupplyDatabase &library, const RibbonFacts &ribbon, const RollFacts &roll);

/// What the checks would read for this roll and these ribbons, the first two of the list; "-1" where there is none.
/// For "UnknownSupply" it is the tag of the library's own roll, as in the checks.
ZRSUPPLYKIT_EXPORT Facts gatherFacts(ZrSupplyDatabase &library, const QString &rollSku,
                                     const QStringList &ribbonSkus);
/// The same for what is installed.
ZRSUPPLYKIT_EXPORT Facts gatherInstalled(ZrSupplyDatabase &library);

/// The five verdicts in the order of `Check`.
ZRSUPPLYKIT_EXPORT QList<Verdict> judge(const Facts &facts);
ZRSUPPLYKIT_EXPORT Verdict judge(Check check, const Facts &facts);

// In one call each, for a host that holds the library.

/// The five verdicts on what is installed, with their reasons.
ZRSUPPLYKIT_EXPORT QList<Verdict> installedVerdicts(ZrSupplyDatabase &library);
/// The SKUs of the ribbons that suit the roll by themselves, in the library's order. Special ribbons, which are not
/// judged, are left out. It reads at most `mostTried` ribbons and returns at most `mostFound`.
ZRSUPPLYKIT_EXPORT QStringList ribbonsThatSuit(ZrSupplyDatabase &library, const RollFacts &roll,
                                               qsizetype mostFound = 1000, qsizetype mostTried = 1000);
/// The same for a roll's SKU; for "UnknownSupply" it is the tag of the library's own roll.
ZRSUPPLYKIT_EXPORT QStringList ribbonsThatSuit(ZrSupplyDatabase &library, const QString &rollSku,
                                               qsizetype mostFound = 1000, qsizetype mostTried = 1000);

/// A verdict as JSON: `good`, `summary`, `slot`, `signals`, `rules` (the findings) and `values` (the readings).
ZRSUPPLYKIT_EXPORT QJsonObject toJson(const Verdict &verdict);
/// Verdicts by the word of their check: "combination", "clear-tail" and so on.
ZRSUPPLYKIT_EXPORT QJsonObject toJson(const QList<Verdict> &verdicts);
/// "fires", "passes", "waived" or "not asked".
ZRSUPPLYKIT_EXPORT QString wordOf(Outcome outcome);

} // namespace ZrSupplyKit

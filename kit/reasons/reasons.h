// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <array>

class ZrSupplyDatabase;

/// Why the five checks of the library say what they say.
///
/// The checks announce verdicts and nothing else. Here the same rules are applied to the same values, and each step
/// is kept: what was read and where, which rule fired, which did not. Facts are gathered from the catalogue first,
/// judging them asks nothing, so one gathering serves many pairs. Nothing here prints.
namespace zrsupply {

enum class Check { Combination, ClearTail, EdgeSensor, RibbonWidth, RibbonTensions };

struct CheckName
{
    Check check;
    QString word;  ///< As a session and JSON spell it: "clear-tail".
    QString slot;  ///< The library's: "checkClearTail".
    QString title; ///< "Clear tail"
};

/// All five, in the order of the slots.
const std::array<CheckName, 5> &checkNames();
const CheckName &nameOf(Check check);

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

/// One rule as it was applied.
struct Finding
{
    int ribbon; ///< 1 or 2; 0 where no ribbon is meant.
    QString rule;
    Outcome outcome;
    QString says;
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

RollFacts gatherRoll(ZrSupplyDatabase &library, const QString &sku);
RibbonFacts gatherRibbon(ZrSupplyDatabase &library, const QString &sku);
PairFacts gatherPair(ZrSupplyDatabase &library, const RibbonFacts &ribbon, const RollFacts &roll);

/// What the checks would read for this roll and these ribbons, the first two of the list; "-1" where there is none.
/// For "UnknownSupply" it is the tag of the library's own roll, as in the checks.
Facts gatherFacts(ZrSupplyDatabase &library, const QString &rollSku, const QStringList &ribbonSkus);
/// The same for what is installed.
Facts gatherInstalled(ZrSupplyDatabase &library);

/// The five verdicts in the order of `Check`.
QList<Verdict> judge(const Facts &facts);
Verdict judge(Check check, const Facts &facts);

} // namespace zrsupply

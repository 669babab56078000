// SPDX-License-Identifier: LGPL-2.1-or-later
#include "child.h"
#include "faultyvfs.h"
#include "questions.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What fails, and what an answer may be while it does.
struct Fault
{
    void (*failAt)(long n, bool always);
    long (*count)();
    Lenience lenience;
};

/// Whether each answer is one that may come; tells those that may not.
bool areAllowed(const QVariantList &answers, const QVariantList &values, long n, const Fault &fault)
{
    bool all = true;
    for (qsizetype i = 0; i < questions().size(); ++i) {
        if (isValueOrDefault(questions()[i], answers[i], values[i], fault.lenience))
            continue;
        child::tell("wrong at %ld: %s answers %s", n, qPrintable(questions()[i].statement),
                    qPrintable(toldAnswer(answers[i])));
        all = false;
    }
    return all;
}

/// Whether the connection gives the values again; `what` tells after which fault it does not.
bool isSound(ZrSupplyDatabase &database, const QVariantList &values, long n)
{
    if (askEverything(database) == values)
        return true;
    child::tell("wrong at %ld: not all values come back after the fault", n);
    return false;
}

/// Whether the state is whole, whatever failed while it was set: what the tag says, and a SKU for each ribbon. Tells
/// if not.
bool isWhole(ZrSupplyDatabase &database, long n)
{
    const bool whole = database.supplyId() == takenInTag() && database.supplyRibbonSKUs().size() == 2 &&
                       database.supplyRibbon1RGBs().size() == 2 && database.supplyRibbon2RGBs().size() == 2;
    if (!whole)
        child::tell("wrong at %ld: the state is torn", n);
    return whole;
}

/// Asks everything with every step-th operation failing, over a connection opened under the fault and over one that
/// was there before it. Ends with the first n that is more than there are operations.
int failEach(const QStringList &arguments, const Fault &fault)
{
    const QString path = child::pathOf(arguments[0]);
    const bool always = arguments[1] == "forever"_L1;
    const long step = arguments[3].toLong();
    if (step < 1)
        return 2;
    const QVariantList values = answersOfFile(path);
    long runs = 0;
    long changed = 0;
    bool passed = true;
    long operations = 0;
    for (const bool openedBefore : {false, true}) {
        for (long n = arguments[2].toLong();; n += step) {
            ZrSupplyDatabase database;
            if (openedBefore)
                database.setup(path);
            fault.failAt(n, always);
            if (!openedBefore)
                database.setup(path);
            const QVariantList answers = askEverything(database);
            const bool hit = fault.count() >= n;
            operations = std::max(operations, fault.count());
            fault.failAt(0, false);
            ++runs;
            changed += answers != values ? 1 : 0;
            passed = isWhole(database, n) && passed;
            passed = areAllowed(answers, values, n, fault) && passed;
            passed = isSound(database, values, n) && passed;
            if (!hit)
                break;
        }
    }
    child::tell("runs %ld operations %ld changed %ld", runs, operations, changed);
    return passed ? 0 : 1;
}

} // namespace

int child::failFiles(const QStringList &arguments)
{
    FaultyVfs::install();
    return failEach(arguments, {FaultyVfs::failAt, FaultyVfs::count, Lenience::None});
}

int child::failMemory(const QStringList &arguments)
{
    if (!FaultyMemory::install())
        return 2;
    return failEach(arguments, {FaultyMemory::failAt, FaultyMemory::count, Lenience::EmptyText});
}

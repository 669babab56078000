// SPDX-License-Identifier: LGPL-2.1-or-later
// Does one thing N times, for callgrind: `count_instructions THING N CATALOGUE`. The difference of two runs with
// different N is the exact cost of the things between them.

#include "benchtag.h"
#include "catalogues.h"
#include "cataloguesql_p.h"
#include "ways.h"

#include <tag/supplyc.h>
#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString thing = arguments.value(1);
    const long count = arguments.value(2).toLong();
    const Catalogue &catalogue = Catalogue::ofRolls(1000);
    const QString sku = catalogue.rolls.front();

    ZrSupplyDatabase database;
    if (!database.setup(catalogue.path))
        return 1;
    const QString id = catalogue.supplyIds.front();
    const QString tag = plainTag(catalogue.materials.front());
    double sum = database.supplyWidth(sku);
    database.setSupplyId(id);

    for (const WayRow &row : ways()) {
        if (thing != QLatin1StringView(row.name))
            continue;
        const std::unique_ptr<Way> way = row.make(catalogue);
        way->prepare({{{sql::rollWidth, {sku}}}});
        way->ask(0);
        for (long i = 0; i < count; ++i)
            way->ask(0);
        return 0;
    }
    if (thing == QLatin1StringView("width")) {
        for (long i = 0; i < count; ++i)
            sum += database.supplyWidth(sku);
    } else if (thing == QLatin1StringView("roll")) {
        for (long i = 0; i < count; ++i)
            database.setSupplyId(id);
    } else if (thing == QLatin1StringView("tag")) {
        for (long i = 0; i < count; ++i)
            sum += SupplyC(tag).lengthFeet;
    } else {
        std::fprintf(stderr, "count_instructions: there is no '%s'\n", qPrintable(thing));
        return 2;
    }
    return sum > 0 ? 0 : 1;
}

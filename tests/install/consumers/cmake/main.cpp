// SPDX-License-Identifier: LGPL-2.1-or-later
// Every public header and every kind of symbol: the object, the tag record, the unset text.

#include <tag/supplyc.h>
#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    ZrSupplyDatabase supplies;
    out << "roll " << supplies.supplySKU() << ", unset is " << unsetString << '\n';
    if (!supplies.setup(application.arguments().value(1)))
        return 1;
    out << supplies.supplyMaterialName("00144463") << ", " << supplies.supplyWidth("00144463") << " inches\n";
    out << "a panel without ribbon " << supplies.supplyRibbonColorRGB("R4417TX") << '\n';
    out << "tag of " << SupplyC("32100C0C8021004060000000").lengthFeet << " feet\n";
    return 0;
}

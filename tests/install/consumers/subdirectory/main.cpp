// SPDX-License-Identifier: LGPL-2.1-or-later
#include <tag/supplyc.h>
#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    ZrSupplyDatabase supplies;
    if (!supplies.setup(application.arguments().value(1)))
        return 1;
    QTextStream(stdout) << supplies.supplyMaterialName("00144463") << ", "
                        << SupplyC("32100C0C8021004060000000").widthInches << " inches\n";
    return 0;
}

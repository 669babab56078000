// SPDX-License-Identifier: LGPL-2.1-or-later
#include <QCoreApplication>
#include <QTextStream>
#include <zrsupplydatabase.h>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    ZrSupplyDatabase supplies;
    if (argc != 2 || !supplies.setup(application.arguments().at(1))) {
        qCritical("usage: 01-lookup CATALOGUE");
        return 1;
    }
    QTextStream(stdout) << supplies.supplyMaterialName("00144463") << ", " << supplies.supplyWidth("00144463")
                        << " inches, stripe " << supplies.supplySecColorName("00144463") << '\n';
}

// SPDX-License-Identifier: LGPL-2.1-or-later
// Signals by their addresses, which program and library must agree on in a program of any code model.

#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    ZrSupplyDatabase supplies;
    if (!supplies.setup(application.arguments().value(1)))
        return 1;
    QObject::connect(&supplies, &ZrSupplyDatabase::supplyChangedSignal, &supplies,
                     [&out](const QString &sku) { out << "roll " << sku << '\n'; });
    QObject::connect(&supplies, &ZrSupplyDatabase::notifySupplySensor, &supplies,
                     [&out](int sensor) { out << "sensor " << sensor << '\n'; });
    supplies.setSupplyId("32100C0C8021004060000000");
    return 0;
}

// SPDX-License-Identifier: LGPL-2.1-or-later
// The library under guard. A catalogue that cannot be opened makes it log, which brings the logger into the program.

#include <zrsupplydatabase.h>
#include <zrsupplyguard.h>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const QString path = application.arguments().value(1);
    if (ZrSupplyGuard::preflight(path).finding != ZrSupplyGuard::Finding::Usable || !ZrSupplyGuard::install(path))
        return 1;
    ZrSupplyDatabase supplies;
    out << "no file: " << supplies.setup("/nonexistent/catalogue.sqlite") << '\n';
    if (!supplies.setup(path))
        return 1;
    out << supplies.supplyMaterialName("00144463") << ", " << supplies.supplyWidth("00144463") << " inches\n";
    return 0;
}

// SPDX-License-Identifier: LGPL-2.1-or-later
// Prints the reasons of every pair of a roll and a ribbon: a line of roll, ribbon 1, ribbon 2 and JSON, separated by
// tabs. Ribbons go two by two, and the last one meets the first, so that each of them meets each roll.
#include <reasons/reasons.h>
#include <supplies/installed.h>
#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonDocument>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    ZrSupplyDatabase library;
    if (argc != 2 || !library.setup(QString::fromLocal8Bit(argv[1]))) {
        std::fputs("usage: consumer CATALOGUE\n", stderr);
        return 2;
    }
    const QStringList ribbons = library.supplyRibbonSKUList();
    qsizetype suiting = 0;
    for (const QString &roll : library.supplySKUList()) {
        suiting += ZrSupplyKit::ribbonsThatSuit(library, roll).size();
        library.setSupplySKU(roll);
        for (qsizetype i = 0; i < ribbons.size(); i += 2) {
            const QStringList pair = {ribbons[i], ribbons[(i + 1) % ribbons.size()]};
            const auto verdicts = ZrSupplyKit::judge(ZrSupplyKit::gatherFacts(library, roll, pair));
            std::printf("%s\t%s\t%s\t%s\n", qPrintable(roll), qPrintable(pair[0]), qPrintable(pair[1]),
                        QJsonDocument(ZrSupplyKit::toJson(verdicts)).toJson(QJsonDocument::Compact).constData());
        }
    }
    // One call for what is installed: the last roll, and no ribbon.
    const ZrSupplyKit::Installed installed = ZrSupplyKit::installedSupplies(library);
    return suiting > 0 && installed.verdicts.size() == 5 && installed.roll.sku == library.supplySKU() ? 0 : 1;
}

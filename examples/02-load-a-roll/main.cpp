// SPDX-License-Identifier: LGPL-2.1-or-later
// A roll is loaded by the digits of its tag; what the catalogue does not know, the tag answers.

#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::Literals::StringLiterals;

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    if (argc != 2) {
        QTextStream(stderr) << "usage: 02-load-a-roll CATALOGUE\n";
        return 2;
    }

    ZrSupplyDatabase supplies;
    const QString catalogue = application.arguments().at(1);
    if (!supplies.setup(catalogue)) {
        QTextStream(stderr) << "02-load-a-roll: cannot open " << catalogue << "; name a catalogue that can be read\n";
        return 1;
    }

    const QStringList tags = {u"3200000C8020804041410000"_s, u"3200000C8020824060000000"_s};
    for (const QString &tag : tags) {
        supplies.setSupplyId(tag);
        supplies.setSupplyMileage(15240); // millimetres of a fifty-foot remainder

        // A host asks with the SKU that was found; "UnknownSupply" is answered from the tag.
        const QString sku = supplies.supplySKU();
        out << tag << " is " << sku << ": " << supplies.supplyMaterialName(sku) << ", "
            << supplies.supplyColorName(sku) << ", " << supplies.supplyWidth(sku) << " in wide, "
            << qRound(supplies.supplySupplyPercent() * 100) << " % left\n";
    }
    return 0;
}

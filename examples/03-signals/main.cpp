// SPDX-License-Identifier: LGPL-2.1-or-later
// A host hears what happens: a wide roll is loaded, then a good pair of ribbons, then one that is too narrow.

#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::Literals::StringLiterals;

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    if (argc != 2) {
        QTextStream(stderr) << "usage: 03-signals CATALOGUE\n";
        return 2;
    }

    ZrSupplyDatabase supplies;
    const QString catalogue = application.arguments().at(1);
    if (!supplies.setup(catalogue)) {
        QTextStream(stderr) << "03-signals: cannot open " << catalogue << "; name a catalogue that can be read\n";
        return 1;
    }

    QObject::connect(&supplies, &ZrSupplyDatabase::supplyChangedSignal, &supplies,
                     [&out](const QString &sku) { out << "roll " << sku << '\n'; });
    QObject::connect(&supplies, &ZrSupplyDatabase::notifySupplySensor, &supplies,
                     [&out](int sensor) { out << "media sensor " << sensor << '\n'; });
    QObject::connect(&supplies, &ZrSupplyDatabase::ribbonChangedSignal, &supplies,
                     [&out](const QStringList &skus) { out << "ribbons " << skus.join(" and "_L1) << '\n'; });
    QObject::connect(&supplies, &ZrSupplyDatabase::alertInvalidRibbon2SupplyCombo, &supplies,
                     [&out] { out << "ribbon 2 does not suit the roll\n"; });

    supplies.setSupplyId(u"32100C0C8021004060000000"_s);
    supplies.setRibbonIds({u"14"_s, u"16"_s});
    supplies.setRibbonIds({u"14"_s, u"5"_s});
    return 0;
}

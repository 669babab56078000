#include <tag/supplyc.h>
#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    ZrSupplyDatabase database;
    if (!database.setup(application.arguments().value(1)))
        return 1;
    QTextStream(stdout) << database.supplySKUList().size() << " rolls, first panel "
                        << database.supplyRibbonColorRGB("R4417TX") << ", width code "
                        << SupplyC("0000000000000001").widthInches << '\n';
    return 0;
}

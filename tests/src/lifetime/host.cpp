// SPDX-License-Identifier: LGPL-2.1-or-later
// A host that keeps its object until the process ends, in another way each scene:
//
//     lifetime_host SCENE CATALOGUE APPLICATION
//
// APPLICATION is `local` to main(), `leaked` (never destroyed) or `none`. The program prints what a lookup answers.

#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QGlobalStatic>
#include <QtSql/QSqlDatabase>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

QString catalogue;

void load(ZrSupplyDatabase &supplies)
{
    if (!supplies.setup(catalogue))
        std::fputs("setup() failed\n", stderr);
    std::printf("%d\n", supplies.getColorRGBFromEnum(1));
    std::fflush(stdout);
}

ZrSupplyDatabase &functionStatic()
{
    static ZrSupplyDatabase supplies;
    return supplies;
}

Q_GLOBAL_STATIC(ZrSupplyDatabase, globalStatic)

// Set up by main(), so its destructor is registered before everything that main() does.
std::unique_ptr<ZrSupplyDatabase> namespacePointer;

#ifdef ZR_OBJECT_BEFORE_MAIN
ZrSupplyDatabase beforeMain;
#endif

struct Scene
{
    const char *name;
    void (*play)();
};

const Scene scenes[] = {
    {"local", [] { load(*std::make_unique<ZrSupplyDatabase>()); }},
    {"function static", [] { load(functionStatic()); }},
    {"global static", [] { load(*globalStatic); }},
    {"function static pointer",
     [] {
         static const auto supplies = std::make_unique<ZrSupplyDatabase>();
         load(*supplies);
     }},
    {"namespace pointer",
     [] {
         namespacePointer = std::make_unique<ZrSupplyDatabase>();
         load(*namespacePointer);
     }},
    {"namespace pointer, exit()",
     [] {
         namespacePointer = std::make_unique<ZrSupplyDatabase>();
         load(*namespacePointer);
         std::exit(0);
     }},
    {"function static, exit()",
     [] {
         load(functionStatic());
         std::exit(0);
     }},
    {"local, exit()",
     [] {
         ZrSupplyDatabase supplies;
         load(supplies);
         std::exit(0);
     }},
    {"never deleted",
     [] {
         static auto *const supplies = new ZrSupplyDatabase;
         load(*supplies);
     }},
    {"two objects",
     [] {
         namespacePointer = std::make_unique<ZrSupplyDatabase>();
         load(functionStatic());
     }},
    // The host queries a database of its own, and never calls setup().
    {"no setup()",
     [] {
         namespacePointer = std::make_unique<ZrSupplyDatabase>();
         functionStatic();
         QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("the host's own"));
         std::puts("no setup");
     }},
#ifdef ZR_OBJECT_BEFORE_MAIN
    {"before main()", [] { load(beforeMain); }},
    {"before main(), exit()",
     [] {
         load(beforeMain);
         std::exit(0);
     }},
    {"before main(), no setup()",
     [] {
         QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("the host's own"));
         std::puts("no setup");
     }},
    {"before main(), unset values",
     [] {
         std::printf("%s %s\n", qPrintable(beforeMain.supplySKU()),
                     qPrintable(beforeMain.supplyRibbonSKUs().join(QLatin1Char(' '))));
     }},
#endif
};

} // namespace

int main(int argc, char **argv)
{
    // The end of an application closes all connections; one that is never destroyed leaves them to the process' end.
    static QCoreApplication *application = nullptr;
    if (std::strcmp(argv[3], "none") != 0)
        application = new QCoreApplication(argc, argv);
    catalogue = QString::fromLocal8Bit(argv[2]);
    for (const Scene &scene : scenes) {
        if (std::strcmp(scene.name, argv[1]) == 0) {
            scene.play();
            if (std::strcmp(argv[3], "local") == 0)
                delete application;
            return 0;
        }
    }
    std::fputs("no such scene\n", stderr);
    return 2;
}

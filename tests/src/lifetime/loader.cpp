// SPDX-License-Identifier: LGPL-2.1-or-later
// A host that loads a plugin, unloads it and goes on:
//
//     lifetime_loader PLUGIN CATALOGUE

#include <QtCore/QCoreApplication>
#include <QtCore/QLibrary>
#include <QtCore/QtDebug>

#include <cstdio>

#include <dlfcn.h>

int main(int argc, char **argv)
{
    for (int round = 1; round <= 2; ++round) {
        const QCoreApplication application(argc, argv);
        QLibrary plugin(QString::fromLocal8Bit(argv[1]));
        using Load = void (*)(const char *);
        const auto load = reinterpret_cast<Load>(plugin.resolve("load"));
        if (!load) {
            std::fprintf(stderr, "%s\n", qPrintable(plugin.errorString()));
            return 2;
        }
        load(argv[2]);
        if (!plugin.unload() || dlopen(argv[1], RTLD_NOW | RTLD_NOLOAD)) {
            std::fputs("the plugin stays\n", stderr);
            return 2;
        }
        qWarning("after the plugin");
    }
    qWarning("after the application");
    return 0;
}

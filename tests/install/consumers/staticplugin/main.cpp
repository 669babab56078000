// SPDX-License-Identifier: LGPL-2.1-or-later
// Loads each plugin, lets it work, unloads it, and goes on. The code of the plugin has to stay until the end, because
// Qt, the logger and SQLite keep addresses of its functions.

#include <QtCore/QCoreApplication>
#include <QtCore/QLibrary>
#include <QtCore/QTextStream>

#include <dlfcn.h>

int main(int argc, char *argv[])
{
    QTextStream out(stdout);
    for (const char *file : {library_FILE, guard_FILE, library_pkgconfig_FILE, guard_pkgconfig_FILE}) {
        const QCoreApplication application(argc, argv);
        QLibrary plugin(QString::fromLocal8Bit(file));
        using Load = bool (*)(const char *);
        const auto load = reinterpret_cast<Load>(plugin.resolve("load"));
        if (argc != 2 || !load) {
            qCritical("%s", qPrintable(plugin.errorString()));
            return 1;
        }
        const bool works = load(argv[1]);
        const bool unloaded = plugin.unload();
        const bool stays = dlopen(file, RTLD_NOW | RTLD_NOLOAD);
        out << "works: " << works << ", unloaded: " << unloaded << ", its code stays: " << stays << Qt::endl;
    }
    return 0;
}

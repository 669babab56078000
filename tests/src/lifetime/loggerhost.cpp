// SPDX-License-Identifier: LGPL-2.1-or-later
// A host with a message handler of its own:
//
//     lifetime_loggerhost logger|handler CATALOGUE
//
// It takes hold of the global logger before it installs the handler, or the logger is first used by setup().

#include <zrsupplydatabase.h>

#include <Logger.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QtDebug>

#include <cstdio>
#include <cstring>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (std::strcmp(argv[1], "logger") == 0)
        Logger::globalInstance();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &message) {
        std::fprintf(stderr, "host: %s\n", qPrintable(message));
    });
    ZrSupplyDatabase supplies;
    const bool opened = supplies.setup(QString::fromLocal8Bit(argv[2]));
    qWarning("a warning");
    return opened ? 0 : 1;
}

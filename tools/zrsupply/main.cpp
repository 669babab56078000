// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/commandline.h"

#include <QtCore/QCoreApplication>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What goes wrong is reported with a remedy; remarks of the libraries below would only stand between.
void quiet(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        std::fputs((text + u'\n').toUtf8().constData(), stderr);
}

} // namespace

int main(int argc, char *argv[])
{
    // Before the application object: it remarks on a locale that is not UTF-8, and switches to one that is.
    qInstallMessageHandler(quiet);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"zrsupply"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ZR_VERSION));
    return zrsupply::runCommandLine(QCoreApplication::arguments().mid(1));
}

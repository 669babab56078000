// SPDX-License-Identifier: LGPL-2.1-or-later
// Gives the object to a script and runs that.

#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QFile>
#include <QJSEngine>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QFile script(SCRIPT);
    if (!script.open(QIODevice::ReadOnly))
        return 1;

    ZrSupplyDatabase supplies;
    // An object without parent that comes into a script belongs to the script, unless the host says otherwise.
    QJSEngine::setObjectOwnership(&supplies, QJSEngine::CppOwnership);
    QJSEngine engine;
    engine.globalObject().setProperty("supplies", engine.newQObject(&supplies));
    engine.globalObject().setProperty("catalogue", arguments.value(1));

    const QJSValue answer = engine.evaluate(QString::fromUtf8(script.readAll()), script.fileName());
    QTextStream(answer.isError() ? stderr : stdout) << answer.toString() << '\n';
    return answer.isError() ? 1 : 0;
}

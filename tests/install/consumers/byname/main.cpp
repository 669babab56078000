// SPDX-License-Identifier: LGPL-2.1-or-later
// Everything by name: calls, default arguments, private slots, signals, and what the object says of itself.

#include "supplies.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QTextStream>

#if __has_include(<zrsupplydatabase.h>)
#error "this file is to be built without the library's headers"
#endif

class Listener : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void roll(const QString &sku) { QTextStream(stdout) << "> roll " << sku << '\n'; }
    void tensions(int first, int, int, int fourth)
    {
        QTextStream(stdout) << "> tensions " << first << " and " << fourth << '\n';
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const std::unique_ptr<QObject> supplies = makeSupplies();
    const QMetaObject *meta = supplies->metaObject();
    out << meta->className() << " has " << meta->methodCount() - meta->methodOffset() << " methods\n";
    const QMetaMethod width = meta->method(meta->indexOfMethod("supplyWidth(QString)"));
    out << width.typeName() << ' ' << width.name() << '(' << width.parameterTypeName(0) << ' '
        << width.parameterNames().value(0) << ")\n"
        << Qt::flush;

    Listener listener;
    if (!QObject::connect(supplies.get(), SIGNAL(supplyChangedSignal(QString)), &listener, SLOT(roll(QString))) ||
        !QObject::connect(supplies.get(), SIGNAL(notifyRibbonTensions(int, int, int, int)), &listener,
                          SLOT(tensions(int, int, int, int))))
        return 1;

    bool opened = false;
    if (!QMetaObject::invokeMethod(supplies.get(), "setup", Q_RETURN_ARG(bool, opened),
                                   Q_ARG(QString, application.arguments().value(1))) ||
        !opened)
        return 2;
    double inches = 0.0;
    if (!QMetaObject::invokeMethod(supplies.get(), "supplyWidth", Q_RETURN_ARG(double, inches),
                                   Q_ARG(QString, "00144463")))
        return 3;
    out << inches << " inches\n" << Qt::flush;
    if (!QMetaObject::invokeMethod(supplies.get(), "setSupplyId", Q_ARG(QString, "32100C0C8021004060000000")) ||
        !QMetaObject::invokeMethod(supplies.get(), "setRibbonIds", Q_ARG(QStringList, QStringList({"14", "16"}))))
        return 4;
    if (!QMetaObject::invokeMethod(supplies.get(), "checkRibbonTensions")) // a private slot
        return 5;
    if (QMetaObject::invokeMethod(supplies.get(), "mmToInches", Q_RETURN_ARG(double, inches), Q_ARG(double, 25.4)))
        return 6; // an ordinary function: no name to call it by
    return 0;
}

#include "main.moc"

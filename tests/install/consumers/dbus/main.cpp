// SPDX-License-Identifier: LGPL-2.1-or-later
// A D-Bus service: the object's public slots and its signals, for other processes.
//
//   consumer CATALOGUE        on the session bus, until `quit` is called on /application

#include <zrsupplydatabase.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    // The interface is named after these two and the class: example.printer.supplies.ZrSupplyDatabase
    QCoreApplication::setOrganizationDomain("printer.example");
    QCoreApplication::setApplicationName("supplies");
    QTextStream err(stderr);

    ZrSupplyDatabase supplies;
    const QString catalogue = application.arguments().value(1);
    if (!supplies.setup(catalogue)) {
        err << "cannot open the catalogue " << catalogue << '\n';
        return 1;
    }

    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        err << "no session bus; start one with dbus-run-session\n";
        return 1;
    }
    // Object first, name second: whoever waits for the name finds the object there.
    if (!bus.registerObject("/supplies", &supplies,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) ||
        // The same with an interface of the host's choice: calls go to that one, signals keep the name above.
        !bus.registerObject("/named", "example.printer.Supplies1", &supplies,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) ||
        !bus.registerObject("/application", &application, QDBusConnection::ExportAllSlots) ||
        !bus.registerService("example.printer.supplies")) {
        err << "cannot register: " << bus.lastError().message() << '\n';
        return 1;
    }
    return application.exec();
}

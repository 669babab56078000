// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguequery_p.h"
#include "rounding_p.h"
#include "supplyconstants_p.h"

#include <Logger.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <cmath>
#include <utility>

using namespace supply;

namespace {

/// Later versions of the logging library, recognised by their macro `cuteLogger`, renamed the accessor.
Logger *globalLog()
{
#ifdef cuteLogger
    return cuteLoggerInstance();
#else
    return loggerInstance();
#endif
}

/// Deliberate: a fraction is cut off here, where Qt would round it; everything else is converted as Qt does.
int toIntTruncated(const QVariant &value)
{
    const int type = value.typeId();
    if (type == QMetaType::Double || type == QMetaType::Float)
        return toInt(std::trunc(value.toDouble()));
    return toInt(value);
}

/// Whether Qt has a registry of connections. In versions after 6.4 it belongs to the application: without one every
/// call prints a warning, and a handle crashes when it is opened or destroyed.
bool hasRegistry()
{
    return QLibraryInfo::version() < QVersionNumber(6, 5) || QCoreApplication::instance();
}

/// True once the process has destroyed Qt's registry of connections, or is about to. Static objects go in the reverse
/// order of their making, so an object that the host made before the registry outlives it.
bool registryHasEnded = false;

/// The registry has to exist before the first call, so that it is destroyed after what this function makes.
void watchRegistry()
{
    struct End
    {
        End() = default;
        ~End() { registryHasEnded = true; }
        Q_DISABLE_COPY_MOVE(End)
    };
    static const End end;
}

/// Makes the registry together with the application, hence before every object that main() makes, local or static.
void makeRegistry()
{
    QSqlDatabase::contains(connectionName());
    watchRegistry();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(makeRegistry)

bool ZrSupplyDatabase::setup(QString path, QString connectionName)
{
    // Without a registry, the handle is one that does not open and says why.
    QSqlDatabase catalogue;
    if (hasRegistry()) {
        // Deliberate: registered under the name that was passed, which lookups do not know unless it is the default.
        catalogue = QSqlDatabase::addDatabase(driverName, connectionName);
        watchRegistry();
    }
    catalogue.setConnectOptions(readOnlyOption);
    catalogue.setDatabaseName(path);
    const bool opened = catalogue.open();
    if (!opened) {
        CuteMessageLogger(globalLog(), Logger::Debug, logFile, logLine, logFunction).write()
            << "Database Opening Error: " << catalogue.lastError().text();
    }
    return opened;
}

void removeCatalogueConnection()
{
    // The end of the registry closed the connection, and a call after it crashes.
    if (hasRegistry() && !registryHasEnded)
        QSqlDatabase::removeDatabase(connectionName());
}

QVariant ZrSupplyDatabase::getSingleVariantByQuery(QString query, QVariant defaultValue)
{
    const QSqlDatabase catalogue = catalogueConnection();
    if (!catalogue.isOpen())
        return defaultValue;
    QSqlQuery rows(query, catalogue);
    return rows.next() ? rows.value(0) : defaultValue;
}

QList<QString> ZrSupplyDatabase::getStringListFromVariantList(QList<QVariant> list)
{
    QList<QString> texts;
    texts.reserve(list.size());
    for (const QVariant &entry : std::as_const(list))
        texts.append(QString::number(toIntTruncated(entry)));
    return texts;
}

double ZrSupplyDatabase::mmToInches(double mm)
{
    return mm * inchesPerMm;
}

double ZrSupplyDatabase::feetToInches(double feet)
{
    return feet * inchesPerFoot;
}

double ZrSupplyDatabase::mileageToPercentage(int mileage, double tagLength, double length)
{
    return (tagLength - mileage + length) / length;
}

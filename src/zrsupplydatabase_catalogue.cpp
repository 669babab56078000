#include "zrsupplydatabase.h"

#include "cataloguequery_p.h"
#include "supplyconstants_p.h"

#include <Logger.h>

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
        return QVariant(std::trunc(value.toDouble())).toInt();
    return value.toInt();
}

} // namespace

bool ZrSupplyDatabase::setup(QString path, QString connectionName)
{
    // Deliberate: registered under the name that was passed, which lookups do not know unless it is the default.
    QSqlDatabase catalogue = QSqlDatabase::addDatabase(driverName, connectionName);
    catalogue.setConnectOptions(readOnlyOption);
    catalogue.setDatabaseName(path);
    const bool opened = catalogue.open();
    if (!opened) {
        CuteMessageLogger(globalLog(), Logger::Debug, logFile, logLine, logFunction).write()
            << "Database Opening Error: " << catalogue.lastError().text();
    }
    return opened;
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

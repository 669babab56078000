// SPDX-License-Identifier: LGPL-2.1-or-later
#include "catalogues.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Enough to touch most pages of a large file: a host's questions do not stay in one corner of it.
constexpr size_t keyCount = 4096;

QString folder()
{
    const QString named = qEnvironmentVariable("ZRSUPPLY_BENCH_CATALOGUES");
    if (named.isEmpty())
        qFatal("ZRSUPPLY_BENCH_CATALOGUES names no folder of catalogues; run scripts/bench");
    return named;
}

QStringList column(sqlite3 *file, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(file, sql, -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql, sqlite3_errmsg(file));
    QStringList values;
    while (sqlite3_step(statement) == SQLITE_ROW)
        values.append(QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, 0))));
    sqlite3_finalize(statement);
    if (values.isEmpty())
        qFatal("the catalogue has no row for: %s", sql);
    return values;
}

/// Keys of the whole file in one fixed, shuffled order.
QStringList spread(QStringList values)
{
    std::mt19937 random(1);
    std::shuffle(values.begin(), values.end(), random);
    if (values.size() > qsizetype(keyCount))
        values.resize(qsizetype(keyCount));
    return values;
}

std::vector<int> numbers(const QStringList &texts)
{
    std::vector<int> values;
    for (const QString &text : texts)
        values.push_back(text.toInt());
    return values;
}

} // namespace

Catalogue::Catalogue(long rollCount)
    : path(u"%1/%2.sqlite"_s.arg(folder()).arg(rollCount))
{
    sqlite3 *file = rawConnection(*this);
    rolls = spread(column(file, "SELECT itemNum FROM roll"));
    stripedRolls = spread(column(file, "SELECT itemNum FROM continuousstripe"));
    dieCutRolls = spread(column(file, "SELECT itemNum FROM noncontinuous"));
    imagedRolls = spread(column(file, "SELECT itemNum FROM roll WHERE backgroundId IS NOT NULL"));
    supplyIds = spread(column(file, "SELECT supplyId FROM roll WHERE supplyId IS NOT NULL"));
    ribbons = spread(column(file, "SELECT sku FROM ribbon JOIN ribbon_heat ON ribbon.id=ribbonId GROUP BY sku"));
    ribbonIds = spread(column(file, "SELECT id FROM ribbon"));
    colors = numbers(spread(column(file, "SELECT id FROM color")));
    stripeColors = numbers(spread(column(file, "SELECT secId FROM color WHERE secId IS NOT NULL")));
    materials = numbers(spread(column(file, "SELECT DISTINCT materialId FROM materialTS")));
    formats = numbers(spread(column(file, "SELECT id FROM format")));
    sensors = column(file, "SELECT supplysensortype FROM supplysensor");
}

const Catalogue &Catalogue::ofRolls(long rolls)
{
    static std::map<long, std::unique_ptr<Catalogue>> known;
    std::unique_ptr<Catalogue> &catalogue = known[rolls];
    if (!catalogue)
        catalogue.reset(new Catalogue(rolls));
    return *catalogue;
}

std::vector<long> Catalogue::sizes()
{
    std::vector<long> found;
    const QStringList names = QDir(folder()).entryList({u"*.sqlite"_s}, QDir::Files);
    for (const QString &name : names)
        found.push_back(name.chopped(7).toLong());
    std::sort(found.begin(), found.end());
    return found;
}

sqlite3 *rawConnection(const Catalogue &catalogue)
{
    static std::map<QString, sqlite3 *> open;
    sqlite3 *&file = open[catalogue.path];
    if (!file && sqlite3_open_v2(QFile::encodeName(catalogue.path).constData(), &file, SQLITE_OPEN_READONLY,
                                 nullptr) != SQLITE_OK)
        qFatal("%s: %s", qPrintable(catalogue.path), sqlite3_errmsg(file));
    return file;
}

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/catalogue.h"

#include "check/cataloguecheck.h"
#include "text/nearest.h"
#include "usekit.h"

#include <zrsupplyguard.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

/// SKUs are compared with their case; a different case is the nearest miss.
Failure notFound(const QString &what, const QString &sku, const QStringList &skus, const QString &list)
{
    const QStringList near = nearest(sku, skus);
    QString remedy = near.isEmpty() ? QString() : u"did you mean %1? "_s.arg(orList(near));
    if (!near.isEmpty() && near.first().compare(sku, Qt::CaseInsensitive) == 0)
        remedy += u"Upper and lower case count; "_s;
    remedy += u"zrsupply list %1 shows them all"_s.arg(list);
    return {Status::NotFound,
            u"the catalogue has no %1 \"%2\""_s.arg(what, sku),
            remedy,
            {{u"sku"_s, sku}, {u"nearest"_s, QJsonArray::fromStringList(near)}}};
}

/// Whatever file a session opens later is guarded as well. A person waits longer for the list of a million rolls than
/// a printer does.
bool guardConnections()
{
    ZrSupplyGuard::Limits limits;
    limits.statementMilliseconds = 10'000;
    return ZrSupplyGuard::install({}, limits);
}

} // namespace

QString sqlText(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', "''"_L1) + u'\'';
}

QString cataloguePath(const Invocation &call)
{
    if (call.has(u"catalogue"_s))
        return call.value(u"catalogue"_s);
    QString fromEnvironment = qEnvironmentVariable("ZRSUPPLY_CATALOGUE");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    // The build tree is laid out as the installed one, so one relative path serves both.
    const QDir commandFolder(QCoreApplication::applicationDirPath());
    return QDir::cleanPath(commandFolder.filePath(u"../share/zrsupplydatabase/sample.sqlite"_s));
}

Catalogue::Catalogue(const Invocation &call)
    : m_path(cataloguePath(call))
    , m_language(call.language())
{
    const bool isGuarded = !call.has(u"no-guard"_s);
    if (const auto problem = catalogueProblem(m_path, isGuarded ? Use::Lookups : Use::Author))
        throw *problem;
    if (isGuarded && !guardConnections()) {
        throw Failure{Status::Failed, u"SQLite cannot be guarded"_s, u"add --no-guard to do without the guard"_s, {}};
    }
    if (!m_library.setup(m_path)) {
        throw Failure{
            Status::Failed, u"%1 cannot be opened"_s.arg(m_path), u"try again; it could be read a moment ago"_s, {}};
    }
    m_library.setLanguageId(m_language);
}

QVariant Catalogue::ask(const QString &query, const QVariant &otherwise)
{
    return m_library.getSingleVariantByQuery(query, otherwise);
}

QList<int> Catalogue::languages()
{
    const QString ids = ask(u"SELECT group_concat(languageId) FROM (SELECT languageId FROM colorTS"
                            " UNION SELECT languageId FROM materialTS UNION SELECT languageId FROM formatTS"
                            " UNION SELECT languageId FROM ribbon_typeTS"
                            " UNION SELECT languageId FROM ribbon_colorTS ORDER BY 1)"_s)
                            .toString();
    QList<int> languages;
    for (const QString &id : ids.split(u',', Qt::SkipEmptyParts))
        languages.append(id.toInt());
    return languages;
}

QString Catalogue::languageCode(int language)
{
    // Not every catalogue has the table; the library then answers nothing.
    return ask(u"SELECT value FROM meta WHERE key='language.%1'"_s.arg(language)).toString();
}

QString Catalogue::languageNote()
{
    const QList<int> known = languages();
    if (known.contains(m_language))
        return {};
    QStringList ids;
    for (const int language : known)
        ids.append(QString::number(language));
    return u"the catalogue has no names in language %1, so they are empty; it has %2."_s.arg(
        QString::number(m_language), ids.isEmpty() ? u"no names at all"_s : ids.join(", "_L1));
}

QString Catalogue::otherFamily(const QString &sku)
{
    if (m_library.supplySKUList().contains(sku))
        return {};
    return ask(u"SELECT materialwidth.machineId FROM roll INNER JOIN materialwidth ON"
               " roll.materialWidthId=materialwidth.id WHERE itemNum="_s +
                   sqlText(sku),
               u"?"_s)
        .toString();
}

void Catalogue::requireRoll(const QString &sku, bool anyFamily)
{
    const QStringList offered = m_library.supplySKUList();
    if (offered.contains(sku))
        return;
    if (ask(u"SELECT count(*) FROM roll WHERE itemNum="_s + sqlText(sku)).toInt() == 0) {
        Failure failure = notFound(u"roll"_s, sku, offered, u"rolls"_s);
        if (sku == "UnknownSupply"_L1) {
            failure.remedy = u"that word stands for a roll that no catalogue knows; "
                             "zrsupply tag decode shows what its tag says"_s;
        } else if (m_library.supplyRibbonSKUList().contains(sku)) {
            failure.remedy = u"it is a ribbon: zrsupply ribbon "_s + sku;
        }
        throw failure;
    }
    if (anyFamily)
        return;
    const QString family = otherFamily(sku);
    const QString why = family == "?"_L1 ? u"its row leads to no row of materialwidth"_s
                                         : u"it belongs to machine family %1"_s.arg(family);
    throw Failure{Status::NotFound,
                  u"roll %1 is not offered for this printer: %2"_s.arg(sku, why),
                  u"add --any-family to see what the library answers for it nevertheless"_s,
                  {{u"sku"_s, sku}, {u"machineId"_s, family}, {u"nearest"_s, QJsonArray()}}};
}

void Catalogue::requireRibbon(const QString &sku)
{
    const QStringList known = m_library.supplyRibbonSKUList();
    if (known.contains(sku))
        return;
    Failure failure = notFound(u"ribbon"_s, sku, known, u"ribbons"_s);
    if (m_library.supplySKUList().contains(sku))
        failure.remedy = u"it is a roll: zrsupply roll "_s + sku;
    throw failure;
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/languages.h"

#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>

#include <algorithm>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Every table of names has its languages; colours have all of them, or the catalogue is not finished.
const QString idsQuery = u"SELECT group_concat(DISTINCT languageId) FROM colorTS"_s;
const QString codeQuery = u"SELECT value FROM meta WHERE key='language.%1'"_s;

/// As its speakers call it. Of several names that differ by country ("American English") the shortest is the plain
/// one.
QString nameOf(int id, const QString &code)
{
    QString shortest;
    const QLocale::Language language = code.isEmpty() ? QLocale::C : QLocale(code).language();
    if (language != QLocale::C) {
        for (const QLocale &locale : QLocale::matchingLocales(language, QLocale::AnyScript, QLocale::AnyTerritory)) {
            const QString name = locale.nativeLanguageName();
            if (!name.isEmpty() && (shortest.isEmpty() || name.size() < shortest.size()))
                shortest = name;
        }
    }
    if (shortest.isEmpty())
        return id == 0 ? u"English"_s : QCoreApplication::translate("LanguageModel", "Language %1").arg(id);
    shortest[0] = shortest[0].toUpper();
    return shortest;
}

} // namespace

QList<Language> languagesOf(ZrSupplyDatabase &library)
{
    QList<int> ids;
    for (const QString &id : library.getSingleVariantByQuery(idsQuery, {}).toString().split(u',', Qt::SkipEmptyParts))
        ids.append(id.toInt());
    if (ids.isEmpty())
        ids.append(0);
    std::sort(ids.begin(), ids.end());
    QList<Language> languages;
    for (const int id : ids) {
        // Not every catalogue has the table; the library then answers nothing.
        const QString code = library.getSingleVariantByQuery(codeQuery.arg(id), {}).toString();
        languages.append({id, code, nameOf(id, code)});
    }
    return languages;
}

QHash<int, QByteArray> LanguageModel::roleNames() const
{
    return {{IdRole, "languageId"}, {NameRole, "name"}};
}

QVariant LanguageModel::value(const Language &language, int role) const
{
    switch (role) {
    case IdRole:
        return language.id;
    case NameRole:
    case Qt::DisplayRole:
        return language.name;
    default:
        return {};
    }
}

int LanguageModel::rowOf(int id) const
{
    const auto row = std::find_if(rows().begin(), rows().end(), [id](const Language &one) { return one.id == id; });
    return row == rows().end() ? -1 : int(row - rows().begin());
}

bool LanguageModel::isRightToLeft(int id) const
{
    const int row = rowOf(id);
    return row >= 0 && QLocale(rows().at(row).code).textDirection() == Qt::RightToLeft &&
           !rows().at(row).code.isEmpty();
}

} // namespace panel

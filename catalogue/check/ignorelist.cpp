// SPDX-License-Identifier: LGPL-2.1-or-later
#include "check/ignorelist.h"

#include "text/failure.h"
#include "text/nearest.h"
#include "usekit.h"

#include <QtCore/QFile>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

void IgnoreList::add(const QString &path, const QStringList &ids)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Failure{Status::Failed,
                      u"%1 cannot be read: %2"_s.arg(path, file.errorString()),
                      u"name a file with one rule on a line"_s,
                      {}};
    }
    for (int number = 1; !file.atEnd(); ++number) {
        const QString line = QString::fromUtf8(file.readLine()).section(u'#', 0, 0).simplified();
        if (line.isEmpty())
            continue;
        const QString id = line.section(u' ', 0, 0);
        const QString place = u"%1, line %2: %3"_s.arg(path, QString::number(number), line);
        if (!ids.contains(id)) {
            const QStringList near = nearest(id, ids);
            throw Failure{Status::Failed,
                          u"%1, line %2: there is no rule %3"_s.arg(path, QString::number(number), id),
                          near.isEmpty() ? u"zrsupply catalogue check --list shows the rules"_s
                                         : u"did you mean %1?"_s.arg(orList(near)),
                          {}};
        }
        m_lines.insert({id, line.section(u' ', 1)}, {place, false});
    }
}

bool IgnoreList::ignores(const QString &id, const QString &key)
{
    for (const QString &named : {key, QString()}) {
        const auto line = m_lines.find({id, named.simplified()});
        if (line != m_lines.end()) {
            line->met = true;
            return true;
        }
    }
    return false;
}

QStringList IgnoreList::unused() const
{
    QStringList places;
    for (const Line &line : m_lines) {
        if (!line.met)
            places.append(line.place);
    }
    places.sort();
    return places;
}

} // namespace zrsupply

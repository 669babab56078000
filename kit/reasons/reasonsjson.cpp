// SPDX-License-Identifier: LGPL-2.1-or-later
#include "reasons/reasons.h"
#include "session/literal.h"

#include <QtCore/QJsonArray>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

template <typename Value>
void insertKnown(QJsonObject &object, const QString &key, const std::optional<Value> &value)
{
    if (value)
        object.insert(key, *value);
}

QJsonObject valuesJson(const ReasonValues &values)
{
    QJsonObject object;
    insertKnown(object, u"heat"_s, values.heat);
    insertKnown(object, u"tension"_s, values.tension);
    insertKnown(object, u"material"_s, values.material);
    insertKnown(object, u"sensor"_s, values.sensor);
    insertKnown(object, u"ribbonWidthInches"_s, values.ribbonWidthInches);
    insertKnown(object, u"rollWidthInches"_s, values.rollWidthInches);
    insertKnown(object, u"narrowRibbonInches"_s, values.narrowRibbonInches);
    insertKnown(object, u"wideRollInches"_s, values.wideRollInches);
    return object;
}

QJsonObject findingJson(const Finding &finding)
{
    return {{u"rule"_s, finding.rule},
            {u"ribbon"_s, finding.ribbon},
            {u"outcome"_s, wordOf(finding.outcome)},
            {u"code"_s, wordOf(finding.code)},
            {u"values"_s, valuesJson(finding.values)},
            {u"says"_s, finding.says},
            {u"technician"_s, finding.technician}};
}

QJsonObject announcementJson(const Announcement &announcement)
{
    QJsonArray arguments;
    for (const QVariant &argument : announcement.arguments)
        arguments.append(literalJson(argument));
    return {{u"signal"_s, announcement.signal}, {u"arguments"_s, arguments}};
}

template <typename Row, typename ToJson>
QJsonArray listJson(const QList<Row> &rows, ToJson toJson)
{
    QJsonArray list;
    for (const Row &row : rows)
        list.append(toJson(row));
    return list;
}

} // namespace

QString wordOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Fires:
        return u"fires"_s;
    case Outcome::Passes:
        return u"passes"_s;
    case Outcome::Waived:
        return u"waived"_s;
    case Outcome::NotAsked:
        break;
    }
    return u"not asked"_s;
}

QString wordOf(ReasonCode code)
{
    static const std::array words = {
        u"no-ribbon-to-print"_s,         u"ribbon-prints"_s,
        u"ribbon-has-no-heat"_s,         u"ribbon-heat-not-positive"_s,
        u"roll-is-not-wide"_s,           u"ribbon-is-wide"_s,
        u"ribbon-is-narrow"_s,           u"missing-ribbon-is-narrow"_s,
        u"unknown-width-is-narrow"_s,    u"special-is-not-judged"_s,
        u"two-specials-are-no-pair"_s,   u"no-ribbon"_s,
        u"ribbon-needs-no-clear-tail"_s, u"ribbon-needs-clear-tail"_s,
        u"roll-needs-no-sensor"_s,       u"roll-needs-sensor"_s,
        u"ribbon-has-tension"_s,         u"ribbon-has-no-tension"_s,
    };
    static_assert(std::tuple_size_v<decltype(words)> == size_t(ReasonCode::RibbonHasNoTension) + 1);
    return words.at(size_t(code));
}

QJsonObject toJson(const Verdict &verdict)
{
    return {{u"good"_s, verdict.good},
            {u"summary"_s, verdict.summary},
            {u"slot"_s, nameOf(verdict.check).slot},
            {u"signals"_s, listJson(verdict.announcements, announcementJson)},
            {u"rules"_s, listJson(verdict.findings, findingJson)},
            {u"values"_s, listJson(verdict.readings, [](const Reading &reading) {
                 return QJsonObject{{u"name"_s, reading.name},
                                    {u"value"_s, literalJson(reading.value)},
                                    {u"source"_s, reading.source}};
             })}};
}

QJsonObject toJson(const QList<Verdict> &verdicts)
{
    QJsonObject checks;
    for (const Verdict &verdict : verdicts)
        checks.insert(nameOf(verdict.check).word, toJson(verdict));
    return checks;
}

} // namespace ZrSupplyKit

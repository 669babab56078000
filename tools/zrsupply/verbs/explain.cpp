// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/cells.h"
#include "cli/loaded.h"
#include "cli/output.h"
#include "supplies/installed.h"
#include "usekit.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

Table findingsTable(const Verdict &verdict)
{
    Table table({{{}, u"Rule"_s}, {{}, u"Of"_s}, {{}, u"Outcome"_s}, {{}, u"Because"_s}});
    for (const Finding &finding : verdict.findings) {
        table.addRow({textCell(finding.rule),
                      {finding.ribbon, finding.ribbon == 0 ? u"roll"_s : u"ribbon %1"_s.arg(finding.ribbon), {}},
                      textCell(wordOf(finding.outcome)),
                      textCell(finding.says)});
    }
    return table;
}

Table readingsTable(const Verdict &verdict)
{
    Table table({{{}, u"Value"_s}, {{}, u"Is"_s}, {{}, u"Read from"_s}});
    for (const Reading &reading : verdict.readings) {
        table.addRow({textCell(reading.name), {{}, reading.text, {}}, textCell(reading.source)});
    }
    return table;
}

QString verdictSection(const Verdict &verdict, const Style &style)
{
    const QString heading = nameOf(verdict.check).title + u": "_s + verdict.summary;
    QString text = u'\n' + emphasised(heading, style) + u"  "_s + announcementText(verdict) + u'\n' +
                   findingsTable(verdict).toText(style, 2);
    if (!verdict.readings.isEmpty())
        text += u'\n' + readingsTable(verdict).toText(style, 2);
    return text;
}

Status run(const Invocation &call, Output &out)
{
    if (!call.has(u"roll"_s))
        throw usageFailure(call.command(), u"--roll is missing"_s);
    static_cast<void>(ribbonWords(call)); // a third one is an error before the catalogue is looked at
    Catalogue catalogue(call);
    ZrSupplyDatabase &library = catalogue.library();

    Answer answer;
    takeInRoll(catalogue, call.value(u"roll"_s), answer);
    const QStringList skus = ribbonSkus(catalogue, call, answer);

    const QString roll = library.supplySKU();
    answer.add(u"roll"_s, u"Roll"_s, {roll, roll == unsetString ? roll : roll + u"  "_s + rollText(library), {}});
    for (qsizetype i = 0; i < ribbonCount; ++i) {
        answer.add(
            u"ribbon%1"_s.arg(i + 1), u"Ribbon %1"_s.arg(i + 1),
            {skus[i], skus[i] == unsetString ? u"none"_s : skus[i] + u"  "_s + ribbonText(library, skus[i]), {}});
    }
    const QList<Verdict> verdicts = judge(gatherFacts(library, roll, skus));
    if (out.json()) {
        QJsonObject object = answer.toJson();
        object.insert(u"checks"_s, toJson(verdicts));
        out.write(object);
        return Status::Ok;
    }
    out.write(answer);
    for (const Verdict &verdict : verdicts)
        out.write(verdictSection(verdict, out.style()));
    return Status::Ok;
}

} // namespace

Command explainCommand()
{
    return {
        u"explain"_s,
        u"Tell why the checks say what they say of a roll and its ribbons"_s,
        u"Applies the rules of the library's five checks one by one: the verdict of each check with the signal that"
        " announces it, every rule with its outcome, the values that were compared and the rows of the catalogue that"
        " they were read from.\n\n"
        "fires: the rule decides the verdict. passes: it has no objection. waived: it objects, and a special ribbon"
        " overrules it. not asked: there is nothing to judge."_s,
        {secondRibbonArgument()},
        {rollOption(), ribbonsOption()},
        {{u"explain --roll 00158377 --ribbons R530901 RW530921"_s, u"No resin on paper."_s},
         {u"explain --roll 32100C0C8021004060000000 --ribbons 14 5"_s,
          u"A narrow ribbon on a wide roll, by tag and ids."_s},
         {u"explain --roll 00143465 --ribbons none 20 --json"_s, u"One ribbon, for programs."_s}},
        {{Status::Ok, u"explained, whatever the verdict"_s},
         {Status::Failed, u"the catalogue could not be used"_s},
         {Status::Usage, u"wrong call"_s},
         {Status::NotFound, u"no such roll or ribbon"_s}},
        run,
    };
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/help.h"
#include "cli/commandline.h"
#include "cli/output.h"
#include "text/nearest.h"
#include "usekit.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

Failure unknownVerb(const QString &path)
{
    QStringList paths;
    for (const Command &command : commandTable())
        paths.append(command.path);
    const QStringList near = nearest(path, paths);
    return {Status::Usage,
            u"there is no verb \"%1\""_s.arg(path),
            near.isEmpty() ? u"zrsupply --help lists the verbs"_s : u"did you mean %1?"_s.arg(orList(near)),
            {{u"nearest"_s, QJsonArray::fromStringList(near)}}};
}

Status run(const Invocation &call, Output &out)
{
    const QString path = call.arguments().join(u' ');
    const Command *command = findCommand(path);
    const bool isGroup = !commandsInGroup(path).isEmpty();
    if (!path.isEmpty() && command == nullptr && !isGroup)
        throw unknownVerb(path);

    if (out.json())
        out.write(command != nullptr ? commandJson(*command) : tableJson());
    else if (path.isEmpty())
        out.write(overviewText(out.style()));
    else
        out.write(command != nullptr ? commandText(*command, out.style()) : groupText(path, out.style()));
    return Status::Ok;
}

} // namespace

Command helpCommand()
{
    return {
        u"help"_s,
        u"Explain a verb, or list them all"_s,
        u"With --json the whole command table: every verb with its arguments, options, examples and exit statuses. "
        "Man pages and shell completions are made from it."_s,
        {{u"VERB"_s, u"The verb to explain; the overview when it is left out"_s, Value::Verb, Need::Any}},
        {},
        {{u"help tag decode"_s, u"The same as zrsupply tag decode --help."_s},
         {u"help --json"_s, u"The command table, for programs."_s}},
        {{Status::Ok, u"explained"_s}, {Status::Usage, u"no such verb"_s}},
        run,
    };
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/commandline.h"
#include "cli/output.h"
#include "diff/comparison.h"

#include <QtCore/QFile>

#include <algorithm>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int shownChanges = 50;

using Kind = DiffChange::Kind;

QString kindWord(Kind kind)
{
    return kind == Kind::Removed ? u"removed"_s : kind == Kind::Added ? u"added"_s : u"changed"_s;
}

QString valueText(const QVariant &value, const QString &name = {})
{
    if (value.isNull())
        return u"none"_s;
    if (value.typeId() == QMetaType::QByteArray)
        return u"%1 bytes"_s.arg(value.toByteArray().size());
    return name.isEmpty() ? value.toString() : u"%1 (%2)"_s.arg(value.toString(), name);
}

QJsonValue valueJson(const QVariant &value)
{
    if (value.isNull())
        return QJsonValue::Null;
    if (value.typeId() == QMetaType::QByteArray)
        return valueText(value);
    return QJsonValue::fromVariant(value);
}

qsizetype count(const SubjectDiff &diff, Kind kind)
{
    QSet<QString> keys;
    for (const DiffChange &change : diff.changes) {
        if (change.kind == kind)
            keys.insert(change.key);
    }
    return keys.size();
}

QJsonObject subjectJson(const SubjectDiff &diff)
{
    QJsonArray removed;
    QJsonArray added;
    QJsonArray changed;
    for (const DiffChange &change : diff.changes) {
        QJsonObject object{{u"key"_s, change.key}};
        if (!change.breaks.isEmpty())
            object.insert(u"breaks"_s, change.breaks);
        if (change.kind == Kind::Removed) {
            removed.append(object);
        } else if (change.kind == Kind::Added) {
            added.append(object);
        } else {
            object.insert(u"field"_s, change.field);
            object.insert(u"before"_s, valueJson(change.before));
            object.insert(u"after"_s, valueJson(change.after));
            if (!change.beforeName.isEmpty())
                object.insert(u"beforeName"_s, change.beforeName);
            if (!change.afterName.isEmpty())
                object.insert(u"afterName"_s, change.afterName);
            changed.append(object);
        }
    }
    return {{u"removed"_s, removed}, {u"added"_s, added}, {u"changed"_s, changed}};
}

QString changeText(const DiffChange &change)
{
    const QString sign = change.kind == Kind::Removed ? u"- "_s : change.kind == Kind::Added ? u"+ "_s : u"  "_s;
    QString text = sign + change.key;
    if (change.kind == Kind::Changed)
        text += u": %1 %2 -> %3"_s.arg(change.field, valueText(change.before, change.beforeName),
                                       valueText(change.after, change.afterName));
    if (!change.breaks.isEmpty())
        text += u"  (! %1)"_s.arg(change.breaks);
    return text;
}

QString subjectText(const SubjectDiff &diff, qsizetype limit, const Style &style)
{
    QStringList counts;
    for (const Kind kind : {Kind::Removed, Kind::Added, Kind::Changed}) {
        if (count(diff, kind) > 0)
            counts.append(u"%1 %2"_s.arg(count(diff, kind)).arg(kindWord(kind)));
    }
    QString text = emphasised(u"%1: %2"_s.arg(diff.subject.title, counts.join(", "_L1)), style) + u'\n';
    const qsizetype shown = limit > 0 ? qMin(limit, diff.changes.size()) : diff.changes.size();
    for (qsizetype i = 0; i < shown; ++i)
        text += u"  "_s + changeText(diff.changes[i]) + u'\n';
    if (shown < diff.changes.size())
        text += u"  and %1 more; --limit 0 shows all\n"_s.arg(diff.changes.size() - shown);
    return text + u'\n';
}

QString fileName(const Invocation &call, const QString &name)
{
    return call.argument(name == "before"_L1 ? 0 : 1);
}

/// The bytes of a file's header by which SQLite notices, while it has the file open, that another stands in its
/// place: the change counter, and how many pages there are and are free.
QByteArray stateOfFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(24) ? file.read(16) : QByteArray();
}

bool shareChangeCounter(const Invocation &call, const QList<SubjectDiff> &diffs)
{
    const bool differ =
        std::any_of(diffs.begin(), diffs.end(), [](const SubjectDiff &diff) { return !diff.changes.isEmpty(); });
    const QByteArray before = stateOfFile(call.argument(0));
    return differ && !before.isEmpty() && before == stateOfFile(call.argument(1));
}

void writeJson(const Invocation &call, const QList<SubjectDiff> &diffs, qsizetype breaking, Output &out)
{
    QJsonObject subjects;
    bool same = true;
    for (const SubjectDiff &diff : diffs) {
        if (!diff.missingIn.isEmpty())
            continue;
        subjects.insert(diff.subject.name, subjectJson(diff));
        same = same && diff.changes.isEmpty();
    }
    out.write(QJsonObject{{u"old"_s, call.argument(0)},
                          {u"new"_s, call.argument(1)},
                          {u"same"_s, same},
                          {u"breaking"_s, breaking},
                          {u"sharedChangeCounter"_s, shareChangeCounter(call, diffs)},
                          {u"changes"_s, subjects}});
}

void writeText(const Invocation &call, const QList<SubjectDiff> &diffs, qsizetype breaking, Output &out)
{
    const qsizetype limit = call.value(u"limit"_s, QString::number(shownChanges)).toInt();
    QString text;
    QString notes;
    for (const SubjectDiff &diff : diffs) {
        if (!diff.missingIn.isEmpty()) {
            notes += u"Note: %1 has no tables for this, so it is not compared: %2\n"_s.arg(
                fileName(call, diff.missingIn), QString(diff.subject.title).toLower());
        } else if (!diff.changes.isEmpty()) {
            text += subjectText(diff, limit, out.style());
        }
    }
    if (shareChangeCounter(call, diffs)) {
        notes +=
            u"Note: both files have the same change counter and size, so that a printer which has %1 open would mix the two "
            "if %2 were copied over it. Replace the file by renaming, or make it with zrsupply catalogue build.\n"_s
                .arg(call.argument(0), call.argument(1));
    }
    if (text.isEmpty())
        text = u"The catalogues say the same.\n"_s;
    else if (breaking == 0)
        text += u"No removal and no changed key.\n"_s;
    else
        text += u"%1 of these can break what relies on the old catalogue, marked with (!).\n"_s.arg(breaking);
    out.write(text + notes);
}

Status run(const Invocation &call, Output &out)
{
    const QList<SubjectDiff> diffs = compareCatalogues(call.argument(0), call.argument(1));
    qsizetype breaking = 0;
    for (const SubjectDiff &diff : diffs) {
        breaking += std::count_if(diff.changes.begin(), diff.changes.end(),
                                  [](const DiffChange &change) { return !change.breaks.isEmpty(); });
    }
    if (out.json())
        writeJson(call, diffs, breaking, out);
    else
        writeText(call, diffs, breaking, out);
    return Status::Ok;
}

} // namespace

Command catalogueDiffCommand()
{
    return {
        u"catalogue diff"_s,
        u"Say what a new catalogue has that an old one has not, for release notes"_s,
        u"Rolls and ribbons are compared by SKU, with the rows joined that make them up, so that a "
        "change of materialwidth shows as a change of its rolls. Removals and changed keys are marked: a supply id, ribbon id or code by which tags "
        "and hosts know a thing."_s,
        {{u"OLD"_s, u"Catalogue file"_s, Value::File}, {u"NEW"_s, u"Catalogue file"_s, Value::File}},
        {{u"limit"_s, u"Show this many lines of each kind; 0: all, as with --json. 50 when not given"_s,
          Value::Integer, u"N"_s}},
        {{u"catalogue diff shipped.sqlite new.sqlite"_s, u"What changed since the last release."_s}},
        {{Status::Ok, u"compared, whatever was found"_s},
         {Status::Failed, u"a file cannot be read or is not a catalogue"_s}},
        run,
    };
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/sessionhelp.h"

#include "cli/answer.h"
#include "session/methodcall.h"
#include "session/sessionhost.h"
#include "usekit.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype usageColumns = 36;
constexpr qsizetype helpColumns = 60;

/// What is written on the left, what it does on the right or, where it does not fit, below.
QString entry(const QString &usage, const QString &help)
{
    const QString text = wrapped(help, helpColumns, usageColumns);
    if (displayWidth(usage) + 1 >= usageColumns)
        return usage + u'\n' + text + u'\n';
    return padded(usage, usageColumns) + text.mid(usageColumns) + u'\n';
}

QString eventLines()
{
    QString text;
    for (const EventKind &kind : eventKinds())
        text += entry(usageText(kind), kind.help);
    return text + entry(u"# TEXT"_s, u"A comment, also behind an event."_s);
}

QString methodLines(const QMetaObject &library, bool onlySignals)
{
    QString text;
    for (int index = library.methodOffset(); index < library.methodCount(); ++index) {
        const QMetaMethod method = library.method(index);
        // A method with defaults has a shorter form each; the full one tells all.
        const bool shorter = (method.attributes() & QMetaMethod::Cloned) != 0;
        if (shorter || (method.methodType() == QMetaMethod::Signal) != onlySignals)
            continue;
        const QString answer = QString::fromLatin1(method.returnMetaType().name());
        text += signatureText(method) + (answer == "void"_L1 ? QString() : u" -> "_s + answer) + u'\n';
    }
    return text;
}

QStringList signalNames(const QMetaObject &library)
{
    QStringList names;
    for (const QMetaMethod &signal : ownSignals(library))
        names.append(QString::fromLatin1(signal.name()));
    return names;
}

/// Files and folders that begin as `start` does; a folder ends in a slash.
QStringList filesFrom(const QString &start)
{
    const qsizetype slash = start.lastIndexOf(u'/');
    const QString folder = start.left(slash + 1);
    QStringList names;
    const QDir directory(folder.isEmpty() ? u"."_s : folder);
    for (const QFileInfo &file : directory.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
        names.append(folder + file.fileName() + (file.isDir() ? u"/"_s : QString()));
    return names;
}

QStringList firstArguments(const QString &event, const QString &start, const QMetaObject &library)
{
    if (event == "mileage"_L1)
        return mileagePlaces();
    if (event == "check"_L1)
        return checkWords();
    if (event == "call"_L1)
        return methodNames(library);
    if (event == "expect"_L1)
        return QStringList{u"answer"_s, u"silence"_s} + signalNames(library);
    if (event == "catalogue"_L1)
        return QStringList{u"closed"_s, u"start"_s} + filesFrom(start);
    if (event == "help"_L1)
        return {u"methods"_s, u"signals"_s};
    return {};
}

} // namespace

QString sessionHelp(const QString &about, const QMetaObject &library)
{
    if (about.isEmpty())
        return eventLines();
    return methodLines(library, about == "signals"_L1);
}

QString eventParagraphs()
{
    QStringList events;
    for (const EventKind &kind : eventKinds())
        events.append(usageText(kind) + u": "_s + kind.help);
    return events.join("\n\n"_L1);
}

QStringList sessionCompletions(const QString &line, const QMetaObject &library)
{
    const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
    const bool begun = !line.isEmpty() && !line.endsWith(u' ');
    const qsizetype position = words.size() - (begun ? 1 : 0);
    const QString start = begun ? words.last() : QString();

    QStringList known;
    if (position == 0) {
        for (const EventKind &kind : eventKinds())
            known.append(kind.word);
    } else if (position == 1) {
        known = firstArguments(words.first(), start, library);
    }
    QStringList found;
    for (const QString &candidate : known) {
        if (candidate.startsWith(start) && !found.contains(candidate))
            found.append(candidate);
    }
    return found;
}

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QMetaObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace zrsupply {

/// What `help` prints in a session; `about`: nothing, "methods" or "signals".
QString sessionHelp(const QString &about, const QMetaObject &library);

/// The events for the verb's --help, a paragraph each.
QString eventParagraphs();

/// What the word at the end of `line` can become, as far as it is written.
QStringList sessionCompletions(const QString &line, const QMetaObject &library);

} // namespace zrsupply

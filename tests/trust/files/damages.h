// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

/// One way to damage a file: bytes in place of others, or the file cut off.
struct Damage
{
    QByteArray what;  ///< For a reader: the byte, field or pointer and what became of it.
    qsizetype offset; ///< Of the replacement; the new length where there is none.
    QByteArray replacement;
};

/// Every byte changed in four ways, the file cut off at every length, and then what a file format has in places that
/// matter: header fields, page types, counts, cell pointers and page numbers, each with the values at their edges.
QList<Damage> damagesOf(const QByteArray &file);

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QLatin1StringView>
#include <QtCore/QList>

/// What a comparison of two catalogues looks at. Each subject is a SELECT whose columns are the key, as a person
/// names the thing, and its fields, with the rows joined that make it up. `{db}` stands for the name of either
/// catalogue.
namespace zrsupply {

/// What the codes in a field are called: a SELECT of code and name. Codes are compared, names only shown, so that a
/// material with a new name is one change and not one of each of its rolls.
struct DiffNames
{
    QLatin1StringView field;
    QLatin1StringView select;
};

struct DiffSubject
{
    QLatin1StringView name;   ///< In JSON: "rolls".
    QLatin1StringView title;  ///< "Rolls"
    QLatin1StringView one;    ///< "roll"
    QLatin1StringView select; ///< First column: the key.
    /// A field that is itself a key to somebody: tags and hosts know the thing by it. Empty when there is none.
    QLatin1StringView identity;
    QList<DiffNames> names = {};
};

const QList<DiffSubject> &diffSubjects();

} // namespace zrsupply

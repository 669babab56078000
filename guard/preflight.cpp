// SPDX-License-Identifier: LGPL-2.1-or-later
#include "preflight_p.h"

#include <QtCore/QLatin1StringView>

namespace ZrSupplyGuard {

using namespace Qt::Literals::StringLiterals;

Preflight preflight(const QString &path, Depth depth)
{
    if (auto problem = fileProblem(path))
        return *problem;
    return databaseProblem(path, depth).value_or(Preflight());
}

QString name(Finding finding)
{
    // No default: a compiler then tells of a finding that has no code.
    switch (finding) {
    case Finding::Usable:
        return u"usable"_s;
    case Finding::Missing:
        return u"missing"_s;
    case Finding::NotAFile:
        return u"not-a-file"_s;
    case Finding::NoPermission:
        return u"no-permission"_s;
    case Finding::Empty:
        return u"empty"_s;
    case Finding::NotADatabase:
        return u"not-a-database"_s;
    case Finding::Torn:
        return u"torn"_s;
    case Finding::UnknownFormat:
        return u"unknown-format"_s;
    case Finding::NotRollbackJournal:
        return u"not-rollback-journal"_s;
    case Finding::SideFiles:
        return u"side-files"_s;
    case Finding::SchemaVersion:
        return u"schema-version"_s;
    case Finding::Unreadable:
        return u"unreadable"_s;
    case Finding::Lacking:
        return u"lacking"_s;
    case Finding::NotATable:
        return u"not-a-table"_s;
    case Finding::ComputedColumn:
        return u"computed-column"_s;
    case Finding::HasTrigger:
        return u"has-trigger"_s;
    case Finding::UntypedKey:
        return u"untyped-key"_s;
    case Finding::GiantValue:
        return u"giant-value"_s;
    case Finding::TooSlow:
        return u"too-slow"_s;
    case Finding::Damaged:
        return u"damaged"_s;
    }
    return {};
}

} // namespace ZrSupplyGuard

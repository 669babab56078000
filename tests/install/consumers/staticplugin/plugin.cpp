// SPDX-License-Identifier: LGPL-2.1-or-later
// Brings the library with its logger, or the guard, whichever it is linked with.

#include <QtCore/QString>

#if __has_include(<zrsupplydatabase.h>)
#include <zrsupplydatabase.h>
#else
#include <zrsupplyguard.h>
#endif

extern "C" Q_DECL_EXPORT bool load(const char *catalogue)
{
    const QString path = QString::fromLocal8Bit(catalogue);
#if __has_include(<zrsupplydatabase.h>)
    ZrSupplyDatabase supplies;
    return !supplies.setup(QStringLiteral("/nonexistent/catalogue.sqlite")) && supplies.setup(path) &&
           !supplies.supplySKUList().isEmpty();
#else
    return ZrSupplyGuard::install(path);
#endif
}

// SPDX-License-Identifier: LGPL-2.1-or-later
// A plugin of a host: the only part of the process that links the library.

#include <zrsupplydatabase.h>

#include <QtCore/QtGlobal>

#include <cstdio>

extern "C" Q_DECL_EXPORT void load(const char *catalogue)
{
    static ZrSupplyDatabase supplies;
    if (supplies.setup(QString::fromLocal8Bit(catalogue)))
        std::printf("%d\n", supplies.getColorRGBFromEnum(1));
    else
        std::puts("setup() failed");
    std::fflush(stdout);
}

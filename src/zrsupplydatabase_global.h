// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/qglobal.h>

/// Marks what hosts link against; everything else of the library is hidden.
/// A build that compiles these sources into a library of its own defines ZRSUPPLYDATABASE_LIBRARY where its platform
/// tells export from import; on ELF platforms both are the same.
#if defined(ZRSUPPLYDATABASE_LIBRARY)
#define ZRSUPPLYDATABASE_EXPORT Q_DECL_EXPORT
#else
#define ZRSUPPLYDATABASE_EXPORT Q_DECL_IMPORT
#endif

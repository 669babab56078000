// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/qglobal.h>

/// Marks what hosts link against; everything else of the guard is hidden.
#if defined(ZRSUPPLYGUARD_LIBRARY)
#define ZRSUPPLYGUARD_EXPORT Q_DECL_EXPORT
#else
#define ZRSUPPLYGUARD_EXPORT Q_DECL_IMPORT
#endif

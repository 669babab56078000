// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/qglobal.h>

/// Marks what hosts link against; everything else of the kit is hidden.
#if defined(ZRSUPPLYKIT_LIBRARY)
#define ZRSUPPLYKIT_EXPORT Q_DECL_EXPORT
#else
#define ZRSUPPLYKIT_EXPORT Q_DECL_IMPORT
#endif

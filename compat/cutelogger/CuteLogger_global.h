// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

#if defined(CUTELOGGER_LIBRARY)
#define CUTELOGGERSHARED_EXPORT Q_DECL_EXPORT
#else
#define CUTELOGGERSHARED_EXPORT Q_DECL_IMPORT
#endif

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <zrsupplydatabase.h>

#include <QtCore/QMetaMethod>

/// The methods that the class itself adds to its meta-object.
namespace metamethods {

using Z = ZrSupplyDatabase;

inline constexpr int methodCount = 145;
inline constexpr int signalCount = 19; // the first ones

inline const QMetaObject &meta = Z::staticMetaObject;

/// By the index that a host knows, which does not count the methods of `QObject`.
inline QMetaMethod methodAt(int index)
{
    return meta.method(meta.methodOffset() + index);
}

} // namespace metamethods

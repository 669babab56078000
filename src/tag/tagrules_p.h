// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/qglobal.h>

/// What the decoder and its users both have to know of a tag.
namespace tagrules {

inline constexpr qsizetype digits = 24;        // hexadecimal digits; what follows is not read
inline constexpr int firstMultiUpRevision = 2; // from here on a tag carries multi-up fields and its type index

} // namespace tagrules

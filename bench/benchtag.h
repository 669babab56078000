// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "support/tagtext.h"

/// A tag of revision 0 or 2: a continuous roll of this material, 100 feet long.
inline QString plainTag(int material, int revision = 0)
{
    return tagText({{tagbits::mileageBaseFeet, 100},
                    {tagbits::lengthFeet, 100},
                    {tagbits::material, unsigned(material)},
                    {tagbits::format, 1},
                    {tagbits::color, 1},
                    {tagbits::widthInches, 4},
                    {tagbits::revision, unsigned(revision)}});
}

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/cells.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

Cell widthCell(double inches, const QString &absent)
{
    return {inches, widthText(inches, absent), {}};
}

Cell lengthCell(double inches, const QString &absent)
{
    return {inches, lengthText(inches, absent), {}};
}

Cell numberCell(int number, const QString &absent)
{
    return {number, numberText(number, absent), {}};
}

Cell codeCell(int code, const QString &name)
{
    return {code, codeText(code, name), {}};
}

Cell colorCell(int rgb, const QString &name, const QString &absent)
{
    if (rgb == -1)
        return {rgb, name.isEmpty() ? absent : name, {}};
    return {rgb, name.isEmpty() ? rgbText(rgb) : u"%1 %2"_s.arg(rgbText(rgb), name), rgb};
}

Cell textCell(const QString &text, const QString &absent)
{
    return {text, text.isEmpty() ? absent : text, {}};
}

Cell yesNoCell(bool yes)
{
    return {yes, yes ? u"yes"_s : u"no"_s, {}};
}

} // namespace zrsupply

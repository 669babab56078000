// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <zrsupplydatabase.h>

#include <QtCore/QList>
#include <QtCore/QVariant>

#include <functional>

/// The object as a host sees it that knows its methods by their index only.
namespace slotcall {

/// The answer of a method, called by index; invalid where it returns nothing. Arguments have the method's types.
QVariant byIndex(ZrSupplyDatabase &database, int index, QVariantList arguments);

/// Whether a parameter of this type can carry text.
bool carriesText(QMetaType type);

/// The slots with a parameter that can carry text, in the order of their indices.
QList<int> takingText();

/// Arguments for a method: where a parameter can carry text, what `textOf` tells for its place (twice, where it takes
/// a list), else the number 1.
QVariantList arguments(int index, const std::function<QString(int parameter)> &textOf);

} // namespace slotcall

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "text/failure.h"

#include <tag/supplyc.h>
#include <tag/taglayout_p.h>

#include <QtCore/QHash>

namespace zrsupply {

/// One of the 24 fields of a tag.
struct TagField
{
    QString member; ///< As `SupplyC` spells it.
    QString help;
    int SupplyC::*number = nullptr;
    bool SupplyC::*flag = nullptr;

    /// As options spell it: "width-inches".
    QString name() const;
    int value(const SupplyC &tag) const;
};

/// In the order of `SupplyC`.
const QList<TagField> &tagFields();
/// By either spelling; nullptr when there is none.
const TagField *findTagField(const QString &name);

/// What decides where the fields lie.
struct TagLayout
{
    bool continuous = false; ///< Format code 1 or 2.
    bool multiUp = false;    ///< Revision 2 or more.

    TagLayout(int formatEnum, int tagRevision);
    /// "continuous, revision 2 or more"
    QString text() const;
};

/// The bits of a field in a layout; nullptr when the layout does not carry it.
const taglayout::Field *tagBitsOf(const TagField &field, const TagLayout &layout);
/// The numbers that these bits can say: the type index counts from 1, everything else from 0.
int smallestValue(const TagField &field);
int largestValue(const TagField &field, const taglayout::Field &bits);
/// What decoding gives a field that the layout does not carry.
int valueWhenNotCarried(const TagField &field, const TagLayout &layout, int formatEnum);

/// The 96 bits that the decoder sees.
TagBits tagBitsFromText(const QString &text);

/// Field values by `TagField::member`; flags are 0 and 1.
using TagValues = QHash<QString, int>;

/// The 24 hexadecimal digits of a tag with these values; what is not given is what zero bits say. Throws when a value
/// is out of range, or belongs to a field that the layout does not carry.
QString encodeTag(const TagValues &values);

} // namespace zrsupply

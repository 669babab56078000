// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace zrsupply {

/// Numbers as sources write them: digits, with a point where a number may have one, and nothing around them.
bool readInteger(QByteArrayView text, qint64 &number);
bool readReal(QByteArrayView text, double &number);

/// What to write instead of a text that is no such number.
QString integerRemedy(QByteArrayView text);
QString realRemedy(QByteArrayView text);

} // namespace zrsupply

// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace CuteLoggerPrivate {

// True while the calling thread is in some appender's append().
bool insideAppend();

} // namespace CuteLoggerPrivate

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Logger.h"

#include <cstdio>

// The accessor's name comes from the build.
Logger *ACCESSOR()
{
    static Logger instance;
    return &instance;
}

const CuteMessageLogger::Stream &CuteMessageLogger::Stream::operator<<(const char *text) const
{
    std::printf("%s: %s\n", target->name, text);
    return *this;
}

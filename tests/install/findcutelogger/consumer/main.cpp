// SPDX-License-Identifier: LGPL-2.1-or-later
#include <Logger.h>

int main()
{
#ifdef cuteLogger
    Logger *const target = cuteLoggerInstance();
#else
    Logger *const target = loggerInstance();
#endif
    CuteMessageLogger(target, Logger::Debug, "main.cpp", 1, "consumer").write() << "a record";
    return 0;
}

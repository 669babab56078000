// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace zrsupply {

/// Unwinds a verb after a signal, so that every half-written file is removed on the way.
struct Interrupted
{
    int signal;
};

/// While it lives, SIGINT, SIGTERM and SIGHUP are noted instead of ending the process. One at a time.
class InterruptGuard
{
public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard &) = delete;
    InterruptGuard &operator=(const InterruptGuard &) = delete;

    static bool isInterrupted();
    /// Throws Interrupted after a signal.
    static void check();

private:
    static constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};
    struct sigaction m_before[3] = {};
};

/// Runs a verb that writes files. After a signal the process ends by that signal, as a shell expects, once `body` has
/// cleaned up behind itself.
template <typename Body>
auto cleaningUpAfterSignals(const Body &body)
{
    int signal = 0;
    {
        const InterruptGuard guard;
        try {
            return body();
        } catch (const Interrupted &interrupted) {
            signal = interrupted.signal;
        }
    }
    ::kill(::getpid(), signal);
    std::_Exit(128 + signal); // for a signal that is blocked
}

} // namespace zrsupply

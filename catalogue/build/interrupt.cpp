// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/interrupt.h"

namespace zrsupply {

namespace {

volatile std::sig_atomic_t caught = 0;

void note(int signal)
{
    caught = signal;
}

} // namespace

InterruptGuard::InterruptGuard()
{
    caught = 0;
    struct sigaction action = {};
    action.sa_handler = note;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int i = 0; i < 3; ++i) {
        sigaction(signals[i], nullptr, &m_before[i]);
        // nohup and background jobs of a script ignore signals, which is to stay so.
        if (m_before[i].sa_handler != SIG_IGN)
            sigaction(signals[i], &action, nullptr);
    }
}

InterruptGuard::~InterruptGuard()
{
    for (int i = 0; i < 3; ++i)
        sigaction(signals[i], &m_before[i], nullptr);
}

bool InterruptGuard::isInterrupted()
{
    return caught != 0;
}

void InterruptGuard::check()
{
    if (caught != 0)
        throw Interrupted{caught};
}

} // namespace zrsupply

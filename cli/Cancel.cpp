// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cancel.h"

#include <atomic>
#include <signal.h>

namespace Cancel {

namespace {

std::atomic<int> received = 0;
static_assert(std::atomic<int>::is_always_lock_free, "written by a signal handler");

void note(int signalNumber)
{
    received = signalNumber;
}

}  // namespace

void listen()
{
    struct sigaction action = {};
    action.sa_handler = note;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    // With nohup the program outlives its terminal.
    struct sigaction hangUp = {};
    sigaction(SIGHUP, nullptr, &hangUp);
    if (hangUp.sa_handler != SIG_IGN)
        sigaction(SIGHUP, &action, nullptr);
}

bool isRequested()
{
    return received != 0;
}

int exitStatus()
{
    return 128 + received;
}

}  // namespace Cancel

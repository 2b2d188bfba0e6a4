// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cancel.h"

#include "platform/jobs/Exceptions.h"

#include <atomic>
#include <signal.h>
#include <unistd.h>

namespace Cancel {

namespace {

std::atomic<int> received = 0;
std::atomic<bool> endsAtOnce = false;
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free,
              "used by a signal handler");

/// Nothing but what a signal handler may do.
void note(int signalNumber)
{
    received = signalNumber;
    if (!endsAtOnce)
        return;
    constexpr char message[] = "freecut: Cancelled.\n";
    [[maybe_unused]] ssize_t const written = write(STDERR_FILENO, message, sizeof message - 1);
    _exit(exitStatus());
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

AtOnce::AtOnce()
{
    endsAtOnce = true;
    if (!isRequested())
        return;
    endsAtOnce = false;
    throw Mell::AbortException("Aborting...");
}

AtOnce::~AtOnce()
{
    endsAtOnce = false;
}

}  // namespace Cancel

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"

/// How a job leaves a mesh service that throws. Only an abort with the exact text of a user's
/// cancel stays an abort; all else becomes a plain failure, an exception of type char const*.
namespace ServiceCall {

/// Logs the abort and throws: a copy of it if it is the user's cancel, else a failure.
[[noreturn]] void leaveOnAbort(Mell::AbortException const& abort);

/// Inside a handler: logs the reason and throws a failure.
[[noreturn]] void leaveOnFailure();

/// Inside a handler: logs what the exception in flight says, where it says something. The user sees
/// one text for all failures, so the reason is at least in the log.
void logReason();

/// Runs one service call. `onLeave` is called before an exception goes on, to free what the job
/// holds.
template <typename Call, typename OnLeave>
auto run(Call&& call, OnLeave&& onLeave)
{
    try {
        return call();
    } catch (Mell::AbortException& abort) {
        onLeave();
        leaveOnAbort(abort);
    } catch (...) {
        onLeave();
        leaveOnFailure();
    }
}

template <typename Call>
auto run(Call&& call)
{
    return run(call, [] {});
}

}  // namespace ServiceCall

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutFailure.h"
#include "platform/jobs/Exceptions.h"

/// How a job leaves a mesh service that throws. Only an abort with the exact text of a user's
/// cancel stays an abort; all else becomes a plain failure, an exception of type char const*.
namespace ServiceCall {

/// Logs the abort and throws: a copy of it if it is the user's cancel, else a failure.
[[noreturn]] void leaveOnAbort(Mell::AbortException const& abort);

/// Inside a handler: notes the reason and throws a failure.
[[noreturn]] void leaveOnFailure(CutFailure& failure);

/// Inside a handler: logs what the exception in flight says and keeps it in `failure`, with the
/// place that it names; one that says nothing leaves both alone. What a job throws on a failure
/// bears no text, so this is how the reason gets out of it.
void noteReason(CutFailure& failure);

/// Runs one service call.
///
/// failure  receives why the service failed
/// throws   as leaveOnAbort and leaveOnFailure
template <typename Call>
auto run(CutFailure& failure, Call&& call)
{
    try {
        return call();
    } catch (Mell::AbortException& abort) {
        leaveOnAbort(abort);
    } catch (...) {
        leaveOnFailure(failure);
    }
}

}  // namespace ServiceCall

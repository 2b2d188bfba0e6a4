// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"

#include <string>

/// How a job leaves a mesh service that throws. Only an abort with the exact text of a user's
/// cancel stays an abort; all else becomes a plain failure, an exception of type char const*.
namespace ServiceCall {

/// Logs the abort and throws: a copy of it if it is the user's cancel, else a failure.
[[noreturn]] void leaveOnAbort(Mell::AbortException const& abort);

/// Inside a handler: notes the reason and throws a failure.
[[noreturn]] void leaveOnFailure(std::string& reason);

/// Inside a handler: logs what the exception in flight says and keeps it in `reason`; one that says
/// nothing leaves both alone. A failure bears no text, so this is how its reason gets out of a job.
void noteReason(std::string& reason);

/// Runs one service call.
///
/// reason  receives the sentence of the service that failed
/// throws  as leaveOnAbort and leaveOnFailure
template <typename Call>
auto run(std::string& reason, Call&& call)
{
    try {
        return call();
    } catch (Mell::AbortException& abort) {
        leaveOnAbort(abort);
    } catch (...) {
        leaveOnFailure(reason);
    }
}

}  // namespace ServiceCall

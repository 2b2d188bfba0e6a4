// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ServiceCall.h"

#include "platform/jobs/ConsoleSingleton.h"

#include <exception>
#include <string>

namespace ServiceCall {

namespace {

constexpr char const* failure = "";

}  // namespace

void leaveOnAbort(Mell::AbortException const& abort)
{
    Base::ConsoleSingleton::Instance().Log("Command Abort.");
    std::string const text = abort.what();
    if (text == "Aborting...")
        throw Mell::AbortException(abort);
    throw failure;
}

void logReason()
{
    try {
        throw;
    } catch (Mell::Exception const& e) {
        Base::ConsoleSingleton::Instance().Log(e.what());
    } catch (std::exception const& e) {
        Base::ConsoleSingleton::Instance().Log(e.what());
    } catch (...) {
    }
}

void leaveOnFailure()
{
    logReason();
    throw failure;
}

}  // namespace ServiceCall

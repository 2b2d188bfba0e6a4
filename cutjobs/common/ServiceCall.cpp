// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ServiceCall.h"

#include "platform/jobs/ConsoleSingleton.h"

#include <exception>

namespace ServiceCall {

namespace {

constexpr char const* failure = "";

void note(std::string& reason, char const* text)
{
    Base::ConsoleSingleton::Instance().Log(text);
    reason = text;
}

}  // namespace

void leaveOnAbort(Mell::AbortException const& abort)
{
    Base::ConsoleSingleton::Instance().Log("Command Abort.");
    std::string const text = abort.what();
    if (text == "Aborting...")
        throw Mell::AbortException(abort);
    throw failure;
}

void noteReason(std::string& reason)
{
    try {
        throw;
    } catch (Mell::Exception const& e) {
        note(reason, e.what());
    } catch (std::exception const& e) {
        note(reason, e.what());
    } catch (...) {
    }
}

void leaveOnFailure(std::string& reason)
{
    noteReason(reason);
    throw failure;
}

}  // namespace ServiceCall

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ServiceCall.h"

#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/FlawException.h"

#include <exception>

namespace ServiceCall {

namespace {

constexpr char const* withoutText = "";

void note(CutFailure& failure, char const* text)
{
    Base::ConsoleSingleton::Instance().Log(text);
    failure.reason = text;
    failure.place.reset();
    failure.repairMayHelp = false;
}

}  // namespace

void leaveOnAbort(Mell::AbortException const& abort)
{
    Base::ConsoleSingleton::Instance().Log("Command Abort.");
    std::string const text = abort.what();
    if (text == "Aborting...")
        throw Mell::AbortException(abort);
    throw withoutText;
}

void noteReason(CutFailure& failure)
{
    try {
        throw;
    } catch (Mell::FlawException const& e) {
        note(failure, e.what());
        failure.place = e.place();
        failure.repairMayHelp = e.repairMayHelp();
    } catch (Mell::Exception const& e) {
        note(failure, e.what());
    } catch (std::exception const& e) {
        note(failure, e.what());
    } catch (...) {
    }
}

void leaveOnFailure(CutFailure& failure)
{
    noteReason(failure);
    throw withoutText;
}

}  // namespace ServiceCall

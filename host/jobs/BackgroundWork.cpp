// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/BackgroundWork.h"

#include <tbb/task_scheduler_observer.h>

#include <atomic>
#include <memory>
#include <sys/resource.h>

namespace BackgroundWork {

namespace {

/// A third of the share of a thread that draws, where both want the same core. More would have work
/// starve beside other programs.
constexpr int workNiceness = 5;

std::atomic<bool> isGivingWay = false;

void lowerThread()
{
#ifdef __linux__
    // There the priority is that of one thread. Nobody may raise it again, and who stands back
    // farther stays there; a refusal does no harm.
    if (::getpriority(PRIO_PROCESS, 0) < workNiceness)
        (void)::setpriority(PRIO_PROCESS, 0, workNiceness);
#endif
}

/// The threads of parallel loops are shared by all; one that comes to help this thread is lowered.
class Helpers : public tbb::task_scheduler_observer
{
public:
    Helpers() { observe(true); }
    ~Helpers() override { observe(false); }

    void on_scheduler_entry(bool) override { lowerThread(); }
};

}  // namespace

void setGivingWay(bool isOn)
{
    isGivingWay = isOn;
}

void giveWay()
{
    if (!isGivingWay)
        return;
    lowerThread();
    thread_local std::unique_ptr<Helpers> helpers;
    if (!helpers)
        helpers = std::make_unique<Helpers>();
}

}  // namespace BackgroundWork

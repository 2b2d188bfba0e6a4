// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorProgress.h"

#include "platform/jobs/Exceptions.h"
#include "platform/jobs/ProgressSink.h"

#include <algorithm>
#include <chrono>

namespace ConnectorProgress {

int overall(int x, Share stage, int part, int partCount)
{
    int const percent = int(std::min(x, 100) / 100.0 * stage.span + stage.start);
    return int((percent + part * 100.0) / partCount);
}

std::function<void(int)> stage(std::function<void(int)> progress, Share share, int part,
                               int partCount)
{
    if (!progress)
        return {};
    return [progress = std::move(progress), share, part, partCount](int x) {
        progress(overall(x, share, part, partCount));
    };
}

std::function<void(int)> span(std::function<void(int)> stage, Share share)
{
    if (!stage)
        return {};
    return [stage = std::move(stage), share](int x) {
        stage(int(x / 100.0 * share.span + share.start));
    };
}

Poll poll()
{
    using Clock = std::chrono::steady_clock;
    return [last = Clock::time_point()]() mutable {
        Clock::time_point const now = Clock::now();
        if (now - last < std::chrono::milliseconds(10))
            return;
        last = now;
        std::shared_ptr<Base::ProgressSink> const display = Base::progressSink();
        if (display && display->isCancelRequested())
            throw Mell::AbortException("Aborting...");
    };
}

}  // namespace ConnectorProgress

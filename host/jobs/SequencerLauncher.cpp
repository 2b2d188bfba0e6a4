// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/jobs/SequencerLauncher.h"

#include "platform/jobs/Exceptions.h"
#include "platform/jobs/ProgressSink.h"

#include <mutex>

namespace Base {

namespace {

struct PluggedSink
{
    std::mutex guard;
    std::shared_ptr<ProgressSink> sink;
};

PluggedSink& plugged()
{
    static PluggedSink sink;
    return sink;
}

}  // namespace

void setProgressSink(std::shared_ptr<ProgressSink> sink)
{
    std::lock_guard const lock(plugged().guard);
    plugged().sink.swap(sink);
}

std::shared_ptr<ProgressSink> progressSink()
{
    std::lock_guard const lock(plugged().guard);
    return plugged().sink;
}

struct SequencerLauncher::State
{
    std::shared_ptr<ProgressSink> sink;
    bool cancelEnabled = false;
};

SequencerLauncher::SequencerLauncher(char const* title, std::uint64_t range, bool canStop)
    : m_state(std::make_unique<State>(State{progressSink()}))
{
    if (m_state->sink)
        m_state->sink->begin(title, range);
}

SequencerLauncher::~SequencerLauncher()
{
    if (m_state->sink)
        m_state->sink->end();
}

void SequencerLauncher::setProgress(std::uint64_t value)
{
    if (!m_state->sink)
        return;
    if (m_state->cancelEnabled && m_state->sink->isCancelRequested())
        throw Mell::AbortException("Aborting...");
    m_state->sink->progress(value);
}

void SequencerLauncher::setCancelEnabled(bool enabled)
{
    m_state->cancelEnabled = enabled;
    if (m_state->sink)
        m_state->sink->setCancelEnabled(enabled);
}

}  // namespace Base

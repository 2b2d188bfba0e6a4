// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/ProgressSink.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

/// The progress of the jobs that run, for a window to show; it tells JobGuard when a display opens
/// and closes. Of displays that are open together the one opened last is shown.
///
/// thread  any
class JobProgress final : public Base::ProgressSink
{
public:
    struct State
    {
        bool isOpen = false;
        /// Plain text, as the job gave it.
        QString title;
        /// 0 to 100, whatever the job reports.
        int percent = 0;
        bool canCancel = false;
        bool isCancelRequested = false;
        /// What the job will still take by what it has taken so far; none while that is no guide.
        std::optional<int> secondsLeft;
    };

    State state() const;

    /// Nothing in the first two seconds, nor before the first percent and at the last one. From ten
    /// seconds on in steps of five, from a minute on in whole minutes, so that the number is calm.
    static std::optional<int> secondsLeft(double secondsPassed, int percent);

    /// Asks the jobs that run to stop; those that cannot be cancelled do not heed it. Without a job
    /// it does nothing.
    void requestCancel();

    /// Called whenever the state has changed, on the thread that changed it, and before this
    /// returns, if a listener is there; an empty one takes it away.
    void setListener(std::function<void()> listener);

    void begin(std::string const& title, std::uint64_t range) override;
    void progress(std::uint64_t value) override;
    void setCancelEnabled(bool enabled) override;
    void end() override;
    bool isCancelRequested() const override { return m_isCancelRequested; }

private:
    struct Display
    {
        QString title;
        std::uint64_t range;
        int percent = 0;
        bool canCancel = false;
        std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
    };

    void tell();

    mutable std::mutex m_lock;
    std::vector<Display> m_displays;
    std::atomic<bool> m_isCancelRequested = false;
    std::mutex m_listenerLock;
    std::function<void()> m_listener;
};

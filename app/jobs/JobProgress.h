// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/ProgressSink.h"

#include <QString>

#include <atomic>
#include <functional>
#include <mutex>
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
    };

    State state() const;

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
    };

    void tell();

    mutable std::mutex m_lock;
    std::vector<Display> m_displays;
    std::atomic<bool> m_isCancelRequested = false;
    std::mutex m_listenerLock;
    std::function<void()> m_listener;
};

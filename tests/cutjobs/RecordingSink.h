// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"
#include "platform/jobs/ProgressSink.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

/// A progress sink that keeps what it is told. It is plugged in while it lives.
class RecordingSink : public Base::ProgressSink
{
public:
    /// Called with each value on the job's thread; may throw, or ask for a cancel.
    std::function<void(RecordingSink&, int)> onProgress;

    static std::shared_ptr<RecordingSink> plugIn()
    {
        auto sink = std::make_shared<RecordingSink>();
        Base::setProgressSink(sink);
        return sink;
    }

    void begin(std::string const& title, std::uint64_t range) override
    {
        std::lock_guard const lock(m_guard);
        m_titles.push_back(title);
        m_range = range;
        ++m_open;
        m_changed.notify_all();
    }
    void progress(std::uint64_t value) override
    {
        {
            std::lock_guard const lock(m_guard);
            m_values.push_back(int(value));
        }
        if (onProgress)
            onProgress(*this, int(value));
    }
    void setCancelEnabled(bool enabled) override
    {
        std::lock_guard const lock(m_guard);
        m_isCancelEnabled = enabled;
    }
    void end() override
    {
        std::lock_guard const lock(m_guard);
        --m_open;
        m_changed.notify_all();
    }
    bool isCancelRequested() const override { return m_isCancelRequested; }

    void cancel() { m_isCancelRequested = true; }
    void waitUntilOpen()
    {
        std::unique_lock lock(m_guard);
        m_changed.wait(lock, [this] { return m_open > 0; });
    }
    int openDisplays() const
    {
        std::lock_guard const lock(m_guard);
        return m_open;
    }
    std::vector<std::string> titles() const
    {
        std::lock_guard const lock(m_guard);
        return m_titles;
    }
    std::vector<int> values() const
    {
        std::lock_guard const lock(m_guard);
        return m_values;
    }
    std::uint64_t range() const
    {
        std::lock_guard const lock(m_guard);
        return m_range;
    }
    bool isCancelEnabled() const
    {
        std::lock_guard const lock(m_guard);
        return m_isCancelEnabled;
    }

private:
    mutable std::mutex m_guard;
    std::condition_variable m_changed;
    std::vector<std::string> m_titles;
    std::vector<int> m_values;
    std::uint64_t m_range = 0;
    int m_open = 0;
    bool m_isCancelEnabled = false;
    std::atomic<bool> m_isCancelRequested = false;
};

/// Plugs a sink in for the length of a test.
class PluggedSink
{
public:
    PluggedSink() : m_sink(RecordingSink::plugIn()) {}
    ~PluggedSink() { Base::setProgressSink(nullptr); }
    RecordingSink* operator->() const { return m_sink.get(); }

private:
    std::shared_ptr<RecordingSink> m_sink;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/ProgressSink.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// One call from Python while it runs: whether it has finished, how far it is, and the wish to stop.
class CommandJob : public Base::ProgressSink
{
public:
    struct Step
    {
        int percent;
        std::string title;
        bool operator==(Step const&) const = default;
    };

    explicit CommandJob(std::function<void(CommandJob&)> work) : m_work(std::move(work)) {}

    /// Waits until it has finished, but no longer than that, and returns whether it has. Steps that nobody
    /// has taken yet are appended.
    bool waitFor(std::chrono::milliseconds time, std::vector<Step>& steps);
    /// It ends soon, and nobody asks for what it has made.
    void cancel() { m_isCancelled = true; }

    /// On the thread of the commands.
    void run();

    void begin(std::string const& title, std::uint64_t range) override;
    void progress(std::uint64_t value) override;
    void setCancelEnabled(bool) override {}
    void end() override {}
    bool isCancelRequested() const override { return m_isCancelled; }

private:
    std::function<void(CommandJob&)> m_work;
    std::atomic<bool> m_isCancelled = false;
    std::mutex m_guard;
    std::condition_variable m_hasFinished;
    bool m_isFinished = false;
    std::string m_title;
    std::uint64_t m_range = 100;
    Step m_last = {-1, {}};
    std::vector<Step> m_steps;
};

/// The thread on which all commands of a process run, one after the other, with the Qt application that
/// they need. It begins with the first job; the process's own main thread belongs to Python.
class CommandThread
{
public:
    static CommandThread& instance();

    /// work    is called there; it must not throw
    /// throws  std::runtime_error if there can be no such thread
    std::shared_ptr<CommandJob> start(std::function<void(CommandJob&)> work);

    /// Cancels what runs and waits for its end. No job is taken afterwards.
    void stop();

private:
    void begin();
    void serve(std::function<void()> const& tellReady);
    std::shared_ptr<CommandJob> nextJob();

    std::mutex m_guard;
    std::condition_variable m_hasJob;
    std::deque<std::shared_ptr<CommandJob>> m_waiting;
    std::shared_ptr<CommandJob> m_running;
    std::thread m_thread;
    /// Of the process that has begun it; a forked one has no such thread.
    int m_process = 0;
    bool m_isStopped = false;
};

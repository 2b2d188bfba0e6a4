// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/CommandThread.h"

#include <QApplication>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <future>
#include <stdexcept>
#include <unistd.h>

namespace {

/// What Qt has to say about the desktop is of no use here.
void passFailuresOn(QtMsgType type, QMessageLogContext const&, QString const& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "orbe: %s\n", text.toLocal8Bit().constData());
}

/// An application without a display that leaves the process's locale and environment as they are.
/// See docs/decisions/0020-python-module.md.
class QuietApplication
{
public:
    QuietApplication() : m_formerHandler(qInstallMessageHandler(passFailuresOn))
    {
        std::string const locale = std::setlocale(LC_ALL, nullptr);
        m_application = std::make_unique<QApplication>(m_count, m_arguments);
        std::setlocale(LC_ALL, locale.c_str());
    }
    ~QuietApplication()
    {
        m_application.reset();
        qInstallMessageHandler(m_formerHandler);
    }

private:
    QtMessageHandler m_formerHandler;
    char m_name[5] = "orbe";
    char m_option[10] = "-platform";
    char m_value[10] = "offscreen";
    char* m_arguments[4] = {m_name, m_option, m_value, nullptr};
    int m_count = 3;
    std::unique_ptr<QApplication> m_application;
};

}  // namespace

bool CommandJob::waitFor(std::chrono::milliseconds time, std::vector<Step>& steps)
{
    std::unique_lock lock(m_guard);
    m_hasFinished.wait_for(lock, time, [this] { return m_isFinished; });
    steps.insert(steps.end(), m_steps.begin(), m_steps.end());
    m_steps.clear();
    return m_isFinished;
}

void CommandJob::run()
{
    if (!m_isCancelled)
        m_work(*this);
    std::lock_guard const lock(m_guard);
    m_work = {};
    m_isFinished = true;
    m_hasFinished.notify_all();
}

void CommandJob::begin(std::string const& title, std::uint64_t range)
{
    std::lock_guard const lock(m_guard);
    m_title = title;
    m_range = std::max<std::uint64_t>(range, 1);
}

void CommandJob::progress(std::uint64_t value)
{
    std::lock_guard const lock(m_guard);
    Step step{int(std::min<std::uint64_t>(value * 100 / m_range, 100)), m_title};
    if (step == m_last)
        return;
    m_last = step;
    m_steps.push_back(std::move(step));
}

CommandThread& CommandThread::instance()
{
    static CommandThread thread;
    return thread;
}

std::shared_ptr<CommandJob> CommandThread::start(std::function<void(CommandJob&)> work)
{
    std::lock_guard const lock(m_guard);
    if (m_isStopped)
        throw std::runtime_error("Python is ending, so orbe takes no more work.");
    if (m_process == 0)
        begin();
    if (m_process != getpid())
        throw std::runtime_error(
            "orbe was used before this process was forked, and does not work in it. Start "
            "processes "
            "by the method \"spawn\", or before the first call.");
    m_waiting.push_back(std::make_shared<CommandJob>(std::move(work)));
    m_hasJob.notify_one();
    return m_waiting.back();
}

void CommandThread::begin()
{
    if (QCoreApplication::instance())
        throw std::runtime_error(
            "This process has a Qt application already, and orbe needs one of its own. Use it in "
            "another process.");
    std::promise<void> isReady;
    m_thread = std::thread([&] { serve([&] { isReady.set_value(); }); });
    isReady.get_future().wait();
    m_process = getpid();
}

void CommandThread::serve(std::function<void()> const& tellReady)
{
    QuietApplication const application;
    tellReady();
    while (std::shared_ptr<CommandJob> const job = nextJob())
        job->run();
}

std::shared_ptr<CommandJob> CommandThread::nextJob()
{
    std::unique_lock lock(m_guard);
    m_running.reset();
    m_hasJob.wait(lock, [this] { return m_isStopped || !m_waiting.empty(); });
    if (m_waiting.empty())
        return nullptr;
    m_running = m_waiting.front();
    m_waiting.pop_front();
    return m_running;
}

void CommandThread::stop()
{
    {
        std::lock_guard const lock(m_guard);
        m_isStopped = true;
        if (m_running)
            m_running->cancel();
        for (std::shared_ptr<CommandJob> const& job : m_waiting)
            job->cancel();
        m_hasJob.notify_all();
    }
    if (m_process == getpid())
        m_thread.join();
    else if (m_thread.joinable())
        m_thread.detach();
}

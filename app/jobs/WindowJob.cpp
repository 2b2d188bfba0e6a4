// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/WindowJob.h"

#include "platform/jobs/BackgroundWork.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/jobs/SequencerLauncher.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <string>
#include <utility>

namespace {

constexpr int wholeRange = 100;

}  // namespace

WindowJob::WindowJob(QObject* parent) : QObject(parent) {}

WindowJob::~WindowJob()
{
    m_thread.waitForDone();
}

void WindowJob::start(char const* title, Work work, TakeOver takeOver)
{
    Q_ASSERT(!m_work);
    m_hold = std::make_unique<JobGuard::Hold>();
    m_work = std::make_unique<Work const>(std::move(work));
    m_takeOver = std::move(takeOver);
    m_isStopping = false;
    m_thread.start([this, title = std::string(title)] {
        BackgroundWork::giveWay();
        JobOutcome const outcome = run(title.c_str());
        QMetaObject::invokeMethod(
            this, [this, outcome] { end(outcome); }, Qt::QueuedConnection);
    });
}

JobOutcome WindowJob::run(char const* title) const
{
    try {
        Base::SequencerLauncher launcher(title, wholeRange, true);
        launcher.setCancelEnabled(true);
        (*m_work)([&](int percent) {
            if (m_isStopping)
                throw Mell::AbortException("Aborting...");
            launcher.setProgress(std::uint64_t(std::max(percent, 0)));
        });
        return {};
    } catch (Mell::AbortException const&) {
        Base::ConsoleSingleton::Instance().Log("Command Abort.");
        return {true, {}};
    } catch (Mell::Exception const& error) {
        return {false, QString::fromUtf8(error.what())};
    } catch (std::bad_alloc const&) {
        return {false,
                tr("There is not enough free memory; close other programs, or take fewer parts.")};
    } catch (std::exception const& error) {
        return {false, QString::fromUtf8(error.what())};
    } catch (...) {
        return {false, tr("This could not be done.")};
    }
}

void WindowJob::end(JobOutcome const& outcome)
{
    m_thread.waitForDone();
    std::unique_ptr<Work const> const ended = std::move(m_work);
    TakeOver const takeOver = std::exchange(m_takeOver, {});
    takeOver(outcome);
    // What the user was told or asked may have started the next job.
    if (!m_work)
        m_hold.reset();
    emit finished();
}

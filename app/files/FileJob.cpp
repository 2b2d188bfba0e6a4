// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/FileJob.h"

#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/jobs/SequencerLauncher.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <new>

namespace {

constexpr int wholeRange = 100;

QString outOfMemory()
{
    return QCoreApplication::translate(
        "DocumentFiles", "There is not enough free memory; close other programs and try again.");
}

JobOutcome run(char const* title, FileJob::Work const& work)
{
    try {
        Base::SequencerLauncher launcher(title, wholeRange, true);
        launcher.setCancelEnabled(true);
        work([&](int percent) { launcher.setProgress(std::uint64_t(std::max(percent, 0))); });
        return {};
    } catch (Mell::AbortException const&) {
        Base::ConsoleSingleton::Instance().Log("Command Abort.");
        return {true, {}};
    } catch (Mell::Exception const& error) {
        return {false, QString::fromUtf8(error.what())};
    } catch (std::bad_alloc const&) {
        return {false, outOfMemory()};
    } catch (std::exception const& error) {
        return {false, QString::fromUtf8(error.what())};
    }
}

}  // namespace

FileJob::FileJob(QObject* parent) : QObject(parent) {}

FileJob::~FileJob()
{
    if (m_thread)
        m_thread->wait();
}

void FileJob::start(char const* title, Work work, TakeOver takeOver)
{
    Q_ASSERT(!m_thread);
    m_hold = std::make_unique<JobGuard::Hold>();
    m_outcome = std::make_shared<JobOutcome>();
    m_thread.reset(QThread::create([title = std::string(title), work = std::move(work),
                                    outcome = m_outcome] { *outcome = run(title.c_str(), work); }));
    connect(m_thread.get(), &QThread::finished, this,
            [this, takeOver = std::move(takeOver)] { end(takeOver); });
    m_thread->start();
}

void FileJob::end(TakeOver const& takeOver)
{
    m_thread->wait();
    std::unique_ptr<QThread> const ended = std::move(m_thread);
    JobOutcome const outcome = *m_outcome;
    takeOver(outcome);
    // What the user was told or asked may have started the next job.
    if (!m_thread)
        m_hold.reset();
    emit finished();
}

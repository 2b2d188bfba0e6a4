// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SurveyRunner.h"

#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

namespace Freecut {

namespace {

/// A survey that has run for longer is given up when another one is wanted.
constexpr qint64 mostOutdatedMs = 60;

}  // namespace

SurveyRunner::SurveyRunner()
{
    m_thread.setMaxThreadCount(1);
}

SurveyRunner::~SurveyRunner()
{
    drop();
    m_thread.clear();
    m_thread.waitForDone();
}

void SurveyRunner::ask(Requests requests)
{
    unsigned long const serial = ++m_latest;
    // What has not begun is done by nobody.
    m_thread.clear();
    m_thread.start(
        [this, serial, asked = std::make_shared<Requests const>(std::move(requests))]() mutable {
            run(*asked, serial);
        });
}

void SurveyRunner::drop()
{
    m_done = ++m_latest;
    m_firstWanted = m_latest;
    m_result = {};
    m_thread.clear();
}

void SurveyRunner::finish()
{
    if (!isBusy())
        return;
    m_thread.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void SurveyRunner::run(Requests const& requests, unsigned long serial)
{
    QElapsedTimer timer;
    timer.start();
    ConnectorProgress::Poll const poll = [&] {
        if (m_latest != serial && timer.elapsed() > mostOutdatedMs)
            throw Mell::AbortException("Aborting...");
    };
    auto const result = std::make_shared<Result>();
    try {
        for (SurveyRequest const& request : requests)
            try {
                result->surveys.push_back(surveySection(request, poll));
            } catch (Mell::AbortException const&) {
                throw;
            } catch (Mell::Exception const& reason) {
                result->failures.emplace_back(reason.what());
            }
    } catch (Mell::AbortException const&) {
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, serial, result] { enter(serial, result); }, Qt::QueuedConnection);
}

void SurveyRunner::enter(unsigned long serial, std::shared_ptr<Result> const& result)
{
    if (serial < m_firstWanted || serial <= m_done)
        return;
    m_done = serial;
    m_result = std::move(*result);
    emit ready();
}

}  // namespace Freecut

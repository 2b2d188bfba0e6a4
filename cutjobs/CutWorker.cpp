// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/CutWorker.h"

#include "cutjobs/common/ServiceCall.h"
#include "platform/jobs/Exceptions.h"
#include "platform/jobs/SequencerLauncher.h"

#include <cstdint>
#include <memory>

CutWorker::CutWorker(QObject* parent) : QObject(parent) {}

CutWorker::End CutWorker::runBody(char const* title, Body const& body)
{
    auto const launcher = std::make_unique<Base::SequencerLauncher>(title, 100, true);
    launcher->setCancelEnabled(true);
    auto const progress = [display = launcher.get()](int percent) {
        display->setProgress(std::uint64_t(std::int64_t(percent)));
    };
    try {
        body(progress);
    } catch (Mell::AbortException&) {
        return End::Cancelled;
    } catch (...) {
        // What went through a service call has left its reason already and says nothing here.
        ServiceCall::noteReason(m_failure);
        return End::Failed;
    }
    return End::Done;
}

void CutWorker::runJob(char const* title, Body const& body)
{
    m_failure = {};
    m_remarks.clear();
    switch (runBody(title, body)) {
        case End::Done:
            emit resultReady(true);
            break;
        case End::Cancelled:
            emit processEnd();
            break;
        case End::Failed:
            m_errorMessage = QStringLiteral("An error occurred in triangulate.");
            emit resultReady(false);
            break;
    }
}

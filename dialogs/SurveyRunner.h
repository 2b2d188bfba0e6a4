// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/SectionSurvey.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <vector>

namespace Freecut {

/// Surveys sections on a thread of its own. The newest request wins: of those that wait only the
/// last one is done, and one that runs is given up for it unless it is nearly done, so that what is
/// shown follows a drag.
///
/// thread  the user interface thread; nothing of it waits but finish() and the destructor
class SurveyRunner : public QObject
{
    Q_OBJECT

public:
    using Requests = std::vector<SurveyRequest>;

    /// What became of a request.
    struct Result
    {
        /// One for each part, in the order of the request; those of the parts that can be surveyed.
        std::vector<SectionSurvey> surveys;
        /// Why the others cannot.
        std::vector<std::string> failures;
    };

    SurveyRunner();
    /// Gives up what runs.
    ~SurveyRunner() override;

    /// Asks for a survey of these parts in place of all that was asked for before. ready() follows
    /// unless another request comes.
    void ask(Requests requests);
    /// Forgets what was asked for.
    void drop();
    /// Whether the newest request is not done yet.
    bool isBusy() const { return m_latest != m_done; }
    /// Waits until it is, and has it told.
    void finish();

    /// Of the newest request that is done.
    Result const& result() const { return m_result; }

signals:
    void ready();

private:
    void run(Requests const& requests, unsigned long serial);
    void enter(unsigned long serial, std::shared_ptr<Result> const& result);

    std::atomic<unsigned long> m_latest = 0;
    /// Nothing before this one is to be shown.
    unsigned long m_firstWanted = 0;
    unsigned long m_done = 0;
    Result m_result;
    QThreadPool m_thread;
};

}  // namespace Freecut

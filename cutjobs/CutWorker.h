// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutFailure.h"
#include "cutjobs/common/CutRemark.h"

#include <QObject>
#include <QString>

#include <functional>

/// A worker: runs one cut at a time on the thread it lives on, and ends it by exactly one signal.
///
/// Its front object calls the setters only while no job runs, and reads the result only after
/// resultReady has arrived; the queued signals order the two threads, so there is no lock.
class CutWorker : public QObject
{
    Q_OBJECT

public:
    explicit CutWorker(QObject* parent);

    /// What went wrong in the last job that failed.
    QString getErrorMessage() const { return m_errorMessage; }
    /// Why the last job failed: the sentence of the service that gave up, which the message, the
    /// same for every failure, does not tell. Empty if it gave none, or if the job did not fail.
    QString reason() const { return QString::fromStdString(m_failure.reason); }
    /// The same, with the place and the part, if they are known.
    CutFailure const& failure() const { return m_failure; }
    /// What a person must be told of the last job, part by part; complete once it has ended well.
    CutRemarks const& remarks() const { return m_remarks; }

public slots:
    /// Runs one job to its end. Called on the worker's thread.
    virtual void doWork() = 0;

signals:
    /// The job is over. True: the result may be read; false: the error message holds the reason.
    void resultReady(bool ok);
    /// The user has cancelled the job.
    void processEnd();

protected:
    using Body = std::function<void(std::function<void(int)>)>;
    /// Runs the body inside a progress display with a cancel button and emits the job's signal once
    /// the display has closed. The body leaves by an exception or not at all.
    void runJob(char const* title, Body const& body);
    /// Where the job's service calls leave the reason of a failure, and the job the part at which
    /// it is.
    CutFailure& jobFailure() { return m_failure; }
    /// Where the job leaves its remarks.
    CutRemarks& jobRemarks() { return m_remarks; }
    void addRemarks(CutRemarks const& remarks)
    {
        m_remarks.insert(m_remarks.end(), remarks.begin(), remarks.end());
    }

private:
    enum class End
    {
        Done,
        Cancelled,
        Failed,
    };
    End runBody(char const* title, Body const& body);

    QString m_errorMessage;
    CutFailure m_failure;
    CutRemarks m_remarks;
};

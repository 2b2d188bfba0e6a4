// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

private:
    enum class End
    {
        Done,
        Cancelled,
        Failed,
    };
    End runBody(char const* title, Body const& body);

    QString m_errorMessage;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/CutWorker.h"
#include "cutjobs/WorkerThread.h"

#include <QEventLoop>

#include <string>
#include <vector>

/// A worker whose body is the test's.
class ProbeWorker : public CutWorker
{
    Q_OBJECT

public:
    using Run = std::function<void(std::function<void(int)> const&)>;

    explicit ProbeWorker(Run run) : CutWorker(nullptr), m_run(std::move(run)) {}

public slots:
    void doWork() override { runJob("Probe", m_run); }

private:
    Run m_run;
};

/// A front object that notes what it hears.
class ProbeFront : public QObject
{
    Q_OBJECT

public:
    explicit ProbeFront(ProbeWorker::Run run) : worker(new ProbeWorker(std::move(run)))
    {
        WorkerThread::start(m_thread, worker, this);
    }
    ~ProbeFront() override { WorkerThread::end(m_thread); }

    void operate() { emit signalOperate(); }
    void operateAndWait()
    {
        operate();
        m_loop.exec();
    }

    ProbeWorker* worker;
    std::vector<std::string> events;
    QThread* heardOn = nullptr;

signals:
    void signalOperate();

public slots:
    void handleResult(bool ok) { note(ok ? "result true" : "result false"); }
    void processEnd() { note("process end"); }

private:
    void note(char const* event)
    {
        events.push_back(event);
        heardOn = QThread::currentThread();
        m_loop.quit();
    }

    QThread m_thread;
    QEventLoop m_loop;
};

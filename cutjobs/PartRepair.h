// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/CutWorker.h"

#include <QObject>
#include <QThread>

#include <memory>

class MeshKernel;
namespace Base {
class Document;
}

namespace Freecut {

/// The worker of a repair: mends a copy of a part.
class PartRepairImp : public CutWorker
{
    Q_OBJECT

public:
    explicit PartRepairImp(QObject* parent);

    void setPart(Mesh::DocumentObject* part) { m_part = part; }
    /// After a job that ended well: the mended copy; null if there was nothing that it could mend.
    std::shared_ptr<MeshKernel> takeMended() { return std::move(m_mended); }

public slots:
    void doWork() override;

private:
    Mesh::DocumentObject* m_part = nullptr;
    std::shared_ptr<MeshKernel> m_mended;
};

/// Repairs a part of a document in the background, and puts the mended mesh into it, in one step
/// that can be undone.
///
/// thread  the user interface thread, which needs an event loop. The destructor waits for a job
///         that runs
class PartRepair : public QObject
{
    Q_OBJECT

public:
    enum class End
    {
        /// The part is better than it was.
        Mended,
        /// It is as it was: there was nothing that a repair could mend.
        NothingMended,
        /// It is as it was, for the user has cancelled.
        Cancelled,
    };
    Q_ENUM(End)

    explicit PartRepair(QObject* parent = nullptr);
    ~PartRepair() override;

    /// part      of the document; nobody changes it until `finished`
    void start(Mesh::DocumentObject* part, Base::Document* document);

signals:
    void finished(Freecut::PartRepair::End end);
    /// Starts the worker.
    void signalOperate();

public slots:
    void handleResult(bool ok);
    void processEnd();

private:
    QThread m_thread;
    PartRepairImp* m_worker;
    Mesh::DocumentObject* m_part = nullptr;
    Base::Document* m_document = nullptr;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PartRepair.h"

#include "cutjobs/PieceRepair.h"
#include "cutjobs/WorkerThread.h"
#include "cutjobs/common/PartMesh.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/mesh/TakenMesh.h"

namespace Freecut {

PartRepairImp::PartRepairImp(QObject* parent) : CutWorker(parent) {}

void PartRepairImp::doWork()
{
    m_mended.reset();
    runJob(QT_TRANSLATE_NOOP("JobGuard", "Repairing parts"),
           [this](std::function<void(int)> const& progress) {
               MeshKernel const* const kernel = kernelOfPart(m_part);
               if (!kernel)
                   return;
               MeshKernel copy(*kernel);
               if (!repairPiece(copy, Repair::Scope(), progress, 0, jobFailure()).mended.empty())
                   m_mended = asReadOnly(copy);
           });
}

PartRepair::PartRepair(QObject* parent) : QObject(parent), m_worker(new PartRepairImp(nullptr))
{
    WorkerThread::start(m_thread, m_worker, this);
}

PartRepair::~PartRepair()
{
    WorkerThread::end(m_thread);
}

void PartRepair::start(Mesh::DocumentObject* part, Base::Document* document)
{
    m_part = part;
    m_document = document;
    m_worker->setPart(part);
    emit signalOperate();
}

void PartRepair::handleResult(bool ok)
{
    std::shared_ptr<MeshKernel> const mended = ok ? m_worker->takeMended() : nullptr;
    if (mended) {
        m_document->openTransaction(QT_TRANSLATE_NOOP("UndoRedoName", "Repair"));
        m_part->meshProperty->setMesh(mended);
        m_document->commitTransaction();
        m_document->setModified(true);
    }
    emit finished(mended ? End::Mended : End::NothingMended);
}

void PartRepair::processEnd()
{
    emit finished(End::Cancelled);
}

}  // namespace Freecut

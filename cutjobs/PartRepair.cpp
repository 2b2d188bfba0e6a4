// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PartRepair.h"

#include "cutjobs/PieceRepair.h"
#include "cutjobs/WorkerThread.h"
#include "cutjobs/common/PartMesh.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/mesh/MeshKernel.h"

namespace Freecut {

namespace {

/// A kernel that takes over the mesh. One that has handed its mesh out for writing is copied record
/// by record ever after.
std::shared_ptr<MeshKernel> asReadOnly(MeshKernel& kernel)
{
    auto mesh = std::make_unique<UMesh<float>>();
    UMesh<float>& source = *kernel.getMesh();
    mesh->triangles.swap(source.triangles);
    mesh->vertices.swap(source.vertices);
    std::swap(mesh->triangleCount, source.triangleCount);
    std::swap(mesh->vertexCount, source.vertexCount);
    auto taken = std::make_shared<MeshKernel>(mesh.release());
    taken->getMatrix() = kernel.getMatrix();
    taken->UpdateBoundingBox();
    return taken;
}

}  // namespace

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

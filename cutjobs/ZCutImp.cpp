// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/ZCutImp.h"

#include "cutjobs/CutSides.h"
#include "cutjobs/PieceRepair.h"
#include "cutjobs/common/PartMesh.h"
#include "cutjobs/common/PlaneMesh.h"
#include "platform/mesh/MeshKernel.h"

#include <QCoreApplication>

namespace {

PlaneMesh::Corners horizontalPlane(UBox3<float> const& box, UPoint3<float> const* triple)
{
    return PlaneMesh::span(box, triple[0], triple[1], triple[2], PlaneMesh::Reach::Diagonal);
}

}  // namespace

ZCutImp::ZCutImp(QObject* parent) : CutWorker(parent) {}

void ZCutImp::setObjects(std::vector<Mesh::DocumentObject*> objects)
{
    m_objects = std::move(objects);
}

void ZCutImp::setZheight(float height)
{
    m_height = height;
}

void ZCutImp::setReapir(bool repair)
{
    m_repair = repair;
}

void ZCutImp::setRepairsWhole(bool repairsWhole)
{
    m_repairsWhole = repairsWhole;
}

void ZCutImp::setZCutonebyone(bool onebyone)
{
    m_onebyone = onebyone;
}

void ZCutImp::setRubPts(std::vector<UPoint3<float>> points)
{
    m_rubberPoints = std::move(points);
}

std::map<Mesh::DocumentObject*, Mesh::CutFace> ZCutImp::planes() const
{
    std::map<Mesh::DocumentObject*, Mesh::CutFace> planes;
    for (std::size_t i = 0; i < m_objects.size(); ++i)
        if (std::size_t const at = m_onebyone ? 3 * i : 0; at < m_rubberPoints.size())
            planes[m_objects[i]] = {{0, 0, 1}, double(m_rubberPoints[at].Z())};
    return planes;
}

void ZCutImp::doWork()
{
    // Translated for the status bar, which does not show it.
    QCoreApplication::translate("StatusBarMessage", "Section Cut");
    runJob("Section Cut", [this](std::function<void(int)> const& progress) { zCut(progress); });
}

bool ZCutImp::zCut(std::function<void(int)> progress)
{
    std::shared_ptr<MeshKernel> plane;
    if (!m_onebyone) {
        plane = std::make_shared<MeshKernel>();
        calculatezCutMesh(plane->getMesh().get(), m_objects);
    }
    int const partCount = int(m_objects.size());
    for (int i = 0; i < partCount; ++i) {
        Mesh::DocumentObject* const part = m_objects[std::size_t(i)];
        if (m_onebyone) {
            plane = std::make_shared<MeshKernel>();
            calculatezCutMeshonebyone(plane->getMesh().get(), m_objects, i);
        }
        MeshKernel const* const kernel = kernelOfPart(part);
        if (!kernel)
            continue;
        jobFailure().part = part;
        CutSides const sides =
            CutSides::cut(kernel, plane.get(), progress, i, partCount, false, jobFailure());
        addRemarks(sides.remarks(part, false));
        finish(sides, part, progress, (i + 1) * 100 / partCount);
    }
    if (progress)
        progress(100);
    return true;
}

/// Repairs side B and then side A, if that is wanted, and stores what there is.
void ZCutImp::finish(CutSides const& sides, Mesh::DocumentObject* part,
                     std::function<void(int)> const& progress, int shown)
{
    auto const scope =
        m_repairsWhole ? Repair::Scope() : Repair::Scope::madeFrom(*kernelOfPart(part));
    auto const mend = [&](std::shared_ptr<MeshKernel> const& side) {
        // Not to be held while the piece is mended: it would have to be copied.
        bool const hasMesh = side->readMesh() != nullptr;
        return m_repair && hasMesh ? repairPiece(*side, scope, progress, shown, jobFailure())
                                   : Repair::Report();
    };
    Repair::Report reportB = mend(sides.sideB);
    Repair::Report reportA = mend(sides.sideA);
    sides.store(m_result, part);
    if (!sides.sideA->readMesh()->triangles.empty())
        m_repairReports[part].push_back(std::move(reportA));
    if (!sides.sideB->readMesh()->triangles.empty())
        m_repairReports[part].push_back(std::move(reportB));
}

void ZCutImp::calculatezCutMesh(UMesh<float>* mesh, std::vector<Mesh::DocumentObject*> objects)
{
    if (m_rubberPoints.size() < 3)
        return;
    PlaneMesh::fill(mesh, horizontalPlane(boxOfParts(objects), m_rubberPoints.data()));
}

void ZCutImp::calculatezCutMeshonebyone(UMesh<float>* mesh,
                                        std::vector<Mesh::DocumentObject*> objects, int index)
{
    if (index < 0 || index >= int(objects.size()) || index >= int(m_rubberPoints.size() / 3))
        return;
    auto const i = std::size_t(index);
    PlaneMesh::fill(mesh, horizontalPlane(boxOfParts({objects[i]}), &m_rubberPoints[3 * i]));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/SectionCutImp.h"

#include "connectors/LapJointCutter.h"
#include "connectors/PinHoleCutter.h"
#include "connectors/PlaneFrame.h"
#include "connectors/SectionContour.h"
#include "connectors/SectionPlanes.h"
#include "cutjobs/CutSides.h"
#include "cutjobs/common/PartMesh.h"
#include "cutjobs/common/ServiceCall.h"
#include "tools/PlaneGraphicObject.h"

#include <QCoreApplication>

namespace {

/// Runs a connector cut and takes its result over once all of it is there.
///
/// atPart  receives the part whose turn it is
template <typename Cutter>
bool runCutter(Cutter cutter, std::function<void(int)> const& progress, CutResultMap& result,
               CutRemarks& remarks, SectionRecords& sections, Mesh::DocumentObject*& atPart)
{
    cutter.setAtPart([&atPart](Mesh::DocumentObject* part) { atPart = part; });
    try {
        bool const isDone = cutter.execute(progress);
        if (isDone) {
            result = cutter.getResult();
            remarks = cutter.remarks();
            sections = cutter.sections();
        }
        return isDone;
    } catch (Mell::AbortException const& abort) {
        ServiceCall::leaveOnAbort(abort);
    }
}

}  // namespace

SectionCutImp::SectionCutImp(QObject* parent) : CutWorker(parent) {}

SectionCutImp::~SectionCutImp() = default;

void SectionCutImp::setObjects(std::vector<Mesh::DocumentObject*> objects)
{
    m_objects = std::move(objects);
}

void SectionCutImp::setCutType(SECTIONCUTTYPE type)
{
    m_cutType = type;
}

void SectionCutImp::setCheckBoundary(bool checkBoundary)
{
    m_checkBoundary = checkBoundary;
}

void SectionCutImp::setPlaneObject(Freecut::PlaneGraphicObject* plane)
{
    m_plane.reset();
    if (!plane)
        return;
    m_plane = std::make_unique<Freecut::PlaneGraphicObject>();
    m_plane->getProperty().setKeyPoints(plane->getProperty().getKeyPoints());
}

void SectionCutImp::setPinHoleParas(PinHoleParas const& paras)
{
    m_pinHoleParas = paras;
}

void SectionCutImp::setLapJointParas(LapJointParas const& paras)
{
    m_lapJointParas = paras;
}

void SectionCutImp::setMeasuresSections(bool measures)
{
    m_measuresSections = measures;
}

void SectionCutImp::setConnectorPositions(ConnectorPositions positions)
{
    m_connectorPositions = std::move(positions);
}

std::map<Mesh::DocumentObject*, Mesh::CutFace> SectionCutImp::planes() const
{
    auto const points = planeObject().getProperty().getKeyPoints();
    PlaneFrame const frame(std::span<UPoint3<float> const, 5>(points.data(), 5));
    UVector3<float> const& n = frame.normal();
    UPoint3<float> const& centre = frame.centre();
    Mesh::CutFace plane{{n.X(), n.Y(), n.Z()}, 0};
    plane.distance = plane.normal | UVector3<double>(centre.X(), centre.Y(), centre.Z());
    std::map<Mesh::DocumentObject*, Mesh::CutFace> planes;
    for (Mesh::DocumentObject* const part : m_objects)
        planes[part] = plane;
    return planes;
}

void SectionCutImp::doWork()
{
    m_result.clear();
    m_sections.clear();
    runJob("Section Cut", [this](std::function<void(int)> const& progress) {
        switch (m_cutType) {
            case SECTIONCUT_PLANE:
                planeCut(progress);
                break;
            case SECTIONCUT_PINHOLE:
                pinHoleCut(progress);
                break;
            default:
                lapJointCut(progress);
                break;
        }
    });
}

bool SectionCutImp::planeCut(std::function<void(int)> progress)
{
    auto const plane = std::make_shared<MeshKernel>();
    calculateCutPlaneMesh(plane->getMesh().get(), m_objects);
    int const partCount = int(m_objects.size());
    for (int i = 0; i < partCount; ++i) {
        Mesh::DocumentObject* const part = m_objects[std::size_t(i)];
        MeshKernel const* const kernel = kernelOfPart(part);
        if (!kernel)
            continue;
        jobFailure().part = part;
        CutSides const sides = CutSides::cut(kernel, plane.get(), progress, i, partCount,
                                             m_measuresSections, jobFailure());
        addRemarks(sides.remarks(part, m_checkBoundary));
        if (m_measuresSections)
            m_sections[part] = {sectionArea(*sides.section),
                                extractSectionContours(sides.section.get()).size(),
                                {}};
        sides.store(m_result, part);
    }
    if (progress)
        progress(100);
    return true;
}

bool SectionCutImp::pinHoleCut(std::function<void(int)> progress)
{
    PinHoleCutter cutter(m_pinHoleParas, m_checkBoundary, m_objects, &planeObject());
    cutter.setPositions(m_connectorPositions);
    return runCutter(std::move(cutter), progress, m_result, jobRemarks(), m_sections,
                     jobFailure().part);
}

bool SectionCutImp::lapJointCut(std::function<void(int)> progress)
{
    return runCutter(LapJointCutter(m_lapJointParas, m_checkBoundary, m_objects, &planeObject()),
                     progress, m_result, jobRemarks(), m_sections, jobFailure().part);
}

void SectionCutImp::calculateCutPlaneMesh(UMesh<float>* mesh,
                                          std::vector<Mesh::DocumentObject*> objects)
{
    SectionPlanes(planeObject(), objects, m_checkBoundary).calculateCutPlaneMesh(mesh);
}

Freecut::PlaneGraphicObject& SectionCutImp::planeObject() const
{
    if (!m_plane)
        throw Mell::Exception(
            QCoreApplication::translate("CutJobs", "There is no cutting plane. Place one first.")
                .toStdString());
    return *m_plane;
}

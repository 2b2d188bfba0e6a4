// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/SectionPlanes.h"

#include "cutjobs/common/PartMesh.h"
#include "cutjobs/common/PlaneMesh.h"
#include "platform/jobs/Exceptions.h"
#include "tools/PlaneGraphicObject.h"

#include <QCoreApplication>

#include <span>

namespace {

constexpr std::size_t keyPointCount = 5;

std::vector<UPoint3<float>> keyPointsOf(Freecut::PlaneGraphicObject const& plane)
{
    auto const& points = plane.getProperty().getKeyPoints();
    if (points.size() < keyPointCount)
        throw Mell::Exception(
            QCoreApplication::translate("Connectors",
                                        "The cutting plane is not complete. Place it again.")
                .toStdString());
    return points;
}

}  // namespace

SectionPlanes::SectionPlanes(Freecut::PlaneGraphicObject const& plane,
                             std::vector<Mesh::DocumentObject*> const& parts, bool checkBoundary)
    : SectionPlanes(plane, boxOfParts(parts), checkBoundary)
{}

SectionPlanes::SectionPlanes(Freecut::PlaneGraphicObject const& plane, UBox3<float> const& partsBox,
                             bool checkBoundary)
    : m_keyPoints(keyPointsOf(plane)),
      m_partsBox(partsBox),
      m_checkBoundary(checkBoundary),
      m_frame(std::span<UPoint3<float> const, keyPointCount>(m_keyPoints.data(), keyPointCount))
{}

void SectionPlanes::calculateCutPlaneMesh(UMesh<float>* mesh) const
{
    if (m_checkBoundary)
        PlaneMesh::fill(mesh, {m_keyPoints[1], m_keyPoints[2], m_keyPoints[3], m_keyPoints[4]});
    else
        PlaneMesh::fill(mesh, PlaneMesh::span(m_partsBox, m_keyPoints[0], m_keyPoints[1],
                                              m_keyPoints[2], PlaneMesh::Reach::DiagonalAlongAxes));
}

void SectionPlanes::calculateOffsetPlaneMesh(UMesh<float>* base, UMesh<float>* offset,
                                             float distance) const
{
    calculateCutPlaneMesh(base);
    PlaneMesh::Corners corners;
    for (std::size_t i = 0; i < corners.size(); ++i)
        corners[i] = base->vertices[i]->cP() + m_frame.normal() * distance;
    PlaneMesh::fill(offset, corners);
}

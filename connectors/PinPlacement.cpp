// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinPlacement.h"

#include "connectors/CentreLines.h"
#include "connectors/ContourDistance.h"
#include "connectors/LineDistribution.h"
#include "connectors/PlaneFrame.h"
#include "connectors/PlaneGrid.h"
#include "connectors/PolledWork.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/PQPDistance.h"

#include <cmath>

namespace {

using Point = UPoint3<float>;

constexpr double miterLimit = 2.0;
/// In grid units.
constexpr double arcTolerance = 0.25;

}  // namespace

std::vector<Point> PinPlacement::computePositions(std::vector<SectionContour> const& contours,
                                                  MeshKernel* cap) const
{
    return m_paras.isSidedis ? besideContours(contours, cap) : onCentreLines(contours, cap);
}

std::vector<std::vector<Point>> PinPlacement::linesBesideContours(
    std::vector<SectionContour> const& contours) const
{
    return runPolled([contours, frame = m_frame,
                      inset = m_paras.sidedistance] { return linesAt(inset, contours, frame); },
                     m_poll);
}

std::vector<std::vector<Point>> PinPlacement::linesAt(float inset,
                                                      std::vector<SectionContour> const& contours,
                                                      PlaneFrame const& frame)
{
    float const delta = std::trunc(inset * -1.0f * 1000.0f);
    std::vector<std::vector<Point>> lines;
    for (SectionContour const& contour : contours) {
        // One contour at a time counts as an outer one, whatever its direction.
        ClipperLib::ClipperOffset offsetter(miterLimit, arcTolerance);
        offsetter.AddPaths({PlaneGrid::pathOf(contour, frame)}, ClipperLib::jtRound,
                           ClipperLib::etClosedPolygon);
        ClipperLib::Paths moved;
        offsetter.Execute(moved, double(delta));
        for (ClipperLib::Path const& path : moved) {
            if (path.empty())
                continue;
            std::vector<Point> line = PlaneGrid::pointsOf(path, frame);
            line.push_back(line.front());
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

std::vector<Point> PinPlacement::besideContours(std::vector<SectionContour> const& contours,
                                                MeshKernel* cap) const
{
    std::vector<Point> positions =
        distributeAlongLines(linesBesideContours(contours), m_paras.spacing, m_poll);
    PQPDistance const section(cap, {});
    std::erase_if(positions, [&](Point const& p) {
        if (m_poll)
            m_poll();
        return std::abs(section.distance(p)) >= double(m_paras.radius);
    });
    return positions;
}

std::vector<Point> PinPlacement::onCentreLines(std::vector<SectionContour> const& contours,
                                               MeshKernel* cap) const
{
    float const clearance = m_paras.sideclearance + m_paras.radius;
    ContourDistance const distances(contours);
    std::vector<Point> positions = distributeAlongLines(
        extractCentreLines(*cap->getMesh(), distances, clearance, m_poll), m_paras.spacing, m_poll);
    ContourDistance::Recall recall;
    if (m_paras.keepClear)
        std::erase_if(positions, [&](Point const& p) {
            return !isClearOfContours(distances, p, clearance, recall);
        });
    return positions;
}

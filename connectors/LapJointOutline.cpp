// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LapJointOutline.h"

#include "connectors/PlaneFrame.h"
#include "connectors/PlaneGrid.h"
#include "connectors/PolledWork.h"
#include "platform/mesh/UMesh.h"

namespace {

enum BasedOn
{
    outerContours = 0,
    innerContours = 1,
};

POLYGON::Polygons moved(POLYGON::Polygons const& polygons, int delta)
{
    return polygons.offset(delta, ClipperLib::jtMiter, 1.2, 10.0, true);
}

}  // namespace

POLYGON::Polygons LapJointOutline::of(std::vector<SectionContour> const& contours,
                                      bool tongue) const
{
    std::vector<ClipperLib::Path> const paths = keptPaths(contours);
    if (paths.empty())
        return {};
    POLYGON::Polygons polygons(paths);
    if (m_paras.basedOn == innerContours)
        return aroundHoles(polygons, tongue);
    return moved(polygons, insetOfOuter(tongue));
}

POLYGON::Polygons LapJointOutline::polled(LapJointParas const& paras, PlaneFrame const& frame,
                                          std::shared_ptr<UMesh<float> const> basePlane,
                                          std::vector<SectionContour> const& contours, bool tongue,
                                          ConnectorProgress::Poll const& poll)
{
    return runPolled(
        [paras, frame, basePlane = std::move(basePlane), contours, tongue] {
            return LapJointOutline(paras, frame, *basePlane).of(contours, tongue);
        },
        poll);
}

std::vector<ClipperLib::Path> LapJointOutline::keptPaths(
    std::vector<SectionContour> const& contours) const
{
    std::vector<ClipperLib::Path> paths;
    for (SectionContour const& contour : contours) {
        ClipperLib::Path path = PlaneGrid::pathOf(contour, m_frame);
        bool const isHole = ClipperLib::Orientation(path);
        if ((m_paras.basedOn == outerContours && isHole) ||
            (m_paras.basedOn == innerContours && !isHole))
            continue;
        paths.push_back(std::move(path));
    }
    return paths;
}

int LapJointOutline::insetOfOuter(bool tongue) const
{
    if (tongue)
        return int(m_paras.sideDistance * -1.0 * 1000.0);
    // Contours that are not moved at all would leave walls in the part's surface.
    if (m_paras.sideDistance == m_paras.notchClearance)
        return 1;
    return int((m_paras.notchClearance - m_paras.sideDistance) * 1000.0);
}

int LapJointOutline::growthOfHole(bool tongue) const
{
    if (tongue)
        return int(m_paras.sideDistance * 1000.0);
    if (m_paras.sideDistance == m_paras.notchClearance)
        return 1;
    return int((m_paras.sideDistance - m_paras.notchClearance) * 1000.0);
}

/// The plane's rectangle less the grown holes.
POLYGON::Polygons LapJointOutline::aroundHoles(POLYGON::Polygons& holes, bool tongue) const
{
    ClipperLib::Path rectangle;
    for (std::size_t i = 0; i < 4; ++i)
        rectangle.push_back(PlaneGrid::toGrid(m_frame.toPlaneLocal(m_basePlane.vertices[i]->cP())));
    ClipperLib::Clipper clipper(0);
    clipper.AddPath(rectangle, ClipperLib::ptSubject, true);
    for (unsigned k = 0; k < holes.size(); ++k) {
        POLYGON::Polygons hole;
        hole.add(holes[k]);
        POLYGON::Polygons grown = moved(hole, growthOfHole(tongue));
        grown.add(holes[k]);
        clipper.AddPaths(grown.getPaths(), ClipperLib::ptClip, true);
    }
    ClipperLib::Paths left;
    if (!clipper.Execute(ClipperLib::ctDifference, left, ClipperLib::pftNonZero,
                         ClipperLib::pftNonZero))
        return {};
    POLYGON::Polygons const outline(left);
    return !tongue && outline.size() > 0 ? moved(outline, 1) : outline;
}

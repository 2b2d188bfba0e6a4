// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PlaneGrid.h"

#include "connectors/PathThinning.h"
#include "connectors/PlaneFrame.h"

namespace PlaneGrid {

namespace {

/// Offsetting takes time that grows with the square of the points, and nobody can cancel it.
constexpr std::size_t mostPoints = 4000;
constexpr double thinningTolerance = 1;

}  // namespace

ClipperLib::IntPoint toGrid(UPoint3<float> const& local)
{
    return {ClipperLib::cInt(local.X() * 1000.0f), ClipperLib::cInt(local.Y() * 1000.0f)};
}

UPoint3<float> fromGrid(ClipperLib::IntPoint const& point)
{
    return {float(double(point.X) / 1000.0), float(double(point.Y) / 1000.0), 0};
}

ClipperLib::Path pathOf(SectionContour const& contour, PlaneFrame const& frame)
{
    ClipperLib::Path path;
    path.reserve(contour.size());
    for (UPoint3<float> const& p : contour)
        path.push_back(toGrid(frame.toPlaneLocal(p)));
    return path.size() > mostPoints ? thinned(path, thinningTolerance) : path;
}

SectionContour pointsOf(ClipperLib::Path const& path, PlaneFrame const& frame)
{
    SectionContour points;
    points.reserve(path.size() + 1);
    for (ClipperLib::IntPoint const& p : path)
        points.push_back(frame.fromPlaneLocal(fromGrid(p)));
    return points;
}

}  // namespace PlaneGrid

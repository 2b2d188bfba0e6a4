// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/OutlineOffset.h"

#include "tools/OffsetEffort.h"

#include <cstdint>

namespace Freecut {

namespace {

constexpr double gridUnitsPerMm = 1000.0;

/// Some five seconds of work.
constexpr double mostEffort = 5e7;

double onGrid(double distance)
{
    return double(std::int64_t(distance * gridUnitsPerMm));
}

ClipperLib::Paths pathsOf(Loops const& outlines, SketchPlane const& plane)
{
    ClipperLib::Paths paths;
    paths.reserve(outlines.size());
    for (Ring const& ring : outlines) {
        ClipperLib::Path& path = paths.emplace_back();
        path.reserve(ring.size());
        for (UPoint3<float> const& point : ring) {
            UPoint3<float> const eye = plane.toEye(point);
            path.emplace_back(std::int64_t(eye.X() * 1000.0f), std::int64_t(eye.Y() * 1000.0f));
        }
    }
    return paths;
}

}  // namespace

OutlineOffset::OutlineOffset(Loops const& outlines, SketchPlane const& plane)
    : m_plane(plane), m_paths(pathsOf(outlines, plane))
{
    for (ClipperLib::Path const& path : m_paths)
        m_pointCount += path.size();
}

bool OutlineOffset::isTooComplicated(double distance) const
{
    // Each edge and each corner meets every corner at most.
    double const points = double(m_pointCount);
    return 2 * points * points > mostEffort && offsetEffort(m_paths, onGrid(distance)) > mostEffort;
}

Loops OutlineOffset::moved(double distance) const
{
    ClipperLib::ClipperOffset offset(2.0, 0.25);
    offset.AddPaths(m_paths, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    ClipperLib::Paths paths;
    offset.Execute(paths, onGrid(distance));
    Loops outlines;
    outlines.reserve(paths.size());
    for (ClipperLib::Path const& path : paths) {
        Ring& ring = outlines.emplace_back();
        ring.reserve(path.size());
        for (ClipperLib::IntPoint const& point : path)
            ring.push_back(m_plane.toWorld(float(double(point.X) / gridUnitsPerMm),
                                           float(double(point.Y) / gridUnitsPerMm)));
    }
    return outlines;
}

}  // namespace Freecut

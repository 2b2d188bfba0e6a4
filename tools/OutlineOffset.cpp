// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/OutlineOffset.h"

#include <cstdint>

namespace Freecut {

namespace {

constexpr double gridUnitsPerMm = 1000.0;

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
    : m_plane(plane), m_offset(2.0, 0.25)
{
    m_offset.AddPaths(pathsOf(outlines, plane), ClipperLib::jtRound, ClipperLib::etClosedPolygon);
}

Loops OutlineOffset::moved(double distance)
{
    ClipperLib::Paths paths;
    m_offset.Execute(paths, double(std::int64_t(distance * gridUnitsPerMm)));
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GLCamera.h"
#include "tests/tools/FlatShapes.h"
#include "tools/VolumeOutline.h"

#include <algorithm>

/// From where a tool is drawn.
inline GLCamera cameraFrom(UVector3<double> direction, UVector3<double> const& up)
{
    GLCamera camera;
    camera.set_axes(direction.Normalize(), up);
    return camera;
}

/// From above: x to the right, y up.
inline GLCamera topCamera()
{
    return cameraFrom({0, 0, 1}, {0, 1, 0});
}

/// A view along no axis, about a point that is not the origin.
inline GLCamera freeCamera()
{
    GLCamera camera = cameraFrom({1, -2, 3}, {0, 0, 1});
    camera.set_ref(10, -20, 5, true);
    return camera;
}

/// The outline as it is seen on the screen.
inline Freecut::FlatRing seen(Freecut::Ring const& ring, GLCamera const& camera)
{
    Freecut::FlatRing flat;
    for (UPoint3<float> point : ring) {
        camera.WCSToViewCSpoint(point);
        flat.emplace_back(point.X(), point.Y());
    }
    return flat;
}

inline double distanceFromSegment(UPoint2<float> const& p, UPoint2<float> const& a,
                                  UPoint2<float> const& b)
{
    double const dx = double(b.X()) - a.X(), dy = double(b.Y()) - a.Y();
    double const px = double(p.X()) - a.X(), py = double(p.Y()) - a.Y();
    double const squared = dx * dx + dy * dy;
    double const t = squared > 0 ? std::clamp((px * dx + py * dy) / squared, 0.0, 1.0) : 0;
    return std::hypot(px - t * dx, py - t * dy);
}

/// The distance of a point from the nearest side of a loop.
inline double distanceFromLoop(UPoint2<float> const& p, Freecut::FlatRing const& loop)
{
    double least = 1e30;
    for (std::size_t i = 0; i < loop.size(); ++i)
        least = std::min(least, distanceFromSegment(p, loop[i], loop[(i + 1) % loop.size()]));
    return least;
}

/// Between the nearest and the farthest point of a loop from another one, points along its sides
/// counted, too.
struct DistanceRange
{
    double least = 1e30;
    double most = 0;
};

inline DistanceRange distancesBetween(Freecut::FlatRing const& loop, Freecut::FlatRing const& other)
{
    DistanceRange range;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        UPoint2<float> const& p = loop[i];
        UPoint2<float> const& q = loop[(i + 1) % loop.size()];
        for (float const t : {0.0f, 0.25f, 0.5f, 0.75f}) {
            UPoint2<float> const at(p.X() + t * (q.X() - p.X()), p.Y() + t * (q.Y() - p.Y()));
            double const distance = distanceFromLoop(at, other);
            range.least = std::min(range.least, distance);
            range.most = std::max(range.most, distance);
        }
    }
    return range;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

#include <cmath>

/// Outlines and measures in a plane, for tests.

/// Twice the area inside a loop is the sum of its cross products; anticlockwise is positive. The
/// last point is joined with the first, repeated or not.
inline double signedArea(Freecut::FlatRing const& loop)
{
    double sum = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        auto const& p = loop[i];
        auto const& q = loop[(i + 1) % loop.size()];
        sum += double(p.X()) * q.Y() - double(q.X()) * p.Y();
    }
    return sum / 2;
}

/// How often a loop runs around a point, by the angles under which its edges are seen.
inline int windingOf(Freecut::FlatRing const& loop, double x, double y)
{
    double angle = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        auto const& p = loop[i];
        auto const& q = loop[(i + 1) % loop.size()];
        double const px = p.X() - x, py = p.Y() - y, qx = q.X() - x, qy = q.Y() - y;
        angle += std::atan2(px * qy - py * qx, px * qx + py * qy);
    }
    return int(std::lround(angle / (2 * M_PI)));
}

/// Points on a circle, anticlockwise from the right.
inline Freecut::FlatRing circlePoints(float radius, int count, UPoint2<float> const& centre = {})
{
    Freecut::FlatRing ring;
    for (int i = 0; i < count; ++i) {
        double const angle = 2 * M_PI * i / count;
        ring.push_back({centre.X() + float(radius * std::cos(angle)),
                        centre.Y() + float(radius * std::sin(angle))});
    }
    return ring;
}

/// Whole numbers, as outlines are when they are resolved.
inline Freecut::FlatRing wholeNumbers(Freecut::FlatRing ring)
{
    for (auto& p : ring)
        p = {std::trunc(p.X()), std::trunc(p.Y())};
    return ring;
}

/// Anticlockwise, five edges through the middle.
inline Freecut::FlatRing pentagram(float radius)
{
    Freecut::FlatRing const corners = circlePoints(radius, 5);
    return wholeNumbers({corners[0], corners[2], corners[4], corners[1], corners[3]});
}

/// Strokes to and fro across others up and down: each of the first crosses each of the others.
/// From (0, 0) on, in a square of strokes + 1 units times the spacing.
inline Freecut::FlatRing crossHatch(int strokes, float spacing)
{
    Freecut::FlatRing ring;
    float const far = float(strokes + 1);
    for (int i = 0; i < strokes; ++i) {
        float const at = float(i + 1), from = i % 2 ? far : 0;
        ring.push_back({from * spacing, at * spacing});
        ring.push_back({(far - from) * spacing, at * spacing});
    }
    for (int i = strokes; i-- > 0;) {
        float const at = float(i + 1), from = i % 2 ? 0 : far;
        ring.push_back({at * spacing, from * spacing});
        ring.push_back({at * spacing, (far - from) * spacing});
    }
    return ring;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PointUnderMouse.h"

#include <algorithm>

namespace Freecut {

namespace {

using Point = UPoint3<float>;

/// The point at the share t of the way from one point to another.
Point between(Point const& start, Point const& end, double t)
{
    return end * float(t) + start * float(1 - t);
}

/// The share of the way along an edge's image at which the mouse is, without limits.
double shareAlong(QPoint edge, QPoint mouse)
{
    return edge.x() != 0 ? double(mouse.x()) / edge.x() : double(mouse.y()) / edge.y();
}

/// For an image without area; `edge1`, `edge2` and `mouse` are seen from the first corner's image.
Point onCollapsedTriangle(std::array<Point, 3> const& corners, QPoint edge1, QPoint edge2,
                          QPoint mouse)
{
    if (!edge1.isNull())
        return between(corners[0], corners[1], std::clamp(shareAlong(edge1, mouse), 0.0, 1.0));
    if (edge2.isNull())
        return corners[0];
    double const t = shareAlong(edge2, mouse);
    // An upright image may run beyond its edge: so it is meant to be.
    return between(corners[0], corners[2], edge2.x() != 0 ? std::clamp(t, 0.0, 1.0) : t);
}

}  // namespace

UPoint3<float> pointUnderMouse(std::array<UPoint3<float>, 3> const& corners,
                               std::array<QPoint, 3> const& images, QPoint mouse)
{
    QPoint const edge1 = images[1] - images[0];
    QPoint const edge2 = images[2] - images[0];
    QPoint const m = mouse - images[0];
    double const a = edge2.x(), b = edge2.y(), c = edge1.x(), d = edge1.y();
    double const det = a * d - b * c;
    if (det == 0)
        return onCollapsedTriangle(corners, edge1, edge2, m);
    double const u = c == 0 ? m.x() / a : (d * m.x() - c * m.y()) / det;
    double const v = c == 0 ? (m.y() - b * u) / d : (m.x() - a * u) / c;
    return corners[0] + (corners[2] - corners[0]) * float(u) + (corners[1] - corners[0]) * float(v);
}

}  // namespace Freecut

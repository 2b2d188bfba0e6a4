// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/HandleShape.h"

#include "platform/view/GLView.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Vector = UVector3<double>;

/// Shares of the height of the view, and of the length of an arrow.
constexpr double reachOfView = 0.16;
constexpr double gap = 0.12;
constexpr double headLength = 0.14;
constexpr double headWidth = 0.05;
constexpr double ringRadius = 0.75;
constexpr int ringSegments = 64;
constexpr double reachPixels = 7;
/// Of the sine between the line of sight and what is dragged along.
constexpr double leastSine = 0.12;

Vector axisVector(int axis)
{
    Vector vector;
    vector[axis] = 1;
    return vector;
}

double distance(QPointF const& p, QPointF const& a, QPointF const& b)
{
    QPointF const along = b - a;
    double const square = QPointF::dotProduct(along, along);
    double const share =
        square > 0 ? std::clamp(QPointF::dotProduct(p - a, along) / square, 0.0, 1.0) : 0;
    QPointF const rest = p - a - along * share;
    return std::hypot(rest.x(), rest.y());
}

}  // namespace

HandleShape::HandleShape(Base::GLView const& view, UPoint3<float> const& pivot)
    : m_view(view), m_pivot(pivot.X(), pivot.Y(), pivot.Z())
{
    double width = 0, height = 0;
    view.getCamera()->get_view_rect(width, height);
    m_reach = std::min(width, height) * reachOfView;
    int x = 0, y = 0;
    view.getWidgetcoordFromWCS(pivot, x, y);
    UPoint3<double> origin;
    view.getCamera()->sightRay(x, y, origin, m_sight);
}

bool HandleShape::isUsable(int handle) const
{
    double const cosine = std::abs(m_sight[axisOf(handle)]);
    return isRing(handle) ? cosine > leastSine : std::sqrt(1 - cosine * cosine) > leastSine;
}

std::vector<UPoint3<float>> HandleShape::lines(int handle) const
{
    std::vector<UPoint3<float>> points;
    if (!isUsable(handle))
        return points;
    Vector const along = axisVector(axisOf(handle));
    Vector const a = axisVector((axisOf(handle) + 1) % 3), b = axisVector((axisOf(handle) + 2) % 3);
    auto const add = [&](Vector const& offset) {
        Vector const p = offset * m_reach;
        points.emplace_back(float(m_pivot.X() + p.X()), float(m_pivot.Y() + p.Y()),
                            float(m_pivot.Z() + p.Z()));
    };
    if (!isRing(handle)) {
        add(along * gap);
        add(along);
        for (Vector const& side : {a, -a, b, -b}) {
            add(along);
            add(along * (1 - headLength) + side * headWidth);
        }
        return points;
    }
    auto const onRing = [&](int i) {
        double const angle = 2 * std::numbers::pi * i / ringSegments;
        return (a * std::cos(angle) + b * std::sin(angle)) * ringRadius;
    };
    for (int i = 0; i < ringSegments; ++i) {
        add(onRing(i));
        add(onRing(i + 1));
    }
    return points;
}

int HandleShape::at(QPoint position) const
{
    int nearest = -1;
    double least = reachPixels;
    for (int handle = 0; handle < count; ++handle) {
        auto const points = lines(handle);
        for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
            QPoint from, to;
            m_view.getWidgetcoordFromWCS(points[i], from.rx(), from.ry());
            m_view.getWidgetcoordFromWCS(points[i + 1], to.rx(), to.ry());
            double const d = distance(position, from, to);
            if (d < least) {
                least = d;
                nearest = handle;
            }
        }
    }
    return nearest;
}

std::optional<double> HandleShape::valueAt(int handle, QPoint position) const
{
    UPoint3<double> origin;
    Vector sight;
    m_view.getCamera()->sightRay(position.x(), position.y(), origin, sight);
    int const axis = axisOf(handle);
    Vector const toPivot = m_pivot - origin;
    if (!isRing(handle)) {
        // Of the axis the point that is nearest to the line of sight.
        double const cosine = sight[axis];
        double const square = 1 - cosine * cosine;
        if (square < leastSine * leastSine)
            return {};
        return (cosine * (sight | toPivot) - toPivot[axis]) / square;
    }
    if (std::abs(sight[axis]) < leastSine)
        return {};
    Vector const p = sight * (toPivot[axis] / sight[axis]) - toPivot;
    return std::atan2(p[(axis + 2) % 3], p[(axis + 1) % 3]) * 180 / std::numbers::pi;
}

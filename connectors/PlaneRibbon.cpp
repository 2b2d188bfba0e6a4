// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PlaneRibbon.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Point = UPoint3<float>;
using Triangle = UTriangle<float>;

/// The section point on an edge may round onto the edge's end. That end then lies within some last
/// places of its coordinates from the plane, which are far smaller than this share of them.
constexpr double nearness = 1e-6;
constexpr std::size_t pollEvery = 1 << 16;

/// Heights over a plane mesh.
class Heights
{
public:
    explicit Heights(MeshKernel const& plane)
    {
        Triangle const& t = *plane.readMesh()->triangles.front();
        m_origin = wide(t.cP(0));
        m_normal = (wide(t.cP(1)) - m_origin) * (wide(t.cP(2)) - m_origin);
        m_normal.Normalize();
    }

    double of(Point const& p) const { return (wide(p) - m_origin) | m_normal; }

private:
    static UVector3<double> wide(Point const& p) { return {p.X(), p.Y(), p.Z()}; }

    UVector3<double> m_origin;
    UVector3<double> m_normal;
};

double marginAt(Point const& p)
{
    return nearness * (std::abs(double(p.X())) + std::abs(double(p.Y())) + std::abs(double(p.Z())));
}

}  // namespace

PlaneRibbon PlaneRibbon::of(PlacedMesh const& part, MeshKernel const& plane,
                            ConnectorProgress::Poll const& poll)
{
    Heights const heights(plane);
    constexpr double most = std::numeric_limits<double>::max();
    PlaneRibbon ribbon{nullptr, most, -most};
    std::vector<Triangle*> kept;
    std::size_t untilPoll = 0;
    for (Triangle* const t : part.mesh->triangles) {
        if (untilPoll-- == 0) {
            untilPoll = pollEvery;
            if (poll)
                poll();
        }
        bool isAbove = true, isBelow = true;
        for (int i = 0; i < 3; ++i) {
            Point const p = part.placed(t->cP(i));
            double const height = heights.of(p), margin = marginAt(p);
            ribbon.lowest = std::min(ribbon.lowest, height);
            ribbon.highest = std::max(ribbon.highest, height);
            isAbove = isAbove && height > margin;
            isBelow = isBelow && height < -margin;
        }
        if (!isAbove && !isBelow)
            kept.push_back(t);
    }
    ribbon.triangles = part.copyOf(kept);
    return ribbon;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ResultCheck.h"

#include <algorithm>
#include <array>

namespace {

/// How many facets of each mesh are looked at.
constexpr std::size_t mostFacets = 128;
/// How far from a facet, and how far from each other, points lie for the size of the meshes.
constexpr double distance = 1e-3, spread = 1e-4;

double sizeOf(MeshArrays const& mesh)
{
    UBox3<float> box;
    for (UPoint3<float> const& p : mesh.points)
        box.Add(p);
    return mesh.points.empty() ? 0 : double((box.max - box.min).GetLength());
}

}  // namespace

std::optional<UPoint3<float>> ResultCheck::findFault(MeshArrays const& result,
                                                     BooleanRule rule) const
{
    ToolTree const tree(result, m_progress);
    double const size = std::max(sizeOf(m_part.mesh()), sizeOf(m_tool.mesh()));
    for (MeshArrays const* const mesh : {&m_part.mesh(), &m_tool.mesh(), &result}) {
        std::size_t const count = mesh->triangles.size();
        for (std::size_t i = 0; i < std::min(count, mostFacets); ++i) {
            m_progress.add(0);
            std::size_t const t = i * count / std::min(count, mostFacets);
            UPoint3<float> const &a = mesh->point(t, 0), &b = mesh->point(t, 1),
                                 &c = mesh->point(t, 2);
            ExactSigns::Offset const u(a, b), v(a, c);
            UVector3<double> const normal =
                UVector3<double>(u.x, u.y, u.z) * UVector3<double>(v.x, v.y, v.z);
            double const length = normal.GetLength();
            for (double const side : {distance, -distance}) {
                UVector3<double> const way = normal * (length > 0 ? side * size / length : 0);
                UPoint3<double> const centre((double(a[0]) + b[0] + c[0]) / 3 + way[0],
                                             (double(a[1]) + b[1] + c[1]) / 3 + way[1],
                                             (double(a[2]) + b[2] + c[2]) / 3 + way[2]);
                if (!acceptsAround(tree, rule, centre, spread * size))
                    return UPoint3<float>(float(centre[0]), float(centre[1]), float(centre[2]));
            }
        }
    }
    return {};
}

/// Only what three points in a row agree in counts: rounding moves surfaces past a point now and
/// then.
bool ResultCheck::acceptsAround(ToolTree const& result, BooleanRule rule,
                                UPoint3<double> const& centre, double reach) const
{
    static constexpr std::array<std::array<double, 3>, 3> ways{
        {{0, 0, 0}, {0.51, 0.67, -0.53}, {-0.61, 0.37, 0.71}}};
    std::optional<std::array<int, 2>> first;
    for (auto const& way : ways) {
        RayOrigin const p(UPoint3<float>(float(centre.X() + reach * way[0]),
                                         float(centre.Y() + reach * way[1]),
                                         float(centre.Z() + reach * way[2])));
        auto const inPart = m_part.windingAt(p), inTool = m_tool.windingAt(p);
        if (!inPart || !inTool || (first && *first != std::array{*inPart, *inTool}))
            return true;
        first = {*inPart, *inTool};
        auto const inResult = result.windingAt(p);
        if (inResult && *inResult == rule.layersAt(*inPart, *inTool > 0))
            return true;
    }
    return false;
}

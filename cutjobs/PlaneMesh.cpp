// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PlaneMesh.h"

#include "platform/mesh/UMesh.h"

#include <cmath>
#include <limits>

namespace PlaneMesh {

namespace {

float diagonalWith(UBox3<float> const& box, UPoint3<float> const& centre)
{
    // A null box counts by its corners, the origin.
    UBox3<float> extended(box.min, box.max);
    extended.Add(centre);
    return (extended.max - extended.min).GetLength();
}

float leastComponent(UVector3<float> const& d1, UVector3<float> const& d2)
{
    float least = std::numeric_limits<float>::max();
    for (UVector3<float> const& direction : {d1, d2})
        for (int i = 0; i < 3; ++i) {
            float const size = std::fabs(direction[i]);
            if (size > 0 && size < least)
                least = size;
        }
    return least;
}

UVector3<float> directionTo(UPoint3<float> const& target, UPoint3<float> const& centre)
{
    UVector3<float> direction = target - centre;
    return direction.Normalize();
}

}  // namespace

Corners span(UBox3<float> const& box, UPoint3<float> const& centre, UPoint3<float> const& towards1,
             UPoint3<float> const& towards2, Reach reach)
{
    UVector3<float> const d1 = directionTo(towards1, centre);
    UVector3<float> const d2 = directionTo(towards2, centre);
    float s = diagonalWith(box, centre);
    if (reach == Reach::DiagonalAlongAxes)
        s = s / leastComponent(d1, d2);
    return {centre + d1 * s, centre + d2 * s, centre - d1 * s, centre - d2 * s};
}

void fill(UMesh<float>* mesh, Corners const& corners)
{
    std::array<UVertex<float>*, 4> vertices;
    for (std::size_t i = 0; i < 4; ++i) {
        vertices[i] = new UVertex<float>(corners[i]);
        mesh->AddVertex(vertices[i]);
    }
    for (std::array<std::size_t, 3> const& ids :
         {std::array<std::size_t, 3>{0, 1, 2}, std::array<std::size_t, 3>{2, 3, 0}}) {
        auto* triangle = new UTriangle<float>;
        for (int i = 0; i < 3; ++i)
            triangle->V0(i) = vertices[ids[std::size_t(i)]];
        triangle->N() = triangle->ComputeNormalizedNormal();
        mesh->AddTriangle(triangle);
    }
}

}  // namespace PlaneMesh

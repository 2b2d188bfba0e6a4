// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/PlaneMesh.h"

#include "platform/mesh/UMesh.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace PlaneMesh {

namespace {

/// The largest distance between neighbouring floats at a corner for which the plane is still told
/// well by its corners.
constexpr float largestSpacingMm = 0.001f;
constexpr float shortenedReach = 4;
/// What the rounding of corners may take off a stretch.
constexpr float coverMargin = 1e-4f;

UBox3<float> extendedBy(UBox3<float> const& box, UPoint3<float> const& centre)
{
    // A null box counts by its corners, the origin.
    UBox3<float> extended(box.min, box.max);
    extended.Add(centre);
    return extended;
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

Corners cornersAt(UPoint3<float> const& centre, UVector3<float> const& d1,
                  UVector3<float> const& d2, float s)
{
    return {centre + d1 * s, centre + d2 * s, centre - d1 * s, centre - d2 * s};
}

/// Whether floats lie too far apart at the corners for their plane to be the one that was asked
/// for.
bool isTooCoarse(Corners const& corners)
{
    for (UPoint3<float> const& corner : corners)
        for (int i = 0; i < 3; ++i) {
            float const size = std::fabs(corner[i]);
            float const next = std::nextafter(size, std::numeric_limits<float>::infinity());
            if (!(next - size <= largestSpacingMm))
                return true;
        }
    return false;
}

/// The stretch with which the rectangle covers all of the box, seen along its sides.
float spanningStretch(UBox3<float> const& box, UPoint3<float> const& centre,
                      UVector3<float> const& d1, UVector3<float> const& d2)
{
    float stretch = 0;
    for (UVector3<float> half : {(d1 - d2) * 0.5f, (d1 + d2) * 0.5f}) {
        float const length = half.GetLength();
        half.Normalize();
        for (int corner = 0; corner < 8; ++corner) {
            UPoint3<float> const p(corner & 1 ? box.MaxX() : box.MinX(),
                                   corner & 2 ? box.MaxY() : box.MinY(),
                                   corner & 4 ? box.MaxZ() : box.MinZ());
            stretch = std::max(stretch, std::fabs((p - centre) | half) / length);
        }
    }
    return stretch;
}

}  // namespace

Corners span(UBox3<float> const& box, UPoint3<float> const& centre, UPoint3<float> const& towards1,
             UPoint3<float> const& towards2, Reach reach)
{
    UVector3<float> const d1 = directionTo(towards1, centre);
    UVector3<float> const d2 = directionTo(towards2, centre);
    UBox3<float> const extended = extendedBy(box, centre);
    float const diagonal = (extended.max - extended.min).GetLength();
    if (reach == Reach::Diagonal)
        return cornersAt(centre, d1, d2, diagonal);
    float const spanning = spanningStretch(extended, centre, d1, d2);
    float const prescribed = diagonal / leastComponent(d1, d2);
    float const s = spanning > prescribed && std::isfinite(spanning) ? spanning * (1 + coverMargin)
                                                                     : prescribed;
    Corners const corners = cornersAt(centre, d1, d2, s);
    if (!isTooCoarse(corners))
        return corners;
    float const shortened = shortenedReach * spanning;
    return shortened < s ? cornersAt(centre, d1, d2, shortened) : corners;
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

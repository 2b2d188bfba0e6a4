// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionSoup.h"

#include <algorithm>
#include <utility>

namespace {

/// The triangle that one of the cut's is a part of; of a cap it is the plane's.
std::array<UPoint3<float>, 3> sourceOf(HalfTriangle const& face, CutPlane const& plane)
{
    if (!face.isCap())
        return {face.source->cP(0), face.source->cP(1), face.source->cP(2)};
    auto corners = plane.corners();
    if (face.side == sideAbove)
        std::swap(corners[1], corners[2]);
    return corners;
}

}  // namespace

SectionSoup::SectionSoup(std::vector<HalfTriangle> some, CutPlane const& plane,
                         SectionPoints const& points, std::vector<bool> const& isInDoubt)
    : faces(std::move(some)), pieces(2), m_pointCount(points.size())
{
    for (std::uint32_t p = 0; p < points.size(); ++p)
        places.push_back(points.place(p));
    std::stable_partition(faces.begin(), faces.end(),
                          [](HalfTriangle const& f) { return !f.isCap(); });
    for (std::uint32_t i = 0; i < faces.size(); ++i)
        add(faces[i], i, plane);
    isFree = isInDoubt;
    isFree.resize(places.size(), false);
}

std::vector<std::size_t> SectionSoup::crossing(StageProgress& progress) const
{
    std::vector<std::size_t> found;
    for (auto const& piece : pieces)
        for (auto const& pair : RoundingCrossings(operands, isFree).find(piece, places, progress))
            for (std::size_t const t : pair)
                found.push_back(piece[t].triangle);
    return found;
}

void SectionSoup::add(HalfTriangle const& face, std::uint32_t place, CutPlane const& plane)
{
    auto const first = std::uint32_t(operands.mesh.points.size());
    auto const source = sourceOf(face, plane);
    operands.mesh.triangles.push_back({first, first + 1, first + 2});
    operands.mesh.points.insert(operands.mesh.points.end(), source.begin(), source.end());
    if (!face.isCap()) {
        operands.firstTriangleOfSecond = place + 1;
        operands.firstPointOfSecond = first + 3;
    }
    MeshArrays::Corners corners;
    for (std::size_t i = 0; i < 3; ++i)
        corners[i] = numberOf(face.side, face.corners[i]);
    pieces[face.side].push_back({corners, place, false});
    before.push_back(corners);
}

std::uint32_t SectionSoup::numberOf(CutSide side, HalfCorner const& corner)
{
    if (corner.isPoint())
        return corner.point;
    auto const [entry, isNew] = m_others.try_emplace(corner.vertex, std::uint32_t(places.size()));
    if (isNew) {
        places.push_back(corner.vertex->cP());
        m_natives.push_back({corner.vertex, side});
    }
    return entry->second;
}

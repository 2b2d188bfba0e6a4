// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/RoundingCrossings.h"
#include "host/services/planecut/HalfTriangles.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

/// Triangles of both halves near what is in doubt, in the form in which the rounding of a boolean is
/// mended: what comes from the part is the first operand, the plane is the second.
class SectionSoup
{
public:
    /// isInDoubt  by section point; what is, may be moved
    SectionSoup(std::vector<HalfTriangle> some, CutPlane const& plane, SectionPoints const& points,
                std::vector<bool> const& isInDoubt);

    /// Those that cross others, with a point in doubt at one of the two, by place in `faces`.
    std::vector<std::size_t> crossing(StageProgress& progress) const;

    /// A vertex beside the plane.
    struct Native
    {
        UVertex<float>* vertex;
        CutSide side;
    };

    Native const& nativeAt(std::uint32_t number) const { return m_natives[number - m_pointCount]; }
    bool isNative(std::uint32_t number) const { return number >= m_pointCount; }

    /// Those of the part first.
    std::vector<HalfTriangle> faces;
    /// By the numbers of section points, and then those of other vertices.
    std::vector<UPoint3<float>> places;
    std::vector<bool> isFree;
    /// By side; `triangle` is a place in `faces`.
    std::vector<std::vector<PieceTriangle>> pieces;
    /// As `faces`: the corners that the pieces had at first.
    std::vector<MeshArrays::Corners> before;
    OperandSoup operands;

private:
    void add(HalfTriangle const& face, std::uint32_t place, CutPlane const& plane);
    std::uint32_t numberOf(CutSide side, HalfCorner const& corner);

    std::size_t m_pointCount;
    std::vector<Native> m_natives;
    std::unordered_map<UVertex<float> const*, std::uint32_t> m_others;
};

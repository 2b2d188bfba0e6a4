// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/prisms/PrismShells.h"

#include <cstdint>
#include <vector>

/// That part of prisms that lies on one side of a plane: its tips, its walls, and in the place of
/// its foot the outlines in the plane, which are open.
class PrismsAtPlane
{
public:
    /// side  +1 for what lies above the plane, -1 for what lies below it
    PrismsAtPlane(MeshArrays const& prisms, CutPlane const& plane,
                  PlaneCoordinates const& coordinates, int side);

    /// Whether each prism reaches through the plane, and what is left of it is closed but for its
    /// outline.
    bool isValid() const { return m_isValid; }
    /// Whether each tip lies right above its foot, to the last bit.
    bool isExact() const { return m_isExact; }

    /// Points of the outlines first, then those of the tips.
    std::vector<UPoint3<float>> points;
    std::uint32_t outlinePoints = 0;
    /// Walls and tips, facing out of the prisms.
    std::vector<MeshArrays::Corners> triangles;
    /// Those of them that are tips; they come last.
    std::size_t firstTip = 0;
    /// The edges of walls in the plane, as the walls have them.
    std::vector<std::array<std::uint32_t, 2>> outline;

private:
    bool findTips(MeshArrays const& prisms, PlaneCoordinates const& coordinates);
    void addPoints(MeshArrays const& prisms, CutPlane const& plane, int side);
    void addTriangles(MeshArrays const& prisms);
    bool isClosed() const;
    bool isTip(std::uint32_t point) const { return m_isTip[point]; }
    int tipsOf(MeshArrays::Corners const& corners) const;

    static constexpr std::uint32_t none = std::uint32_t(-1);

    std::vector<bool> m_isTip;
    /// The tip above each foot that is at a wall.
    std::vector<std::uint32_t> m_tipOf;
    std::vector<std::uint32_t> m_numbers;
    bool m_isValid = false;
    bool m_isExact = true;
};

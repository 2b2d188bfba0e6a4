// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/TopologyCheck.h"
#include "platform/services/Repair.h"

#include <cstdint>
#include <vector>

/// The holes and the flat triangles of a mesh, each of which can be left out when the rest is
/// mended.
class SurfaceFaults
{
public:
    /// topology  of the mesh
    SurfaceFaults(MeshArrays const& mesh, TopologyReport const& topology, StageProgress& progress);

    /// Whether any is not left out.
    bool areAny() const;
    /// Per triangle: 1 at those that are not left out.
    std::vector<std::uint8_t> seeds() const;

    /// Leaves out those that are near the places; all of them if none is.
    void leaveOut(std::vector<MeshArrays::Point> const& places);

    /// A point at each Flaw::hole or Flaw::degenerateTriangle. Border loops that touch are one hole.
    ///
    /// areLeftOut  which ones
    std::vector<MeshArrays::Point> placesOf(Repair::Flaw flaw, bool areLeftOut) const;

private:
    struct Fault
    {
        Repair::Flaw flaw;
        std::vector<std::uint32_t> triangles;
        MeshArrays::Point place, low, high;
        bool isLeftOut = false;
    };

    void addHoles(MeshArrays const& mesh, StageProgress& progress);
    static void include(Fault& fault, MeshArrays const& mesh, std::uint32_t triangle);
    static bool isNear(Fault const& fault, MeshArrays::Point const& place);

    std::size_t m_triangleCount;
    std::vector<Fault> m_faults;
};

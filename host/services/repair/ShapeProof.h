// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/WindingField.h"

#include <cstdint>
#include <string>
#include <vector>

/// Whether a mesh that has been mended bounds the same solid as before. It looks at the two meshes
/// alone and knows nothing of what was done.
///
/// Triangles count by the places of their corners. Those that only one of the meshes has are the
/// change; everything is asked near them and at random points in their box. At each point the solid
/// is where the mesh winds more than zero times. The proof fails
/// - if a point has come into the solid or has gone from it;
/// - if the change cannot be told to keep the solid, because the mesh is open nearby;
/// - if the volume has changed by more than what had counted several times, or less than not at
/// all;
/// - if the box has changed where there was more than a film or a small pocket turned inside out;
/// - if edges have lost their partners.
///
/// See docs/decisions/0003-check-and-repair.md.
///
/// Triangles that were turned round are looked at first and by themselves. Shells that are turned
/// as a whole must leave the same places solid, whichever way they faced. Where single triangles
/// were turned, winding numbers before say nothing; after, none may be negative.
class ShapeProof
{
public:
    struct Verdict
    {
        bool isKept = true;
        /// Where it has failed; empty where that is no place.
        std::vector<MeshArrays::Point> places;
    };

    /// before, field  of the mesh before; borrowed
    ShapeProof(MeshArrays const& before, WindingField const& field)
        : m_before(before), m_field(field)
    {}

    /// cost  one pass over both meshes, and some milliseconds for each thousand changed triangles
    Verdict prove(MeshArrays const& after, StageProgress& progress) const;

private:
    MeshArrays const& m_before;
    WindingField const& m_field;
};

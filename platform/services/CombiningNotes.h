// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"
#include "platform/services/Intersect.h"

#include <functional>
#include <vector>

/// What combining two solids could not mend: a place of each in world millimetres.
struct CombiningNotes
{
    /// Pairs of triangles of a result that cross for having been rounded.
    std::vector<UPoint3<float>> crossing;
};

/// Adds what is told of one combination to what is told of others.
inline void append(CombiningNotes& all, CombiningNotes const& notes)
{
    all.crossing.insert(all.crossing.end(), notes.crossing.begin(), notes.crossing.end());
}

/// Does what Intersect::boolean does, and tells about it. What is told is in the log as well.
///
/// out  empty; receives the result
CombiningNotes combineWithNotes(MeshKernel const& a, MeshKernel const& b, MeshKernel& out,
                                Intersect::BooleanType type,
                                std::function<void(int)> const& progress);

/// Does what Intersect::boolean_subtract_keep does, and tells about it in the same way.
CombiningNotes splitWithNotes(MeshKernel const& a, MeshKernel const& b, MeshKernel& first,
                              MeshKernel& second, std::function<void(int)> const& progress);

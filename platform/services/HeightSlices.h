// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"
#include "platform/services/PlaneCutNotes.h"

#include <functional>
#include <memory>
#include <vector>

/// What becomes of a part that is cut at several heights.
struct HeightSlices
{
    /// From below; none is empty, and the part alone if no height goes through it.
    std::vector<std::shared_ptr<MeshKernel>> pieces;
    /// Of all cuts together.
    PlaneCutNotes notes;

    /// The heights that go through a box, each once, from below.
    static std::vector<double> within(UBox3<float> const& box, std::vector<double> heights);
    /// From the bottom of a box on every so many millimetres; nothing for a distance that is not
    /// above zero, and no more than `mostHeights`.
    static std::vector<double> everyDistance(UBox3<float> const& box, double distance);
    static constexpr std::size_t mostHeights = 500;
};

/// Takes over a piece, clean.
using TakeSlice = std::function<void(std::shared_ptr<MeshKernel> const&)>;

/// Cuts a part at heights and hands the pieces out as they are made, from below. Whether they are
/// sound is left to whoever takes them; else as sliceAtHeights().
PlaneCutNotes sliceInTurn(MeshKernel const& part, std::vector<double> const& heights,
                          TakeSlice const& take, std::function<void(int)> const& progress);

/// Cuts a part at heights, from below, and cleans the pieces.
///
/// part      only read
/// heights   world millimetres, as within() gives them
/// progress  percentages; what it throws passes
/// throws    as Intersect::cutByPlane; Mell::Exception if pieces of a closed part are not closed, or do not
///           have its volume together
/// thread    any
/// cost      a plane cut of what is left above for each height
HeightSlices sliceAtHeights(MeshKernel const& part, std::vector<double> const& heights,
                            std::function<void(int)> const& progress);

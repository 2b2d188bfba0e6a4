// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/SolidLoops.h"

#include <functional>
#include <optional>

namespace Freecut {

class PolygonProperty;

/// What a clearance leaves of a tool: how far its two solids are apart, and whether necks and teeth
/// of its outline are still there.
struct ClearanceFit
{
    /// The least distance between the outlines of the inner and the outer solid, which is that of
    /// the pieces; none if one of them is missing.
    std::optional<double> pieceGap;
    /// What the record asks for in its place.
    double askedGap = 0;
    /// The least distance between neighbouring teeth of one edge, on that of the two outlines on
    /// which they stand nearer; none if no edge has two.
    std::optional<double> toothGap;
    /// The inner outline has come apart, or one of its loops has gone.
    bool closesNeck = false;
    /// One of the outlines has lost a tooth.
    bool losesTooth = false;
    /// One of the outlines has lost the room between two teeth, or the way into it; or the outer one
    /// the way into a bay.
    bool closesGap = false;

    bool operator==(ClearanceFit const&) const = default;
};

/// What the fit is asked of, as values.
struct FitRequest
{
    /// The nominal outline, corners rounded where they are, without repeats.
    Loops nominal;
    /// The outline as it was drawn, edge by edge: each from its corner by way of its teeth to the
    /// next corner. Empty for tools without teeth.
    Loops edges;
    SolidLoops solids;
    /// Between the solids: the clearance, or twice that on both sides.
    double gap = 0;

    bool operator==(FitRequest const&) const = default;

    static FitRequest of(VolumeOutline const& outline);
};

/// A gap as it is told: outlines lie on a grid, and what comes within 0.003 mm and a twentieth of what
/// was asked for is what was asked for.
double toldGap(double measured, double asked);

/// poll    called often; may be empty; what it throws passes
/// thread  any
/// cost    O(n log n) for outlines whose sides are short, and the sides of each tooth times those
///         of the next one
ClearanceFit fitOf(FitRequest const& request, std::function<void()> const& poll);

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"
#include "host/services/boolean/RayOrigin.h"
#include "host/services/boolean/SheetOrder.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// Where the triangles of both operands lie with regard to the other one, and those of the second
/// with regard to their own.
struct SideLabels
{
    static constexpr std::int8_t unknown = -1;

    /// Of a region of the first operand: whether the second lies in front of it and behind it. They
    /// differ where the surfaces lie on each other.
    struct Sides
    {
        std::int8_t front = unknown;
        std::int8_t behind = unknown;
        bool operator==(Sides const&) const = default;
    };

    /// Of a region of the second operand.
    struct SecondSides
    {
        /// The winding number of the first operand in front of it.
        int layers = 0;
        /// Whether the second is solid in front of it and behind it.
        bool isSolidInFront = false;
        bool isSolidBehind = true;
        SheetStack stack = {};
        /// Whether it speaks for all of the second's that lie on each other there.
        bool isLead = true;
    };

    /// By region; those of the second operand stay unknown.
    std::vector<Sides> ofFirst;
    /// By vertex of the first operand: whether it lies in the second. Unknown for one on the
    /// curves.
    std::vector<std::int8_t> ofFirstVertices;
    /// By region; those of the first operand stay as they are.
    std::vector<SecondSides> ofSecond;
    /// By vertex of the second operand, counted from its first, for the triangles at it.
    std::vector<SecondSides> ofSecondVertices;
    /// A point of a curve at which others contradict it, where that is how it came out.
    std::optional<std::uint32_t> contradiction = {};
};

/// What is known of absolute winding numbers, and how to learn more.
struct WindingSources
{
    using Numbers = std::vector<std::optional<int>>;

    /// By vertex of the first operand: whether it lies in the second, if that is known.
    std::span<std::int8_t const> known;
    /// Vertices of the second operand, counted from its first, with the winding number of the first
    /// around them.
    std::span<std::pair<std::uint32_t, int> const> anchors;
    /// Whether the first operand may be open somewhere. Then each piece of the second's surface
    /// between curves is asked for by itself.
    bool isFirstInDoubt = false;
    /// Whether each edge of the first operand is run along as often one way as the other. Then a piece
    /// that no ray has an answer for is a contradiction.
    bool isFirstClosed = false;
    /// Whether the second operand is known to wind once around its inside, and nowhere else.
    bool isSecondSimple = true;
    /// The winding numbers of the first operand around points; nothing where a point lies on it, or
    /// the line through it tells that it is open.
    std::function<Numbers(std::span<RayOrigin const>)> ofFirst;
    /// The same for the second operand and one point.
    std::function<std::optional<int>(RayOrigin const&)> ofSecond;
};

/// Carries what the curves tell over the triangles that no curve divides, by the vertices they
/// share, and lifts it to absolute winding numbers: every piece of surface that hangs together,
/// over curves too, has at least one from a ray.
///
/// returns  false if the curves contradict each other or the rays, as where an operand is open
bool labelSides(OperandSoup const& soup, CurveNetwork const& network, WindingSources const& sources,
                SideLabels& labels, StageProgress& progress);

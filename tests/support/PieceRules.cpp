// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PieceRules.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace judge {
namespace {

using Point = UPoint3<double>;

int mostFor(int winding)
{
    return winding == 0 ? 0 : std::max(1, winding);
}

Expected somewhere(int winding)
{
    int const most = std::max(1, winding);
    Allowed const any{std::min(0, winding), most};
    return {{any, any}, most};
}

Expected united(int winding, bool isInTool)
{
    Allowed allowed = solidAs(winding);
    if (isInTool)
        allowed = {std::min(1, 1 + winding), std::max(1, 1 + winding)};
    return {{allowed}, std::max(0, allowed.high)};
}

}  // namespace

Expected inPiece(std::size_t piece, int winding)
{
    Expected expected{{{}, {}}, mostFor(winding)};
    expected.pieces[piece] = solidAs(winding);
    return expected;
}

Expected onlyWhere(bool isThere, int winding)
{
    return isThere ? Expected{{solidAs(winding)}, mostFor(winding)} : Expected{{{}}, 0};
}

Expected combined(Combination combination, int winding, bool isInTool)
{
    switch (combination) {
        case Combination::Union:
            return united(winding, isInTool);
        case Combination::Intersection:
            return onlyWhere(isInTool, winding);
        case Combination::Difference:
            return onlyWhere(!isInTool, winding);
        case Combination::Split:
            break;
    }
    return inPiece(isInTool ? 0 : 1, winding);
}

Rule planeRule(Plane const& plane, double margin)
{
    return {[=](Point const& p, int winding) -> std::optional<Expected> {
                double const height = plane.heightOf(p);
                if (std::abs(height) <= 2 * margin)
                    return std::nullopt;
                return inPiece(height > 0 ? 0 : 1, winding);
            },
            true};
}

Rule connectorRule(Plane const& plane, double margin, double reach)
{
    return {[=](Point const& p, int winding) -> std::optional<Expected> {
                double const height = plane.heightOf(p);
                return std::abs(height) > reach + 2 * margin ? inPiece(height > 0 ? 1 : 0, winding)
                                                             : somewhere(winding);
            },
            true, [=](Point const& p) { return std::abs(plane.heightOf(p)) > reach + 2 * margin; }};
}

Rule combinationRule(Soup const& tool, Combination combination, double margin)
{
    // A tool out of order is the solid that a person means by it, as a part is.
    auto const field =
        std::make_shared<WindingField>(unpairedEdgesOf(tool).empty() ? tool : inOrder(tool));
    return {[=](Point const& p, int winding) -> std::optional<Expected> {
                if (field->isWithin(2 * margin, p))
                    return std::nullopt;
                auto const ofTool = field->windingAt(p);
                if (!ofTool)
                    return std::nullopt;
                return combined(combination, winding, *ofTool > 0);
            },
            combination == Combination::Split};
}

Rule sameSolidRule()
{
    return {[](Point const&, int winding) -> std::optional<Expected> {
                return onlyWhere(true, winding);
            },
            false};
}

}  // namespace judge

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ExactCombination.h"

#include "host/services/MeshMaking.h"
#include "host/services/boolean/Refusals.h"
#include "host/services/boolean/ResultCheck.h"
#include "host/services/boolean/SolidMending.h"
#include "host/services/exact/ArrangedSolids.h"
#include "host/services/exact/Corefinement.h"

#include <array>

namespace {

Exact::WantedSolids wantedOf(std::span<BooleanPiece const> pieces)
{
    Exact::WantedSolids wanted;
    for (BooleanPiece const piece : pieces)
        (piece == BooleanPiece::united   ? wanted.united
         : piece == BooleanPiece::common ? wanted.common
                                         : wanted.difference) = true;
    return wanted;
}

std::optional<MeshArrays>& solidOf(Exact::CombinedSolids& combined, BooleanPiece piece)
{
    return piece == BooleanPiece::united   ? combined.united
           : piece == BooleanPiece::common ? combined.common
                                           : combined.difference;
}

}  // namespace

std::vector<BooleanResult> combineExactly(MeshArrays const& part, MeshArrays const& tool,
                                          std::span<BooleanPiece const> pieces,
                                          std::optional<UPoint3<float>> doubtful,
                                          CombiningNotes& notes, StageProgress& progress)
{
    ResultCheck const check(part, tool, progress);
    // The solids as results, mended; none if one of them is missing or wrong.
    auto const checked = [&](Exact::CombinedSolids combined) -> std::vector<BooleanResult> {
        std::vector<MeshArrays*> solids;
        for (BooleanPiece const piece : pieces) {
            auto& solid = solidOf(combined, piece);
            if (!solid)
                return {};
            solids.push_back(&*solid);
        }
        auto const crossings =
            mendSolids(std::array<MeshArrays const*, 2>{&part, &tool}, solids, progress);
        std::vector<BooleanResult> results;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            if (auto const fault = check.findFault(*solids[i], BooleanRule(pieces[i]))) {
                doubtful = fault;
                return {};
            }
            results.push_back({makeMesh(*solids[i], progress)});
        }
        notes.crossing = crossings;
        return results;
    };
    Exact::WantedSolids const wanted = wantedOf(pieces);
    auto results = checked(Exact::combine(part, tool, wanted, progress));
    // Corefinement may go wrong where an operand touches itself.
    if (results.empty())
        results = checked(Exact::combineArranged(part, tool, wanted, progress));
    if (results.empty())
        Refusal::throwNotCombined(part, tool, doubtful, progress);
    return results;
}

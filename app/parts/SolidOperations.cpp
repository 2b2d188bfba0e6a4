// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/SolidOperations.h"

#include "host/mesh/OperandError.h"
#include "host/mesh/Placement.h"
#include "platform/services/SolidBodies.h"

namespace SolidOperations {

namespace {

bool isEmpty(Kernel const& kernel)
{
    return kernel->readMesh()->triangles.empty();
}

/// The percentages of one of several steps of the same length.
Progress stepOf(Progress const& progress, std::size_t step, std::size_t steps)
{
    return [&progress, step, steps](int percent) {
        progress(int((100 * step + std::size_t(percent)) / steps));
    };
}

/// Runs a service on two solids, and tells which of all is to blame if one of the two is.
///
/// second  the index of the second; the first is that of index 0 only while that is untouched
template <typename Service>
void blaming(std::size_t second, Service const& service)
{
    try {
        service();
    } catch (OperandError const& error) {
        int const operand = error.isSecond() ? int(second) : second == 1 ? 0 : -1;
        throw OperandFlaw(error, operand, error.text());
    }
}

Kernel combined(Kernel const& a, Kernel const& b, Intersect::BooleanType type, std::size_t second,
                CombiningNotes& notes, Progress const& progress)
{
    auto const result = std::make_shared<MeshKernel>();
    blaming(second, [&] { append(notes, combineWithNotes(*a, *b, *result, type, progress)); });
    return result;
}

Result fold(std::vector<Kernel> const& solids, Intersect::BooleanType type,
            Progress const& progress)
{
    Result result;
    Kernel sum = solids[0];
    for (std::size_t i = 1; i < solids.size(); ++i) {
        sum = combined(sum, solids[i], type, i, result.notes,
                       stepOf(progress, i - 1, solids.size() - 1));
        if (isEmpty(sum))
            return {{}, Nothing::NotCommon};
    }
    result.pieces.push_back({sum, ""});
    return result;
}

/// What of the first lies in each of the others, empty where it is nothing; behind them the rest.
std::vector<Kernel> parted(std::vector<Kernel> const& solids, CombiningNotes& notes,
                           Progress const& progress)
{
    std::vector<Kernel> pieces;
    Kernel rest = solids[0];
    for (std::size_t i = 1; i < solids.size(); ++i) {
        auto const inside = std::make_shared<MeshKernel>();
        auto const outside = std::make_shared<MeshKernel>();
        blaming(i, [&] {
            append(notes, splitWithNotes(*rest, *solids[i], *inside, *outside,
                                         stepOf(progress, i - 1, solids.size() - 1)));
        });
        if (!isEmpty(inside))
            rest = outside;
        pieces.push_back(inside);
        if (isEmpty(rest))
            break;
    }
    pieces.push_back(rest);
    return pieces;
}

Result takeAway(std::vector<Kernel> const& solids, Progress const& progress)
{
    Result result;
    Kernel const rest = parted(solids, result.notes, progress).back();
    if (rest == solids[0])
        return {{}, Nothing::NotCommon};
    if (isEmpty(rest))
        return {{}, Nothing::AllTaken};
    result.pieces.push_back({rest, ""});
    return result;
}

Result split(std::vector<Kernel> const& solids, Progress const& progress)
{
    Result result;
    std::vector<Kernel> const parts = parted(solids, result.notes, progress);
    if (parts.back() == solids[0])
        return {{}, Nothing::NotCommon};
    for (Kernel const& part : parts)
        if (!isEmpty(part))
            result.pieces.push_back({part, part == parts.back() ? "_outside" : "_inside"});
    if (result.pieces.size() < 2)
        return {{}, Nothing::AllTaken};
    return result;
}

Result shells(MeshKernel const& solid, Progress const& progress)
{
    Result result;
    for (Kernel const& body : bodiesOf(solid, mostBodies, &result.bodies, progress))
        result.pieces.push_back({body, "_shell"});
    if (result.bodies > mostBodies)
        result.nothing = Nothing::TooMany;
    if (result.bodies < 2)
        return {{}, Nothing::OneBody, result.bodies};
    return result;
}

Result merge(std::vector<Kernel> const& solids, Progress const& progress)
{
    auto whole = std::make_unique<UMesh<float>>();
    for (std::size_t i = 0; i < solids.size(); ++i) {
        stepOf(progress, i, solids.size())(0);
        auto const copy = placedCopy(*solids[i]);
        appendRecords(*whole, *copy->getMesh());
    }
    auto const kernel = std::make_shared<MeshKernel>();
    kernel->replaceMesh(std::move(whole));
    progress(100);
    return {{{kernel, ""}}};
}

Result make(Operation operation, std::vector<Kernel> const& solids, Progress const& progress)
{
    switch (operation) {
        case Operation::Join:
            return fold(solids, Intersect::BOOLEAN_UNION, progress);
        case Operation::Intersect:
            return fold(solids, Intersect::BOOLEAN_INTERSECT, progress);
        case Operation::TakeAway:
            return takeAway(solids, progress);
        case Operation::Split:
            return split(solids, progress);
        case Operation::Shells:
            return shells(*solids[0], progress);
        case Operation::Merge:
            break;
    }
    return merge(solids, progress);
}

}  // namespace

Result apply(Operation operation, std::vector<Kernel> const& solids, Progress const& progress)
{
    Result result = make(operation, solids, progress);
    for (Piece const& piece : result.pieces)
        piece.kernel->UpdateBoundingBox();
    return result;
}

}  // namespace SolidOperations

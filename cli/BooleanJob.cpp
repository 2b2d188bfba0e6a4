// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BooleanJob.h"

#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/Intersect.h"

#include <functional>

namespace {

using Progress = std::function<void(int)>;

BooleanPiece emptyPiece(std::string const& name, char const* what)
{
    return {name + "_" + what, std::make_unique<MeshKernel>()};
}

std::vector<BooleanPiece> split(MeshKernel& a, MeshKernel& b, std::string const& name,
                                Progress const& progress)
{
    std::vector<BooleanPiece> pieces;
    pieces.push_back(emptyPiece(name, "inside"));
    pieces.push_back(emptyPiece(name, "outside"));
    Intersect::boolean_subtract_keep(&a, &b, pieces[0].kernel.get(), pieces[1].kernel.get(),
                                     progress, 1);
    return pieces;
}

std::vector<BooleanPiece> combine(MeshKernel& a, MeshKernel& b, BooleanOperation operation,
                                  std::string const& name, Progress const& progress)
{
    std::vector<BooleanPiece> pieces;
    pieces.push_back(emptyPiece(name, nameOf(operation)));
    std::vector<MeshKernel*> out{pieces[0].kernel.get()};
    auto const type = operation == BooleanOperation::Union       ? Intersect::BOOLEAN_UNION
                      : operation == BooleanOperation::Intersect ? Intersect::BOOLEAN_INTERSECT
                                                                 : Intersect::BOOLEAN_SUBTRACT;
    Intersect::boolean(&a, &b, out, type, progress, 1);
    return pieces;
}

char const* titleOf(BooleanOperation operation)
{
    switch (operation) {
        case BooleanOperation::Union:
            return "Joining";
        case BooleanOperation::Intersect:
            return "Intersecting";
        case BooleanOperation::Subtract:
            return "Subtracting";
        case BooleanOperation::Split:
            return "Splitting";
    }
    return "";
}

}  // namespace

std::vector<BooleanPiece> runBooleanJob(MeshKernel& a, MeshKernel& b, BooleanOperation operation,
                                        std::string const& name)
{
    Base::SequencerLauncher display(titleOf(operation), 100, true);
    display.setCancelEnabled(true);
    Progress const progress = [&](int percent) { display.setProgress(std::uint64_t(percent)); };
    std::vector<BooleanPiece> pieces = operation == BooleanOperation::Split
                                           ? split(a, b, name, progress)
                                           : combine(a, b, operation, name, progress);
    std::erase_if(pieces,
                  [](BooleanPiece const& p) { return p.kernel->readMesh()->triangles.empty(); });
    for (BooleanPiece& piece : pieces)
        piece.kernel->UpdateBoundingBox();
    return pieces;
}

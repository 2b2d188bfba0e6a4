// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BooleanJob.h"

#include "cli/OtherFileError.h"
#include "host/mesh/OperandError.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/Intersect.h"

#include <functional>
#include <utility>

namespace {

using Progress = std::function<void(int)>;

using Kernels = std::vector<std::pair<std::string, std::shared_ptr<MeshKernel>>>;

Kernels split(MeshKernel& a, MeshKernel& b, Progress const& progress)
{
    Kernels kernels{{"inside", std::make_shared<MeshKernel>()},
                    {"outside", std::make_shared<MeshKernel>()}};
    Intersect::boolean_subtract_keep(&a, &b, kernels[0].second.get(), kernels[1].second.get(),
                                     progress, 1);
    return kernels;
}

Kernels combine(MeshKernel& a, MeshKernel& b, BooleanOperation operation, Progress const& progress)
{
    Kernels kernels{{nameOf(operation), std::make_shared<MeshKernel>()}};
    std::vector<MeshKernel*> out{kernels[0].second.get()};
    auto const type = operation == BooleanOperation::Union       ? Intersect::BOOLEAN_UNION
                      : operation == BooleanOperation::Intersect ? Intersect::BOOLEAN_INTERSECT
                                                                 : Intersect::BOOLEAN_SUBTRACT;
    Intersect::boolean(&a, &b, out, type, progress, 1);
    return kernels;
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

void combineParts(CutPart& a, CutPart const& b, BooleanOperation operation)
{
    Base::SequencerLauncher display(titleOf(operation), 100, true);
    display.setCancelEnabled(true);
    Progress const progress = [&](int percent) { display.setProgress(std::uint64_t(percent)); };
    MeshKernel& solidA = *a.object->meshProperty->getMesh();
    MeshKernel& solidB = *b.object->meshProperty->getMesh();
    Kernels kernels;
    try {
        kernels = operation == BooleanOperation::Split
                      ? split(solidA, solidB, progress)
                      : combine(solidA, solidB, operation, progress);
    } catch (OperandError const& error) {
        std::string const text =
            error.what() + std::string(" Repair it (freecut repair) and try again.");
        if (!error.isSecond())
            throw CutError(text);
        throw OtherFileError(b.label, text);
    }
    for (auto const& [what, kernel] : kernels) {
        if (kernel->readMesh()->triangles.empty())
            continue;
        kernel->UpdateBoundingBox();
        CutPiece& piece = a.pieces.emplace_back();
        piece.name = a.object->getName() + '_' + what;
        piece.kernel = kernel;
    }
}

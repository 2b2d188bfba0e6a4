// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BooleanJob.h"

#include "cli/OtherFileError.h"
#include "cutjobs/common/RemarkTexts.h"
#include "host/mesh/OperandError.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/CombiningNotes.h"

#include <functional>
#include <utility>

namespace {

using Progress = std::function<void(int)>;

using Kernels = std::vector<std::pair<std::string, std::shared_ptr<MeshKernel>>>;

Kernels split(MeshKernel const& a, MeshKernel const& b, Progress const& progress,
              CombiningNotes& notes)
{
    Kernels kernels{{"inside", std::make_shared<MeshKernel>()},
                    {"outside", std::make_shared<MeshKernel>()}};
    notes = splitWithNotes(a, b, *kernels[0].second, *kernels[1].second, progress);
    return kernels;
}

Kernels combine(MeshKernel const& a, MeshKernel const& b, BooleanOperation operation,
                Progress const& progress, CombiningNotes& notes)
{
    Kernels kernels{{nameOf(operation), std::make_shared<MeshKernel>()}};
    auto const type = operation == BooleanOperation::Union       ? Intersect::BOOLEAN_UNION
                      : operation == BooleanOperation::Intersect ? Intersect::BOOLEAN_INTERSECT
                                                                 : Intersect::BOOLEAN_SUBTRACT;
    notes = combineWithNotes(a, b, *kernels[0].second, type, progress);
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
    CombiningNotes notes;
    try {
        kernels = operation == BooleanOperation::Split
                      ? split(solidA, solidB, progress, notes)
                      : combine(solidA, solidB, operation, progress, notes);
    } catch (OperandError const& error) {
        std::string const text =
            error.what() + std::string(" Repair it (freecut repair) and try again.");
        if (!error.isSecond())
            throw CutError(text);
        throw OtherFileError(b.label, text);
    }
    for (CutRemark const& remark : remarksOn(notes, a.object))
        a.remarks.push_back(remark);
    for (auto const& [what, kernel] : kernels) {
        if (kernel->readMesh()->triangles.empty())
            continue;
        kernel->UpdateBoundingBox();
        CutPiece& piece = a.pieces.emplace_back();
        piece.name = a.object->getName() + '_' + what;
        piece.kernel = kernel;
    }
}

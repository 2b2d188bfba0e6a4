// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/PartReview.h"

#include "host/memory/FreeMemory.h"
#include "host/services/MeshErrors.h"
#include "host/services/TakenArrays.h"

PartReview reviewPart(std::unique_ptr<MeshKernel> part, std::function<void(int)> const& progress)
{
    StageProgress stages(progress);
    stages.begin(0, 10, part->readMesh()->triangles.size());
    MeshArrays const mesh = takeArrays(std::move(part), stages);
    giveFreeRecordsBack();
    giveFreeMemoryBack();
    PartReview review;
    review.facts = measureMesh(mesh.points, mesh.triangles);
    review.errors = findErrors(mesh, Repair::EvaluateErrors::ERROR_ALL, stages, 10).counts;
    return review;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolJob.h"

#include "cli/Cancel.h"
#include "cli/WorkerRun.h"
#include "cutjobs/PolygonCutImp.h"
#include "platform/document/MeshDocument.h"
#include "tools/VolumeProperty.h"

namespace {

/// Hands the tool's solids to the worker.
void giveSolids(PolygonCutImp& worker, Freecut::VolumeGraphicObject& tool)
{
    bool const useClearance = tool.getVolumeProperty().getClearanceEnabled();
    std::vector<UMesh<float>*> const meshes =
        useClearance ? tool.createInandOutMesh() : std::vector{tool.createMesh()};
    bool const isSingle = meshes.size() == 1;
    worker.setParas(useClearance, useClearance && isSingle);
    worker.setInOutPolygonMesh(new MeshKernel(meshes.front()),
                               isSingle ? nullptr : new MeshKernel(meshes.back()));
}

}  // namespace

void cutByTool(Mesh::Document& document, CutPart& part, Freecut::VolumeGraphicObject& tool,
               bool keepOriginal)
{
    PolygonCutImp worker(nullptr);
    worker.setObjects({part.object});
    {
        Cancel::AtOnce const atOnce;
        giveSolids(worker, tool);
    }
    runWorker(worker, part);
    IntegrationRules rules;
    rules.transactionName = "Polygon Cut";
    rules.removesSources = !keepOriginal;
    integratePieces(document, rules, worker.getResult(), part);
}

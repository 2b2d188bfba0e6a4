// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SolidHandOver.h"

#include "cutjobs/PolygonCutImp.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/mesh/UMesh.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeProperty.h"

#include <memory>
#include <vector>

namespace Freecut {

namespace {

using Kernels = std::vector<std::unique_ptr<MeshKernel>>;

/// The inner solid and then the outer one; there may be one of them alone.
Kernels solidsOf(VolumeGraphicObject& tool, bool hasClearance)
{
    Kernels kernels;
    if (hasClearance)
        for (UMesh<float>* const mesh : tool.createInandOutMesh())
            kernels.push_back(std::make_unique<MeshKernel>(mesh));
    else if (UMesh<float>* const mesh = tool.createMesh())
        kernels.push_back(std::make_unique<MeshKernel>(mesh));
    return kernels;
}

}  // namespace

bool handOverSolids(PolygonCutImp& worker, VolumeGraphicObject& tool, bool hasClearance)
{
    Kernels kernels = solidsOf(tool, hasClearance);
    if (kernels.empty() || kernels.front()->getMesh()->triangles.empty())
        return false;
    worker.setDirection(tool.getVolumeProperty().getExtrudeVector());
    worker.setParas(hasClearance, kernels.size() == 1);
    worker.setInOutPolygonMesh(kernels[0].release(),
                               kernels.size() > 1 ? kernels[1].release() : nullptr);
    return true;
}

}  // namespace Freecut

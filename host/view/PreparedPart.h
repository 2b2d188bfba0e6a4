// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/PartSurface.h"
#include "host/view/PickTree.h"

#include <functional>
#include <memory>

namespace Mesh {
class DocumentObject;
}

/// What a view needs of a mesh to draw and to pick: made on any thread, so that the first picture
/// of a big part does not wait for it.
class PreparedPart
{
public:
    /// Reads the mesh, which nobody may change meanwhile.
    ///
    /// progress  may be empty; what it throws is let pass
    /// cost      linear in the triangles: 0.15 s for a million
    explicit PreparedPart(std::shared_ptr<UMesh<float> const> const& mesh,
                          std::function<void(int)> const& progress = {});
    explicit PreparedPart(MeshKernel const& kernel) : PreparedPart(kernel.readMesh()) {}

    /// Made from the mesh that the kernel has now.
    bool isOf(MeshKernel const& kernel) const { return tree && tree->isOf(kernel); }

    std::unique_ptr<PartSurface> surface;
    std::shared_ptr<PickTree const> tree;
};

/// Hands what was prepared for a part's mesh to its view provider. Without one, or if the part has
/// another mesh by now, it is dropped, and the view makes what it needs by itself.
///
/// thread  the user interface thread
void usePrepared(Mesh::DocumentObject const& part, PreparedPart prepared);

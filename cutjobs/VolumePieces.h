// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutRemark.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/CombiningNotes.h"

#include <memory>
#include <optional>

/// What a cut by a solid tool makes of one part.
struct VolumePieces
{
    /// What lies within the tool, and what lies outside it; meshes without triangles where there is
    /// nothing.
    std::shared_ptr<MeshKernel> first = std::make_shared<MeshKernel>();
    std::shared_ptr<MeshKernel> second = std::make_shared<MeshKernel>();
    /// What is to be told of both.
    CombiningNotes notes;

    bool hasFirst() const { return !first->readMesh()->triangles.empty(); }
    bool hasSecond() const { return !second->readMesh()->triangles.empty(); }

    /// What a person must be told of a part of which there is just one piece, or none.
    std::optional<CutRemark> remark(Mesh::DocumentObject* part, MeshKernel const& kernel) const;
};

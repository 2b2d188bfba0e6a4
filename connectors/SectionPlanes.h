// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/PlaneFrame.h"
#include "platform/geometry/UBox3.h"
#include "platform/mesh/MeshKernel.h"

#include <vector>

namespace Freecut {
class PlaneGraphicObject;
}
namespace Mesh {
class DocumentObject;
}

/// The frame and the meshes of a section plane, made once for a whole run.
class SectionPlanes
{
public:
    /// plane          with at least five key points; only read
    /// parts          what is to be cut
    /// checkBoundary  the plane ends at its drawn corners
    SectionPlanes(Freecut::PlaneGraphicObject const& plane,
                  std::vector<Mesh::DocumentObject*> const& parts, bool checkBoundary);
    /// The same for parts of which only the box is known.
    SectionPlanes(Freecut::PlaneGraphicObject const& plane, UBox3<float> const& partsBox,
                  bool checkBoundary);

    /// Whether the plane ends at its drawn corners.
    bool isBounded() const { return m_checkBoundary; }

    /// Fills an empty mesh with the cut plane.
    void calculateCutPlaneMesh(UMesh<float>* mesh) const;
    /// Fills an empty mesh with the cut plane and another one with the same moved along its normal.
    void calculateOffsetPlaneMesh(UMesh<float>* base, UMesh<float>* offset, float distance) const;

    PlaneFrame const& frame() const { return m_frame; }

private:
    std::vector<UPoint3<float>> m_keyPoints;
    UBox3<float> m_partsBox;
    bool m_checkBoundary;
    PlaneFrame m_frame;
};

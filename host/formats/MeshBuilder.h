// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/PointJoiner.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>

namespace Formats {

/// Collects the mesh of one part while its file is read: joined points, and triangles over them.
///
/// A triangle of which two corners are the same point is left out. It has no area, and no edge
/// that another triangle needs: its two other edges coincide with opposite directions.
class MeshBuilder
{
public:
    /// Both numbers are hints.
    MeshBuilder(std::size_t expectedTriangles, std::size_t expectedVertices);

    /// To be called when points are joined that perhaps no triangle will use.
    void allowUnusedPoints() { m_mayHaveUnusedPoints = true; }

    PointJoiner& points() { return *m_points; }

    void addTriangle(UVertex<float>* a, UVertex<float>* b, UVertex<float>* c);

    std::size_t triangleCount() const { return m_mesh->triangles.size(); }
    bool isEmpty() const { return m_mesh->triangles.empty(); }

    /// The finished mesh: normals from the geometry, identifiers in list order, no vertex without a
    /// triangle, the counts and the box up to date. Called once, last.
    std::unique_ptr<MeshKernel> finish();

private:
    void dropUnusedPoints();

    std::unique_ptr<UMesh<float>> m_mesh;
    std::unique_ptr<PointJoiner> m_points;
    RecordStock<UTriangle<float>> m_records;
    bool m_mayHaveUnusedPoints = false;
};

}  // namespace Formats

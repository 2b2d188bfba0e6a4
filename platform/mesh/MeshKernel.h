// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "platform/geometry/UMatrix4.h"
#include "platform/mesh/UMesh.h"

#include <memory>
#include <mutex>

/// The handle through which all services work on a mesh: the mesh, the box as of the last
/// UpdateBoundingBox, and a matrix.
///
/// A copy is independent: changes on one side are never seen by the other. The records are copied
/// at once if the source has handed its mesh out for writing (somebody may still hold it).
/// Otherwise both kernels read the same mesh until one of them is asked for it by getMesh(), which
/// then makes its own. readMesh() never copies.
class MeshKernel
{
public:
    MeshKernel();
    explicit MeshKernel(MeshKernel const* source);
    MeshKernel(MeshKernel const& source);
    /// Wraps the mesh and takes ownership of it.
    explicit MeshKernel(UMesh<float>* mesh);
    MeshKernel& operator=(MeshKernel const&) = delete;

    virtual ~MeshKernel();
    /// Makes this kernel the only user of its mesh, by copying if need be.
    virtual void detach();
    /// A new kernel on the same mesh, copied only when one of the two is asked for it.
    virtual MeshKernel* shallowCopy();
    /// A new kernel with the triangles that `selected` marks (one entry per triangle, in list
    /// order) and the vertices they use.
    virtual MeshKernel* deepCopySelected(std::vector<bool> const& selected);

    /// The mesh, for reading and writing, shared with no other kernel.
    std::shared_ptr<UMesh<float>>& getMesh();
    /// The mesh for reading. It may be shared with other kernels, so nothing behind it may be
    /// changed, not even identifiers.
    std::shared_ptr<UMesh<float> const> readMesh() const;
    /// Replaces the mesh by another kernel's, without copying records now; the matrix and the box
    /// come along.
    void shareMeshOf(MeshKernel const& source);
    /// Replaces the mesh by one that nobody else holds.
    void replaceMesh(std::unique_ptr<UMesh<float>> mesh);

    UBox3<float>& GetBox() { return m_box; }
    UBox3<float> const& GetBox() const { return m_box; }
    void UpdateBoundingBox();

    // Clean-up of a mesh that a service produced, called in this order.
    std::size_t DeleteDegenerateTris();
    std::size_t DeleteUnreferenceVerts();
    void UpdateTrisID();
    void UpdateVertsID();

    /// Brings the mesh into the form that repairs work on: identifiers in list order and no
    /// unreferenced vertices. Returns whether there is anything to repair.
    bool toRclMesh();

    UMatrix4<float>& getMatrix() { return m_matrix; }
    UMatrix4<float> const& getMatrix() const { return m_matrix; }

private:
    void takeOver(MeshKernel const& source);
    UMesh<float>& ownMesh();

    mutable std::mutex m_guard;
    std::shared_ptr<UMesh<float>> m_mesh;
    bool m_isHandedOut = false;
    UBox3<float> m_box;
    UMatrix4<float> m_matrix;
};

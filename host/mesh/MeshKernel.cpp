// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mesh/MeshKernel.h"

#include "host/mesh/MeshCopy.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <atomic>

namespace {

/// Makes a kernel the only user of its mesh; under the kernel's lock, so that nobody comes to share
/// it meanwhile.
void makeOwn(std::shared_ptr<UMesh<float>>& mesh)
{
    if (!mesh || mesh.use_count() == 1) {
        // Whoever shared the mesh has finished reading it before letting go.
        std::atomic_thread_fence(std::memory_order_acquire);
        return;
    }
    mesh = copyMesh(*mesh);
}

}  // namespace

MeshKernel::MeshKernel() : m_mesh(std::make_shared<UMesh<float>>()) {}

MeshKernel::MeshKernel(MeshKernel const* source)
{
    takeOver(*source);
}

MeshKernel::MeshKernel(MeshKernel const& source)
{
    takeOver(source);
}

MeshKernel::MeshKernel(UMesh<float>* mesh) : m_mesh(mesh) {}

MeshKernel::~MeshKernel() = default;

void MeshKernel::takeOver(MeshKernel const& source)
{
    std::lock_guard const lock(source.m_guard);
    m_mesh = source.m_isHandedOut ? std::shared_ptr(copyMesh(*source.m_mesh)) : source.m_mesh;
    m_isHandedOut = false;
    m_box = source.m_box;
    m_matrix = source.m_matrix;
}

void MeshKernel::shareMeshOf(MeshKernel const& source)
{
    if (&source == this)
        return;
    std::lock_guard const lock(m_guard);
    takeOver(source);
}

void MeshKernel::detach()
{
    std::lock_guard const lock(m_guard);
    makeOwn(m_mesh);
}

MeshKernel* MeshKernel::shallowCopy()
{
    return new MeshKernel(*this);
}

MeshKernel* MeshKernel::deepCopySelected(std::vector<bool> const& selected)
{
    auto copy = std::make_unique<MeshKernel>(copySelected(*readMesh(), selected).release());
    copy->m_matrix = m_matrix;
    copy->UpdateBoundingBox();
    return copy.release();
}

std::shared_ptr<UMesh<float>>& MeshKernel::getMesh()
{
    std::lock_guard const lock(m_guard);
    // Once handed out the mesh is ours alone: copies of this kernel are deep from then on. A copy
    // that is made between the two would share what is then written to.
    if (!m_isHandedOut) {
        makeOwn(m_mesh);
        m_isHandedOut = true;
    }
    return m_mesh;
}

void MeshKernel::replaceMesh(std::unique_ptr<UMesh<float>> mesh)
{
    std::lock_guard const lock(m_guard);
    m_mesh = std::move(mesh);
    m_isHandedOut = false;
}

/// The mesh for changes of this kernel's own, which nobody sees half done.
UMesh<float>& MeshKernel::ownMesh()
{
    std::lock_guard const lock(m_guard);
    if (!m_isHandedOut)
        makeOwn(m_mesh);
    return *m_mesh;
}

std::shared_ptr<UMesh<float> const> MeshKernel::readMesh() const
{
    std::lock_guard const lock(m_guard);
    return m_mesh;
}

void MeshKernel::UpdateBoundingBox()
{
    std::shared_ptr<UMesh<float> const> const mesh = readMesh();
    using Range = tbb::blocked_range<std::size_t>;
    bool const isPlain = m_matrix.isIdentity();
    auto const grown = [&](Range const& range, UBox3<float> box) {
        for (std::size_t i = range.begin(); i != range.end(); ++i) {
            UPoint3<float> const& point = mesh->vertices[i]->cP();
            box.Add(isPlain ? point : m_matrix * point);
        }
        return box;
    };
    auto const joined = [](UBox3<float> a, UBox3<float> const& b) {
        a.Add(b);
        return a;
    };
    m_box =
        tbb::parallel_reduce(Range(0, mesh->vertices.size(), 16384), UBox3<float>(), grown, joined);
}

std::size_t MeshKernel::DeleteDegenerateTris()
{
    return ownMesh().DeleteDegenerateTris();
}

std::size_t MeshKernel::DeleteUnreferenceVerts()
{
    return ownMesh().DeleteUnreferenceVerts();
}

void MeshKernel::UpdateTrisID()
{
    ownMesh().UpdateTrisID();
}

void MeshKernel::UpdateVertsID()
{
    ownMesh().UpdateVertsID();
}

bool MeshKernel::toRclMesh()
{
    DeleteUnreferenceVerts();
    UpdateTrisID();
    UpdateVertsID();
    return !ownMesh().triangles.empty();
}

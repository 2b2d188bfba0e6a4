// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TakenArrays.h"

#include "host/memory/FreeMemory.h"
#include "host/memory/RecordSlabs.h"
#include "platform/mesh/TakenMesh.h"

#include <algorithm>
#include <span>

namespace {

/// Triangles that are freed together: a few slabs of them.
constexpr std::size_t blockSize = std::size_t(1) << 17;

/// Whether each corner's identifier is its place in the list.
bool isNumbered(UMesh<float> const& mesh)
{
    auto const& list = mesh.vertices;
    return std::ranges::all_of(mesh.triangles, [&](UTriangle<float> const* triangle) {
        for (int k = 0; k < 3; ++k) {
            UVertex<float> const* const vertex = triangle->cV(k);
            if (vertex->cID() >= list.size() || list[vertex->cID()] != vertex)
                return false;
        }
        return true;
    });
}

void takeTriangles(std::span<UTriangle<float>*> block, MeshArrays& arrays)
{
    for (UTriangle<float> const* const triangle : block)
        arrays.triangles.push_back({std::uint32_t(triangle->cV(0)->cID()),
                                    std::uint32_t(triangle->cV(1)->cID()),
                                    std::uint32_t(triangle->cV(2)->cID())});
    RecordSlabs::releaseAll<UTriangle<float>>(block);
    // The mesh is left whole for whoever ends it.
    std::ranges::fill(block, nullptr);
    giveFreeRecordsBack();
}

}  // namespace

MeshArrays takeArrays(std::unique_ptr<MeshKernel> kernel, StageProgress& progress)
{
    if (!kernel->getMatrix().isIdentity() || !isNumbered(*kernel->readMesh()))
        return copyArrays(*kernel, Frame::World, progress);
    auto const mesh = takeMesh(*kernel);
    MeshArrays arrays;
    // Not touched before it is filled.
    arrays.triangles.reserve(mesh->triangles.size());
    std::span<UTriangle<float>*> const triangles = mesh->triangles;
    for (std::size_t begin = 0; begin < triangles.size(); begin += blockSize) {
        auto const block = triangles.subspan(begin, std::min(blockSize, triangles.size() - begin));
        takeTriangles(block, arrays);
        progress.add(block.size());
    }
    arrays.points.reserve(mesh->vertices.size());
    for (UVertex<float> const* const vertex : mesh->vertices)
        arrays.points.push_back(vertex->cP());
    return arrays;
}

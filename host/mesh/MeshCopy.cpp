// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/MeshCopy.h"

#include "host/mesh/RecordIndex.h"
#include "host/mesh/RecordSlabs.h"

#include <new>

namespace {

using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;

/// Fills a list with the addresses of fresh records; the records themselves are still raw memory.
template <typename Record>
void allocateList(std::vector<Record*>& list, std::size_t count)
{
    list.reserve(count);
    for (std::span<Record> const run : RecordSlabs::allocateRuns<Record>(count))
        for (Record& place : run)
            list.push_back(&place);
}

void copyVertices(UMesh<float> const& source, UMesh<float>& copy)
{
    allocateList(copy.vertices, source.vertices.size());
    for (std::size_t i = 0; i < source.vertices.size(); ++i) {
        Vertex* const vertex = new (copy.vertices[i]) Vertex(source.vertices[i]->cP());
        vertex->ID() = i;
    }
    copy.vertexCount = std::uint32_t(copy.vertices.size());
}

bool hasLinks(UMesh<float> const& mesh)
{
    for (Triangle const* const triangle : mesh.triangles)
        for (int i = 0; i < 3; ++i)
            if (triangle->cFFp(i))
                return true;
    return false;
}

/// Points the copied links at the copied records.
void copyLinks(UMesh<float> const& source, UMesh<float>& copy)
{
    RecordIndex<Triangle> const place{source.triangles};
    for (std::size_t t = 0; t < source.triangles.size(); ++t)
        for (int i = 0; i < 3; ++i)
            if (Triangle const* const neighbour = source.triangles[t]->cFFp(i))
                copy.triangles[t]->FFp(i) = copy.triangles[place(neighbour)];
    for (std::size_t v = 0; v < source.vertices.size(); ++v)
        if (Triangle const* const triangle = source.vertices[v]->cVFp())
            copy.vertices[v]->VFp() = copy.triangles[place(triangle)];
}

}  // namespace

std::unique_ptr<UMesh<float>> copyMesh(UMesh<float> const& source)
{
    auto copy = std::make_unique<UMesh<float>>();
    copyVertices(source, *copy);
    RecordIndex<Vertex> const place{source.vertices};
    allocateList(copy->triangles, source.triangles.size());
    for (std::size_t t = 0; t < source.triangles.size(); ++t) {
        Triangle* const triangle = new (copy->triangles[t]) Triangle(*source.triangles[t]);
        for (int i = 0; i < 3; ++i) {
            triangle->V0(i) = copy->vertices[place(triangle->cV(i))];
            triangle->FFp(i) = nullptr;
        }
        triangle->ID() = std::uint32_t(t);
    }
    copy->triangleCount = std::uint32_t(copy->triangles.size());
    if (hasLinks(source))
        copyLinks(source, *copy);
    return copy;
}

std::unique_ptr<UMesh<float>> copySelected(UMesh<float> const& source,
                                           std::vector<bool> const& selected)
{
    auto copy = std::make_unique<UMesh<float>>();
    RecordIndex<Vertex> const place{source.vertices};
    std::vector<Vertex*> copied(source.vertices.size(), nullptr);
    for (std::size_t t = 0; t < source.triangles.size(); ++t)
        if (selected[t])
            for (int i = 0; i < 3; ++i)
                copied[place(source.triangles[t]->cV(i))] = source.triangles[t]->cV(i);
    for (Vertex*& vertex : copied)
        if (vertex)
            copy->AddVertex(vertex = new Vertex(vertex->cP()));
    for (std::size_t t = 0; t < source.triangles.size(); ++t) {
        if (!selected[t])
            continue;
        auto* const triangle = new Triangle;
        for (int i = 0; i < 3; ++i)
            triangle->V0(i) = copied[place(source.triangles[t]->cV(i))];
        triangle->N() = source.triangles[t]->cN();
        copy->AddTriangle(triangle);
    }
    copy->UpdateVertsID();
    copy->UpdateTrisID();
    return copy;
}

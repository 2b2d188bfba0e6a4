// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/MeshCopy.h"

#include "host/memory/RecordSlabs.h"
#include "host/mesh/RecordIndex.h"

#include <new>

namespace {

using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;

/// How many records ahead memory is asked for.
constexpr std::size_t ahead = 16;

template <typename Record>
void prefetch(std::vector<Record*> const& list, std::size_t i)
{
    if (i + ahead >= list.size())
        return;
    __builtin_prefetch(list[i + ahead]);
    __builtin_prefetch(reinterpret_cast<char const*>(list[i + ahead] + 1) - 1);
}

/// Makes as many records as there are in a list, each by `make(place, index)`, and lists them.
template <typename Record, typename Make>
void copyRecords(std::vector<Record*> const& source, std::vector<Record*>& copy, Make const& make)
{
    copy.reserve(source.size());
    for (std::span<Record> const run : RecordSlabs::allocateRuns<Record>(source.size()))
        for (Record& place : run) {
            prefetch(source, copy.size());
            __builtin_prefetch(&place + ahead, 1);
            make(&place, copy.size());
            copy.push_back(&place);
        }
}

void copyVertices(UMesh<float> const& source, UMesh<float>& copy)
{
    copyRecords(source.vertices, copy.vertices, [&](Vertex* place, std::size_t i) {
        new (place) Vertex(source.vertices[i]->cP());
        place->ID() = i;
    });
    copy.vertexCount = std::uint32_t(copy.vertices.size());
}

/// Returns whether any triangle of the source has a neighbour link.
bool copyTriangles(UMesh<float> const& source, UMesh<float>& copy)
{
    RecordIndex<Vertex> const place{source.vertices};
    bool hasLinks = false;
    copyRecords(source.triangles, copy.triangles, [&](Triangle* raw, std::size_t t) {
        Triangle const& from = *source.triangles[t];
        auto const vertex = [&](int i) { return copy.vertices[place(from.cV(i))]; };
        new (raw) Triangle(vertex(0), vertex(1), vertex(2), from.cN());
        raw->ID() = std::uint32_t(t);
        hasLinks |= from.cFFp(0) || from.cFFp(1) || from.cFFp(2);
    });
    copy.triangleCount = std::uint32_t(copy.triangles.size());
    return hasLinks;
}

/// Points the copied links at the copied records.
void copyLinks(UMesh<float> const& source, UMesh<float>& copy)
{
    RecordIndex<Triangle> const place{source.triangles};
    for (std::size_t t = 0; t < source.triangles.size(); ++t)
        for (int i = 0; i < 3; ++i)
            if (Triangle const* const neighbour = source.triangles[t]->cFFp(i)) {
                copy.triangles[t]->FFp(i) = copy.triangles[place(neighbour)];
                copy.triangles[t]->FFi(i) = source.triangles[t]->cFFi(i);
            }
    for (std::size_t v = 0; v < source.vertices.size(); ++v)
        if (Triangle const* const triangle = source.vertices[v]->cVFp())
            copy.vertices[v]->VFp() = copy.triangles[place(triangle)];
}

}  // namespace

std::unique_ptr<UMesh<float>> copyMesh(UMesh<float> const& source)
{
    auto copy = std::make_unique<UMesh<float>>();
    copyVertices(source, *copy);
    if (copyTriangles(source, *copy))
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

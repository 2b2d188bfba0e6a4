// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PlacedMesh.h"

#include <algorithm>
#include <unordered_map>

namespace {

using Triangle = UTriangle<float>;
using Vertex = UVertex<float>;

/// The places in a list of the vertices that triangles use, in order; nothing if the identifiers
/// are not those places.
std::vector<std::size_t> numberedPlaces(std::span<Triangle* const> triangles,
                                        std::vector<Vertex*> const& vertices)
{
    std::vector<std::size_t> places;
    places.reserve(3 * triangles.size());
    for (Triangle const* const t : triangles)
        for (int i = 0; i < 3; ++i) {
            std::size_t const id = t->cV(i)->cID();
            if (id >= vertices.size() || vertices[id] != t->cV(i))
                return {};
            places.push_back(id);
        }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

std::vector<std::size_t> searchedPlaces(std::span<Triangle* const> triangles,
                                        std::vector<Vertex*> const& vertices)
{
    std::unordered_map<Vertex const*, std::size_t> all;
    all.reserve(vertices.size());
    for (std::size_t i = 0; i < vertices.size(); ++i)
        all.emplace(vertices[i], i);
    std::vector<std::size_t> places;
    for (Triangle const* const t : triangles)
        for (int i = 0; i < 3; ++i)
            places.push_back(all.at(t->cV(i)));
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

}  // namespace

std::unique_ptr<MeshKernel> PlacedMesh::copyOf(std::span<Triangle* const> triangles) const
{
    std::vector<std::size_t> places = numberedPlaces(triangles, mesh->vertices);
    if (places.empty())
        places = searchedPlaces(triangles, mesh->vertices);
    auto kernel = std::make_unique<MeshKernel>();
    kernel->getMatrix() = matrix;
    UMesh<float>& copy = *kernel->getMesh();
    std::unordered_map<Vertex const*, Vertex*> copies;
    copies.reserve(places.size());
    for (std::size_t const place : places) {
        Vertex const* const from = mesh->vertices[place];
        auto* const to = new Vertex(from->cP());
        copy.AddVertex(to);
        copies.emplace(from, to);
    }
    for (Triangle const* const t : triangles)
        copy.AddTriangle(
            new Triangle(copies.at(t->cV(0)), copies.at(t->cV(1)), copies.at(t->cV(2)), t->cN()));
    copy.UpdateVertsID();
    copy.UpdateTrisID();
    return kernel;
}

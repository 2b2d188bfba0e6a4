// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/Bodies.h"

#include "cutjobs/common/PollingSteps.h"
#include "platform/mesh/MeshKernel.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <unordered_map>
#include <vector>

namespace {

using Mesh = UMesh<float>;

/// Where a vertex stands in the list of its mesh.
class Places
{
public:
    explicit Places(Mesh const& mesh) : m_mesh(mesh)
    {
        for (std::size_t i = 0; i < mesh.vertices.size(); ++i)
            if (mesh.vertices[i]->cID() != i) {
                searchAll();
                break;
            }
    }

    std::size_t operator[](UVertex<float> const* vertex) const
    {
        return m_places.empty() ? vertex->cID() : m_places.at(vertex);
    }

private:
    void searchAll()
    {
        m_places.reserve(m_mesh.vertices.size());
        for (std::size_t i = 0; i < m_mesh.vertices.size(); ++i)
            m_places.emplace(m_mesh.vertices[i], i);
    }

    Mesh const& m_mesh;
    std::unordered_map<UVertex<float> const*, std::size_t> m_places;
};

/// Vertices that triangles join, each set known by the first of them.
class Sets
{
public:
    explicit Sets(std::size_t count) : m_parents(count), m_isUsed(count)
    {
        std::iota(m_parents.begin(), m_parents.end(), 0u);
    }

    void add(std::array<std::size_t, 3> const& corners)
    {
        m_isUsed[corners[0]] = true;
        unite(corners[0], corners[1]);
        unite(corners[0], corners[2]);
    }

    std::size_t root(std::size_t place)
    {
        auto v = std::uint32_t(place);
        while (m_parents[v] != v)
            v = m_parents[v] = m_parents[m_parents[v]];
        return v;
    }

    /// The sets that have a triangle. Its first corner need not be the first of the set.
    std::vector<bool> used()
    {
        std::vector<bool> isUsed(m_parents.size());
        for (std::size_t v = 0; v < m_parents.size(); ++v)
            if (m_isUsed[v])
                isUsed[root(v)] = true;
        return isUsed;
    }

private:
    void unite(std::size_t a, std::size_t b)
    {
        a = root(a);
        b = root(b);
        m_parents[std::max(a, b)] = std::uint32_t(std::min(a, b));
    }

    std::vector<std::uint32_t> m_parents;
    std::vector<bool> m_isUsed;
};

Sets shellsOf(Mesh const& mesh, Places const& places, PollingSteps& polling)
{
    Sets sets(mesh.vertices.size());
    for (UTriangle<float> const* const t : mesh.triangles) {
        polling.step();
        sets.add({places[t->cV(0)], places[t->cV(1)], places[t->cV(2)]});
    }
    return sets;
}

UVector3<double> wide(UPoint3<float> const& p, UPoint3<float> const& origin)
{
    return {double(p.X()) - origin.X(), double(p.Y()) - origin.Y(), double(p.Z()) - origin.Z()};
}

}  // namespace

BodyCount countBodies(MeshKernel const& kernel, std::function<void()> const& poll)
{
    auto const mesh = kernel.readMesh();
    Places const places(*mesh);
    PollingSteps polling(poll);
    Sets sets = shellsOf(*mesh, places, polling);
    // Six times the volume below each, from a point of its own, so that small ones far from the
    // origin do not drown in rounding.
    std::vector<double> volumes(mesh->vertices.size());
    for (UTriangle<float> const* const t : mesh->triangles) {
        polling.step();
        std::size_t const shell = sets.root(places[t->cV(0)]);
        UPoint3<float> const& origin = mesh->vertices[shell]->cP();
        volumes[shell] +=
            wide(t->cP(0), origin) | (wide(t->cP(1), origin) * wide(t->cP(2), origin));
    }
    std::vector<bool> const isUsed = sets.used();
    BodyCount count;
    for (std::size_t v = 0; v < volumes.size(); ++v) {
        count.shells += isUsed[v];
        count.bodies += isUsed[v] && volumes[v] > 0;
    }
    return count;
}

std::size_t countShells(MeshKernel const& kernel, std::function<void()> const& poll)
{
    auto const mesh = kernel.readMesh();
    Places const places(*mesh);
    PollingSteps polling(poll);
    std::vector<bool> const isUsed = shellsOf(*mesh, places, polling).used();
    return std::size_t(std::count(isUsed.begin(), isUsed.end(), true));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/Bodies.h"

#include "cutjobs/common/PollingSteps.h"
#include "platform/mesh/MeshKernel.h"

#include <algorithm>
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

class Sets
{
public:
    explicit Sets(std::size_t count) : m_parents(count)
    {
        std::iota(m_parents.begin(), m_parents.end(), std::size_t(0));
    }

    std::size_t root(std::size_t v)
    {
        while (m_parents[v] != v)
            v = m_parents[v] = m_parents[m_parents[v]];
        return v;
    }
    void unite(std::size_t a, std::size_t b)
    {
        a = root(a);
        b = root(b);
        m_parents[std::max(a, b)] = std::min(a, b);
    }

private:
    std::vector<std::size_t> m_parents;
};

UVector3<double> wide(UPoint3<float> const& p, UPoint3<float> const& origin)
{
    return {double(p.X()) - origin.X(), double(p.Y()) - origin.Y(), double(p.Z()) - origin.Z()};
}

}  // namespace

BodyCount countBodies(MeshKernel const& kernel, std::function<void()> const& poll)
{
    auto const mesh = kernel.readMesh();
    Places const places(*mesh);
    Sets sets(mesh->vertices.size());
    PollingSteps polling(poll);
    for (UTriangle<float> const* const t : mesh->triangles) {
        polling.step();
        sets.unite(places[t->cV(0)], places[t->cV(1)]);
        sets.unite(places[t->cV(0)], places[t->cV(2)]);
    }
    // Six times the volume below each, from a point of its own, so that small ones far from the
    // origin do not drown in rounding.
    std::vector<double> volumes(mesh->vertices.size());
    std::vector<bool> isUsed(mesh->vertices.size());
    for (UTriangle<float> const* const t : mesh->triangles) {
        polling.step();
        std::size_t const shell = sets.root(places[t->cV(0)]);
        UPoint3<float> const& origin = mesh->vertices[shell]->cP();
        isUsed[shell] = true;
        volumes[shell] +=
            wide(t->cP(0), origin) | (wide(t->cP(1), origin) * wide(t->cP(2), origin));
    }
    BodyCount count;
    for (std::size_t v = 0; v < volumes.size(); ++v) {
        count.shells += isUsed[v];
        count.bodies += isUsed[v] && volumes[v] > 0;
    }
    return count;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/PeerBoolean.h"

#include "benchmarks/ProcessorTime.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_mesh_processing/corefinement.h>
#include <CGAL/Polygon_mesh_processing/measure.h>
#include <CGAL/Surface_mesh.h>

#include <unordered_map>

namespace {

namespace PMP = CGAL::Polygon_mesh_processing;

using Mesh = CGAL::Surface_mesh<CGAL::Exact_predicates_inexact_constructions_kernel::Point_3>;

Mesh meshOf(MeshKernel const& kernel)
{
    auto const source = kernel.readMesh();
    Mesh mesh;
    mesh.reserve(source->vertices.size(), 3 * source->triangles.size() / 2,
                 source->triangles.size());
    std::unordered_map<UVertex<float> const*, Mesh::Vertex_index> places;
    places.reserve(source->vertices.size());
    for (auto const* const vertex : source->vertices) {
        auto const p = vertex->cP();
        places[vertex] = mesh.add_vertex({p.X(), p.Y(), p.Z()});
    }
    for (auto const* const t : source->triangles)
        mesh.add_face(places.at(t->cV(0)), places.at(t->cV(1)), places.at(t->cV(2)));
    return mesh;
}

}  // namespace

struct PeerDifference::Meshes
{
    Mesh first;
    Mesh second;
    Mesh result;
};

PeerDifference::PeerDifference(MeshKernel const& first, MeshKernel const& second)
    : m_meshes(new Meshes{meshOf(first), meshOf(second), {}})
{}

PeerDifference::~PeerDifference() = default;

double PeerDifference::run()
{
    Mesh first = m_meshes->first;
    Mesh second = m_meshes->second;
    m_meshes->result = {};
    double const start = processorSeconds();
    if (!PMP::corefine_and_compute_difference(first, second, m_meshes->result))
        m_meshes->result = {};
    return processorSeconds() - start;
}

std::size_t PeerDifference::triangles() const
{
    return m_meshes->result.number_of_faces();
}

double PeerDifference::volume() const
{
    return CGAL::to_double(PMP::volume(m_meshes->result));
}

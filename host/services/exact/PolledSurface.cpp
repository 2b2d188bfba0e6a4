// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/PolledSurface.h"

bool buildSurface(MeshArrays const& mesh, Surface& surface, StageProgress& progress)
{
    surface.reserve(Surface::size_type(mesh.points.size()),
                    Surface::size_type(mesh.triangles.size() * 3 / 2),
                    Surface::size_type(mesh.triangles.size()));
    for (MeshArrays::Point const& p : mesh.points)
        surface.add_vertex({p.X(), p.Y(), p.Z()});
    using Vertex = Surface::Vertex_index;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        if (t % 4096 == 0)
            progress.add(0);
        MeshArrays::Corners const& corners = mesh.triangles[t];
        if (surface.add_face(Vertex(corners[0]), Vertex(corners[1]), Vertex(corners[2])) ==
            Surface::null_face())
            return false;
    }
    return true;
}

MeshArrays arraysOf(Surface& surface)
{
    surface.collect_garbage();
    MeshArrays mesh;
    mesh.points.reserve(surface.number_of_vertices());
    mesh.triangles.reserve(surface.number_of_faces());
    for (Surface::Vertex_index vertex : surface.vertices()) {
        SurfaceKernel::Point_3 const& p = surface.point(vertex);
        mesh.points.emplace_back(float(p.x()), float(p.y()), float(p.z()));
    }
    for (Surface::Face_index face : surface.faces()) {
        Surface::Halfedge_index const first = surface.halfedge(face);
        Surface::Halfedge_index const next = surface.next(first);
        mesh.triangles.push_back(
            {surface.source(first), surface.target(first), surface.target(next)});
    }
    return mesh;
}

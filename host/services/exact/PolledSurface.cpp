// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/PolledSurface.h"

#include <exception>

namespace {

constexpr char const* originName = "v:origin";

/// Vertices and faces in the order of the arrays. Returns false where they are no surface.
bool buildSurface(MeshRegion const& region, Surface& surface, StageProgress& progress)
{
    using Vertex = Surface::Vertex_index;
    auto const origins =
        surface.add_property_map<Vertex, std::uint32_t>(originName, MeshRegion::none).first;
    for (std::size_t i = 0; i < region.mesh.points.size(); ++i) {
        MeshArrays::Point const& p = region.mesh.points[i];
        origins[surface.add_vertex({p.X(), p.Y(), p.Z()})] = region.origins[i];
    }
    for (std::size_t t = 0; t < region.mesh.triangles.size(); ++t) {
        if (t % 4096 == 0)
            progress.add(0);
        MeshArrays::Corners const& corners = region.mesh.triangles[t];
        if (surface.add_face(Vertex(corners[0]), Vertex(corners[1]), Vertex(corners[2])) ==
            Surface::null_face())
            return false;
    }
    return true;
}

void takeSurface(Surface& surface, MeshRegion& region)
{
    surface.collect_garbage();
    region.mesh = {};
    region.origins.clear();
    for (Surface::Vertex_index vertex : surface.vertices()) {
        SurfaceKernel::Point_3 const& p = surface.point(vertex);
        region.mesh.points.emplace_back(float(p.x()), float(p.y()), float(p.z()));
        region.origins.push_back(originOf(surface, vertex));
    }
    for (Surface::Face_index face : surface.faces()) {
        Surface::Halfedge_index const first = surface.halfedge(face);
        Surface::Halfedge_index const next = surface.next(first);
        region.mesh.triangles.push_back(
            {surface.source(first), surface.target(first), surface.target(next)});
    }
}

}  // namespace

StageProgress*& PollingScope::current()
{
    static thread_local StageProgress* progress = nullptr;
    return progress;
}

std::uint32_t originOf(Surface const& surface, Surface::Vertex_index vertex)
{
    return surface.property_map<Surface::Vertex_index, std::uint32_t>(originName).first[vertex];
}

bool mendRegion(MeshRegion& region, StageProgress& progress,
                std::function<void(Surface&)> const& mend)
{
    try {
        PollingScope const polling(progress);
        Surface surface;
        if (!buildSurface(region, surface, progress))
            return false;
        mend(surface);
        takeSurface(surface, region);
        return true;
    } catch (std::exception const&) {
        // The library gives up on some inputs in this way; the caller goes on without this step.
        if (progress.hasThrown())
            throw;
        return false;
    }
}

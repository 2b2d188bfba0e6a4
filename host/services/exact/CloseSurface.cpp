// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/PolledSurface.h"
#include "host/services/exact/SurfaceMending.h"

#include <CGAL/Polygon_mesh_processing/border.h>
#include <CGAL/Polygon_mesh_processing/repair_degeneracies.h>
#include <CGAL/Polygon_mesh_processing/triangulate_hole.h>

namespace {

namespace PMP = CGAL::Polygon_mesh_processing;

/// Asks for a cancel between the steps of filling one hole.
struct HolePolling : PMP::Hole_filling::Default_visitor
{
    explicit HolePolling(StageProgress& stageProgress) : progress(stageProgress) {}
    void start_quadratic_phase(std::size_t) const { progress.add(0); }
    void quadratic_step() const { progress.add(0); }
    void start_cubic_phase(int) const { progress.add(0); }
    void cubic_step() const { progress.add(0); }

    StageProgress& progress;
};

bool isRim(Surface const& surface, Surface::Halfedge_index border, MeshRegion const& region)
{
    for (Surface::Vertex_index vertex : CGAL::vertices_around_face(border, surface)) {
        std::uint32_t const origin = originOf(surface, vertex);
        if (origin != MeshRegion::none && region.isRim[origin])
            return true;
    }
    return false;
}

void fillHoles(Surface& surface, MeshRegion const& region, StageProgress& progress)
{
    std::vector<Surface::Halfedge_index> holes;
    PMP::extract_boundary_cycles(surface, std::back_inserter(holes));
    progress.setAmount(holes.size());
    HolePolling polling(progress);
    for (Surface::Halfedge_index hole : holes) {
        progress.add(1);
        if (isRim(surface, hole, region))
            continue;
        std::vector<Surface::Face_index> patch;
        PMP::triangulate_hole(surface, hole, std::back_inserter(patch),
                              CGAL::parameters::vertex_point_map(PolledPoints(surface.points()))
                                  .use_2d_constrained_delaunay_triangulation(true)
                                  .visitor(polling));
    }
}

}  // namespace

bool closeSurface(MeshRegion& region, StageProgress& progress)
{
    return mendRegion(region, progress, [&](Surface& surface) {
        PMP::remove_degenerate_faces(
            surface, CGAL::parameters::vertex_point_map(PolledPoints(surface.points())));
        fillHoles(surface, region, progress);
    });
}

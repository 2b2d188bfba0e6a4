// SPDX-License-Identifier: GPL-3.0-or-later
// Smoothing takes a hundred rounds that cannot be left, and filling mends what it would.
#define CGAL_PMP_REMOVE_SELF_INTERSECTIONS_NO_SMOOTHING

#include "host/services/exact/PolledSurface.h"
#include "host/services/exact/SurfaceMending.h"

#include <CGAL/Polygon_mesh_processing/repair_self_intersections.h>

namespace {

namespace PMP = CGAL::Polygon_mesh_processing;

constexpr std::uint32_t newShell = 0xffffffff;
using Shells = Surface::Property_map<Surface::Face_index, std::uint32_t>;

/// Leaves out pairs of triangles from different shells.
struct IsOfTwoShells
{
    Shells shells;
    bool operator()(std::pair<Surface::Face_index, Surface::Face_index> const& faces) const
    {
        std::uint32_t const a = shells[faces.first];
        std::uint32_t const b = shells[faces.second];
        return a != b && a != newShell && b != newShell;
    }
};

/// Asks for a cancel between the steps.
struct RemovalPolling : PMP::experimental::Remove_self_intersection_default_visitor<Surface>
{
    StageProgress* progress = nullptr;
    void start_iteration() { progress->add(1); }
    void start_component_handling() { progress->add(0); }
};

}  // namespace

bool removeLocalCrossings(MeshRegion& region, std::vector<std::uint32_t> const& shellOf,
                          StageProgress& progress)
{
    return mendRegion(region, progress, [&](Surface& surface) {
        Shells const shells =
            surface.add_property_map<Surface::Face_index, std::uint32_t>("f:shell", newShell).first;
        for (Surface::Face_index face : surface.faces())
            shells[face] = shellOf[region.places[face]];
        RemovalPolling visitor;
        visitor.progress = &progress;
        PMP::experimental::remove_self_intersections(
            surface, CGAL::parameters::vertex_point_map(PolledPoints(surface.points()))
                         .filter(IsOfTwoShells{shells})
                         .apply_per_connected_component(false)
                         .visitor(visitor));
    });
}

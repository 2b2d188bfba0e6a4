// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/PolledSurface.h"
#include "host/services/exact/SurfaceMending.h"

#include <CGAL/Polygon_mesh_processing/repair_self_intersections.h>
#include <CGAL/boost/graph/selection.h>

#include <exception>

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

/// The triangles that cross others and so many rings around them that the patches find room.
std::vector<Surface::Face_index> affectedFaces(Surface& surface,
                                               std::vector<std::uint8_t> const& isInvolved)
{
    constexpr unsigned rings = 12;
    std::vector<Surface::Face_index> faces;
    for (Surface::Face_index face : surface.faces())
        if (isInvolved[face])
            faces.push_back(face);
    auto const isSelected = surface.add_property_map<Surface::Face_index, bool>("f:selected").first;
    for (Surface::Face_index face : faces)
        isSelected[face] = true;
    std::vector<Surface::Face_index> const seeds = faces;
    CGAL::expand_face_selection(seeds, surface, rings, isSelected, std::back_inserter(faces));
    return faces;
}

/// Asks for a cancel between the steps.
struct RemovalPolling : PMP::experimental::Remove_self_intersection_default_visitor<Surface>
{
    StageProgress* progress = nullptr;
    void start_iteration() { progress->add(1); }
    void start_component_handling() { progress->add(0); }
};

}  // namespace

bool removeLocalCrossings(MeshArrays& mesh, std::vector<std::uint8_t> const& isInvolved,
                          std::vector<std::uint32_t> const& shellOf, StageProgress& progress)
{
    try {
        Surface surface;
        if (!buildSurface(mesh, surface, progress))
            return false;
        Shells const shells =
            surface.add_property_map<Surface::Face_index, std::uint32_t>("f:shell", newShell).first;
        for (Surface::Face_index face : surface.faces())
            shells[face] = shellOf[face];
        RemovalPolling polling;
        polling.progress = &progress;
        PMP::experimental::remove_self_intersections(
            affectedFaces(surface, isInvolved), surface,
            CGAL::parameters::vertex_point_map(PolledPoints(surface, progress))
                .filter(IsOfTwoShells{shells})
                .apply_per_connected_component(false)
                .visitor(polling));
        mesh = arraysOf(surface);
        return true;
    } catch (std::exception const&) {
        // The library gives up on some inputs in this way; the caller goes on without this step.
        if (progress.hasThrown())
            throw;
        return false;
    }
}

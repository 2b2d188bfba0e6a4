// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/EdgeFlaws.h"

#include "host/services/EdgeGroups.h"
#include "host/services/repair/RepairNotes.h"

namespace {

using Edge = std::span<std::uint32_t const>;

EdgeFlaw flawAt(MeshArrays const& mesh, Edge edge, Repair::Flaw flaw)
{
    MeshArrays::Point const& a = mesh.points[EdgeGroups::start(mesh, edge[0])];
    MeshArrays::Point const& b = mesh.points[EdgeGroups::end(mesh, edge[0])];
    EdgeFlaw found{flaw, (a + b) * 0.5f, {}};
    for (std::uint32_t const halfEdge : edge)
        found.triangles.push_back(halfEdge / 3);
    return found;
}

}  // namespace

std::vector<EdgeFlaw> edgeFlaws(MeshArrays const& mesh, StageProgress& progress)
{
    EdgeGroups const edges(mesh, progress);
    std::vector<EdgeFlaw> flaws;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (i % 65536 == 0)
            progress.add(0);
        Edge const edge = edges[i];
        if (edge.size() > 2)
            flaws.push_back(flawAt(mesh, edge, Repair::Flaw::crowdedEdge));
        else if (edge.size() == 2 &&
                 EdgeGroups::start(mesh, edge[0]) == EdgeGroups::start(mesh, edge[1]))
            flaws.push_back(flawAt(mesh, edge, Repair::Flaw::inconsistentEdge));
    }
    return flaws;
}

void noteLeft(Repair::Report& report, std::vector<EdgeFlaw> const& flaws, bool areOneSided)
{
    for (EdgeFlaw const& flaw : flaws) {
        bool const isCrowded = flaw.flaw == Repair::Flaw::crowdedEdge;
        noteLeft(report, flaw.flaw, 1, flaw.place,
                 isCrowded     ? reasons::branching()
                 : areOneSided ? reasons::oneSided()
                               : reasons::gaps());
    }
}

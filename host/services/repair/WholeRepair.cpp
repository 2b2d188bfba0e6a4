// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/WholeRepair.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/EdgeGroups.h"
#include "host/services/exact/SurfaceMending.h"
#include "host/services/repair/CrossingMending.h"
#include "host/services/repair/MeshRegion.h"
#include "host/services/repair/OrientationMending.h"
#include "host/services/repair/RepairNotes.h"
#include "host/services/repair/ShapeProof.h"
#include "host/services/repair/ShellMending.h"
#include "host/services/repair/SoupMending.h"

#include <algorithm>

namespace {

using Errors = Repair::EvaluateErrors;
using Flaw = Repair::Flaw;
using Places = std::vector<MeshArrays::Point>;

/// A point at each loop of border edges. Loops that touch are one.
Places holesOf(MeshArrays const& mesh, StageProgress& progress)
{
    EdgeGroups const edges(mesh, progress);
    DisjointSets loops(mesh.points.size());
    std::vector<std::uint32_t> starts;
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (edges[i].size() == 1) {
            starts.push_back(EdgeGroups::start(mesh, edges[i][0]));
            loops.unite(starts.back(), EdgeGroups::end(mesh, edges[i][0]));
        }
    std::vector<std::uint8_t> isTold(mesh.points.size(), 0);
    Places places;
    for (std::uint32_t const start : starts)
        if (!std::exchange(isTold[loops.root(start)], 1))
            places.push_back(mesh.points[start]);
    return places;
}

Places degenerateOf(MeshArrays const& mesh, TopologyReport const& topology)
{
    Places places;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (topology.isDegenerate[t])
            places.push_back(mesh.point(t, 0));
    return places;
}

/// Of what was there, as many as are there no more.
Places fewer(Places before, std::size_t after)
{
    before.resize(before.size() - std::min(before.size(), after));
    return before;
}

bool hasSurfaceErrors(Errors::Counts const& counts)
{
    return counts.total() != counts.selfIntersections + counts.misorientedShells;
}

}  // namespace

WholeRepair::WholeRepair(MeshArrays mesh, Repair::Report& report,
                         std::function<void(int)> const& progress)
    : m_mesh(std::move(mesh)), m_report(report), m_progress(progress), m_stages(progress)
{}

MeshErrors WholeRepair::judge(int from, int to) const
{
    std::function<void(int)> const scaled =
        m_progress ? [this, from, to](int p) { m_progress(from + p * (to - from) / 100); }
                   : std::function<void(int)>();
    StageProgress stages(scaled);
    return findErrors(m_mesh, Errors::ERROR_ALL, stages, 0);
}

bool WholeRepair::run()
{
    MeshArrays const original = m_mesh;
    MeshErrors errors = judge(5, 20);
    std::size_t const errorsBefore = errors.counts.total();
    m_errorsLeft = errorsBefore;
    if (errorsBefore == 0)
        return false;
    m_stages.begin(20, 50, 16);
    if (hasSurfaceErrors(errors.counts)) {
        mendSoup();
        mendOrientation();
        closeSurface();
        removeFlat();
        errors = judge(50, 55);
    }
    mendShells(errors);
    mendCrossings(errors);
    if (errors.counts.selfIntersections > 0)
        errors = judge(85, 95);
    noteRest(errors.counts);
    if (errors.counts.total() < errorsBefore && !m_mesh.triangles.empty()) {
        m_errorsLeft = errors.counts.total();
        return true;
    }
    m_report.mended.clear();
    m_mesh = original;
    return false;
}

void WholeRepair::mendSoup()
{
    MeshArrays candidate = m_mesh;
    Outcomes outcomes;
    outcomes.emplace_back(Flaw::degenerateTriangle, removeBrokenTriangles(candidate));
    outcomes.emplace_back(Flaw::openSeam, joinBorders(candidate, m_stages));
    outcomes.emplace_back(Flaw::duplicateTriangle, removeDuplicates(candidate, m_stages));
    take(std::move(candidate), outcomes);
}

void WholeRepair::mendOrientation()
{
    MeshArrays candidate = m_mesh;
    Outcomes outcomes;
    outcomes.emplace_back(Flaw::turnedTriangle, orientConsistently(candidate, m_stages));
    take(std::move(candidate), outcomes);
    // Which triangles share a vertex makes no difference to the shape.
    splitFans(m_mesh, m_stages);
}

/// Removes triangles without area and fills holes, in the surroundings of either.
void WholeRepair::closeSurface()
{
    TopologyReport const topology = checkTopology(m_mesh, m_stages);
    if (topology.borderEdges + topology.degenerateTriangles == 0)
        return;
    std::vector<std::uint8_t> isSeed = topology.isDegenerate;
    EdgeGroups const edges(m_mesh, m_stages);
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (edges[i].size() == 1)
            isSeed[edges[i][0] / 3] = 1;
    constexpr int rings = 4;
    MeshRegion region = takeOut(m_mesh, isSeed, rings, m_stages);
    if (!::closeSurface(region, m_stages))
        return;
    MeshArrays candidate = m_mesh;
    putBack(candidate, region);
    Outcomes outcomes;
    outcomes.emplace_back(Flaw::degenerateTriangle,
                          fewer(degenerateOf(m_mesh, topology),
                                checkTopology(candidate, m_stages).degenerateTriangles));
    outcomes.emplace_back(Flaw::hole,
                          fewer(holesOf(m_mesh, m_stages), holesOf(candidate, m_stages).size()));
    take(std::move(candidate), outcomes);
}

void WholeRepair::removeFlat()
{
    MeshArrays candidate = m_mesh;
    Outcomes outcomes;
    outcomes.emplace_back(Flaw::superfluousShell, removeFlatShells(candidate, m_stages));
    take(std::move(candidate), outcomes);
}

/// Of shells within each other the outer ones come first, so it takes a few rounds.
void WholeRepair::mendShells(MeshErrors& errors)
{
    constexpr int mostRounds = 3;
    for (int round = 0; round < mostRounds && errors.counts.misorientedShells > 0; ++round) {
        Repair::Report report;
        MeshArrays candidate = withMendedShells(m_mesh, errors, report, m_stages);
        Outcomes outcomes;
        for (Repair::Report::Item const& item : report.mended)
            outcomes.emplace_back(item.flaw, Places(item.count, item.places.front()));
        if (outcomes.empty() || !take(std::move(candidate), outcomes))
            return;
        errors = judge(55, 60);
    }
}

void WholeRepair::mendCrossings(MeshErrors const& errors)
{
    if (errors.counts.selfIntersections == 0)
        return;
    std::vector<std::uint32_t> involved;
    for (std::uint32_t t = 0; t < errors.intersections.isInvolved.size(); ++t)
        if (errors.intersections.isInvolved[t])
            involved.push_back(t);
    m_stages.begin(60, 85, 1);
    if (::mendCrossings(m_mesh, std::move(involved), m_report, m_stages))
        splitFans(m_mesh, m_stages);
}

/// Takes over what a step has made, if it has made anything and the shape is kept.
bool WholeRepair::take(MeshArrays candidate, Outcomes const& outcomes)
{
    bool const isAny = std::any_of(outcomes.begin(), outcomes.end(),
                                   [](auto const& outcome) { return !outcome.second.empty(); });
    if (!isAny)
        return false;
    bool const isKept = isShapeKept(candidate);
    for (auto const& [flaw, places] : outcomes)
        for (MeshArrays::Point const& place : places)
            if (isKept)
                noteMended(m_report, flaw, 1, place);
            else
                noteLeft(m_report, flaw, 1, place, reasons::shapeWouldChange());
    if (isKept)
        m_mesh = std::move(candidate);
    return isKept;
}

bool WholeRepair::isShapeKept(MeshArrays const& candidate)
{
    TopologyReport const topology = checkTopology(m_mesh, m_stages);
    TriangleTree const tree(m_mesh, topology, m_stages);
    WindingField const field(m_mesh, tree, m_stages);
    return ShapeProof(m_mesh, field).prove(candidate, m_stages).isKept;
}

/// Tells what no step has told of.
void WholeRepair::noteRest(Errors::Counts const& counts)
{
    auto const note = [&](Flaw flaw, std::size_t count, Places const& places) {
        bool const isTold =
            std::any_of(m_report.left.begin(), m_report.left.end(),
                        [&](Repair::Report::Item const& item) { return item.flaw == flaw; });
        if (!isTold && count > 0 && !places.empty())
            noteLeft(m_report, flaw, count, places.front(), reasons::gaps());
    };
    if (counts.borderEdges > 0) {
        Places const holes = holesOf(m_mesh, m_stages);
        note(Flaw::hole, holes.size(), holes);
    }
}

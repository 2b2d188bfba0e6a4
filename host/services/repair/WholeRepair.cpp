// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/WholeRepair.h"

#include "host/services/boolean/LayerUnion.h"
#include "host/services/exact/SurfaceMending.h"
#include "host/services/repair/CrossingMending.h"
#include "host/services/repair/CrossingPairs.h"
#include "host/services/repair/EdgeFlaws.h"
#include "host/services/repair/EdgeSeparation.h"
#include "host/services/repair/MeshRegion.h"
#include "host/services/repair/OrientationMending.h"
#include "host/services/repair/RepairNotes.h"
#include "host/services/repair/ShellMending.h"
#include "host/services/repair/SoupMending.h"
#include "host/services/repair/SurfaceFaults.h"
#include "host/services/repair/TriangleDifference.h"
#include "host/services/repair/WallRemoval.h"

#include <algorithm>
#include <utility>

namespace {

using Errors = Repair::EvaluateErrors;
using Flaw = Repair::Flaw;
using Places = std::vector<MeshArrays::Point>;

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

WholeRepair::WholeRepair(MeshArrays mesh, MeshErrors errors, Repair::Report& report,
                         std::function<void(int)> const& progress)
    : m_mesh(std::move(mesh)),
      m_errors(std::move(errors)),
      m_report(report),
      m_progress(progress),
      m_stages(progress)
{}

void WholeRepair::judge(int from, int to)
{
    std::function<void(int)> const scaled =
        m_progress ? [this, from, to](int p) { m_progress(from + p * (to - from) / 100); }
                   : std::function<void(int)>();
    StageProgress stages(scaled);
    m_errors = findErrors(m_mesh, Errors::ERROR_ALL, stages, 0);
    m_isJudged = true;
}

bool WholeRepair::run()
{
    bool const isMended = mendFlaws();
    return takeApart() || isMended;
}

bool WholeRepair::mendFlaws()
{
    MeshArrays const original = m_mesh;
    MeshErrors const errors = m_errors;
    m_errorsLeft = errors.counts.total();
    if (m_errorsLeft == 0)
        return false;
    Repair::Report tried;
    for (Effort const effort : {Effort::full, Effort::cautious, Effort::crossings}) {
        // Caution is about holes.
        if (effort == Effort::cautious && errors.counts.borderEdges == 0)
            continue;
        m_effort = effort;
        mend();
        if (m_errors.counts.total() < m_errorsLeft && !m_mesh.triangles.empty()) {
            m_errorsLeft = m_errors.counts.total();
            return true;
        }
        m_mesh = original;
        m_errors = errors;
        m_isJudged = true;
        Repair::Report report = std::exchange(m_report, {});
        if (effort != Effort::crossings)
            tried = std::move(report);
    }
    noteAllLeft(tried);
    return false;
}

void WholeRepair::mend()
{
    m_stages.begin(20, 50, 16);
    bool const isSurfaceMended = m_effort != Effort::crossings;
    if (isSurfaceMended && hasSurfaceErrors(m_errors.counts)) {
        mendSoup();
        setOneSidedAside();
        dropWalls();
        mendOrientation();
        closeSurface();
        removeFlat();
        judge(50, 55);
    }
    if (isSurfaceMended)
        mendShells();
    mendCrossings();
    putAsideBack();
    if (!m_isJudged)
        judge(85, 95);
    uniteLayers();
    forgetWhatIsGone();
    noteRest(reasons::gaps());
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

/// What has one side only bounds no solid. Its edges would be taken for seams and its border for a
/// hole, and what came of it would only look like a solid.
void WholeRepair::setOneSidedAside()
{
    if (m_errors.counts.inconsistentEdges == 0)
        return;
    std::vector<std::uint8_t> const isOneSided = oneSidedTriangles(m_mesh, m_stages);
    for (std::size_t t = 0; t < isOneSided.size(); ++t)
        if (isOneSided[t])
            m_aside.push_back(m_mesh.triangles[t]);
    if (removeTriangles(m_mesh, isOneSided))
        m_isJudged = false;
}

void WholeRepair::putAsideBack()
{
    if (m_aside.empty())
        return;
    m_mesh.triangles.insert(m_mesh.triangles.end(), m_aside.begin(), m_aside.end());
    m_aside.clear();
    m_hasOneSided = true;
    m_isJudged = false;
}

/// Before holes are closed, for the border of a wall is none.
void WholeRepair::dropWalls()
{
    WallRemoval walls = withoutWalls(m_mesh, m_stages);
    Outcomes outcomes;
    outcomes.emplace_back(Flaw::duplicateTriangle, std::move(walls.copies));
    outcomes.emplace_back(Flaw::turnedTriangle, std::move(walls.turned));
    outcomes.emplace_back(Flaw::superfluousShell, std::move(walls.walls));
    take(std::move(walls.mesh), outcomes);
}

void WholeRepair::mendOrientation()
{
    MeshArrays candidate = m_mesh;
    Outcomes outcomes;
    outcomes.emplace_back(Flaw::turnedTriangle, orientConsistently(candidate, m_stages));
    take(std::move(candidate), outcomes);
    // Which triangles share a vertex makes no difference to the shape.
    splitFans(m_mesh, m_stages);
    m_isJudged = false;
}

/// Removes triangles without area and fills holes, in the surroundings of either. What the proof
/// fails at is left out, and the rest tried again.
void WholeRepair::closeSurface()
{
    TopologyReport const topology = checkTopology(m_mesh, m_stages);
    if (topology.borderEdges + topology.degenerateTriangles == 0)
        return;
    SurfaceFaults faults(m_mesh, topology, m_stages);
    constexpr int mostTries = 4;
    for (int tries = 0; tries < mostTries && faults.areAny(); ++tries) {
        constexpr int rings = 4;
        MeshRegion region = takeOut(m_mesh, faults.seeds(), rings, m_stages);
        if (!::closeSurface(region, m_stages))
            return;
        MeshArrays candidate = m_mesh;
        putBack(candidate, region);
        ShapeProof::Verdict verdict = prove(candidate);
        if (verdict.isKept && m_effort == Effort::cautious) {
            verdict.places = newCrossings(candidate);
            verdict.isKept = verdict.places.empty();
        }
        if (verdict.isKept) {
            takeClosed(std::move(candidate), faults);
            return;
        }
        faults.leaveOut(verdict.places);
    }
    faults.leaveOut({});
    for (Flaw const flaw : {Flaw::degenerateTriangle, Flaw::hole})
        for (MeshArrays::Point const& place : faults.placesOf(flaw, true))
            noteLeft(m_report, flaw, 1, place, reasons::shapeWouldChange());
}

/// Where triangles that the mesh does not have meet others.
WholeRepair::Places WholeRepair::newCrossings(MeshArrays const& candidate)
{
    auto const made = trianglesNotIn(candidate, m_mesh, Facing::either, m_stages);
    TopologyReport const topology = checkTopology(candidate, m_stages);
    TriangleTree const tree(candidate, topology, m_stages);
    Places places;
    for (auto const& [a, b] : crossingPairs(candidate, topology, tree, made, m_stages))
        for (std::uint32_t const t : {a, b})
            if (std::binary_search(made.begin(), made.end(), t))
                places.push_back(candidate.point(t, 0));
    return places;
}

/// Takes over a mesh in which the faults are mended that have not been left out, and maybe some of
/// those, too.
void WholeRepair::takeClosed(MeshArrays candidate, SurfaceFaults const& before)
{
    SurfaceFaults const after(candidate, checkTopology(candidate, m_stages), m_stages);
    for (Flaw const flaw : {Flaw::degenerateTriangle, Flaw::hole}) {
        std::size_t const left = after.placesOf(flaw, false).size();
        Places mended = before.placesOf(flaw, false), notTried = before.placesOf(flaw, true);
        mended.insert(mended.end(), notTried.begin(), notTried.end());
        for (MeshArrays::Point const& place : fewer(std::move(mended), left))
            noteMended(m_report, flaw, 1, place);
        notTried.resize(std::min(notTried.size(), left));
        for (MeshArrays::Point const& place : notTried)
            noteLeft(m_report, flaw, 1, place, reasons::shapeWouldChange());
    }
    m_mesh = std::move(candidate);
    m_isJudged = false;
}

void WholeRepair::removeFlat()
{
    MeshArrays candidate = m_mesh;
    Outcomes outcomes;
    outcomes.emplace_back(Flaw::superfluousShell, removeFlatShells(candidate, m_stages));
    take(std::move(candidate), outcomes);
}

/// Of shells within each other the outer ones come first, so it takes a few rounds.
void WholeRepair::mendShells()
{
    constexpr int mostRounds = 3;
    for (int round = 0; round < mostRounds && m_errors.counts.misorientedShells > 0; ++round) {
        Repair::Report report;
        MeshArrays candidate = withMendedShells(m_mesh, m_errors, report, m_stages);
        Outcomes outcomes;
        for (Repair::Report::Item const& item : report.mended)
            outcomes.emplace_back(item.flaw, Places(item.count, item.places.front()));
        if (outcomes.empty() || !take(std::move(candidate), outcomes))
            return;
        judge(55, 60);
    }
}

void WholeRepair::mendCrossings()
{
    if (m_errors.counts.selfIntersections == 0)
        return;
    std::vector<std::uint32_t> involved;
    for (std::uint32_t t = 0; t < m_errors.intersections.isInvolved.size(); ++t)
        if (m_errors.intersections.isInvolved[t])
            involved.push_back(t);
    m_stages.begin(60, 85, 1);
    if (!::mendCrossings(m_mesh, m_errors, std::move(involved), m_report, m_stages))
        return;
    splitFans(m_mesh, m_stages);
    m_isJudged = false;
}

/// The last resort for crossings that could not be resolved where they are: what they divide is all
/// put together anew.
void WholeRepair::uniteLayers()
{
    Errors::Counts const counts = m_errors.counts;
    if (counts.selfIntersections == 0 || counts.borderEdges + counts.inconsistentEdges > 0)
        return;
    m_stages.begin(85, 90, 1);
    auto candidate = unitedLayers(m_mesh, m_stages);
    if (!candidate || candidate->triangles.empty() || !prove(*candidate).isKept)
        return;
    MeshArrays before = std::exchange(m_mesh, std::move(*candidate));
    MeshErrors errors = std::exchange(m_errors, {});
    splitFans(m_mesh, m_stages);
    judge(90, 95);
    if (m_errors.counts.total() >= counts.total()) {
        m_mesh = std::move(before);
        m_errors = std::move(errors);
        return;
    }
    std::size_t pairs = counts.selfIntersections - m_errors.counts.selfIntersections;
    for (std::size_t t = 0; t < errors.intersections.isInvolved.size(); ++t)
        if (errors.intersections.isInvolved[t])
            noteMended(m_report, Flaw::crossing, std::exchange(pairs, 0), before.point(t, 0));
}

/// Bodies that touch along an edge are sound by their vertices, but files know places only.
bool WholeRepair::takeApart()
{
    std::size_t const errors = m_errors.counts.total();
    Places const places = fullEdges(m_mesh, m_errors.counts.nonManifoldEdges > 0, m_stages);
    if (places.empty())
        return false;
    MeshArrays candidate = m_mesh;
    separateEdges(candidate, m_stages);
    std::size_t const left = fullEdges(candidate, true, m_stages).size();
    if (left >= places.size() || !prove(candidate).isKept)
        return false;
    MeshArrays before = std::exchange(m_mesh, std::move(candidate));
    splitFans(m_mesh, m_stages);
    judge(95, 95);
    if (m_errors.counts.total() > errors) {
        m_mesh = std::move(before);
        m_isJudged = false;
        return false;
    }
    m_errorsLeft = m_errors.counts.total();
    for (MeshArrays::Point const& place : fewer(places, left))
        noteMended(m_report, Flaw::crowdedEdge, 1, place);
    forgetWhatIsGone();
    return true;
}

/// What one step has left a later one may have mended.
void WholeRepair::forgetWhatIsGone()
{
    Errors::Counts const& counts = m_errors.counts;
    std::erase_if(m_report.left, [&](Repair::Report::Item const& item) {
        switch (item.flaw) {
            case Flaw::degenerateTriangle:
                return counts.degenerateTriangles == 0;
            case Flaw::duplicateTriangle:
                return counts.duplicateTriangles == 0;
            case Flaw::turnedTriangle:
            case Flaw::inconsistentEdge:
                return counts.inconsistentEdges + counts.misorientedShells == 0;
            case Flaw::hole:
            case Flaw::openSeam:
                return counts.borderEdges == 0;
            case Flaw::crossing:
                return counts.selfIntersections == 0;
            case Flaw::turnedShell:
            case Flaw::superfluousShell:
                return counts.misorientedShells == 0;
            case Flaw::crowdedEdge:
                return counts.nonManifoldEdges == 0;
        }
        return false;
    });
}

/// Takes over what a step has made, if it has made anything and the shape is kept.
bool WholeRepair::take(MeshArrays candidate, Outcomes const& outcomes)
{
    bool const isAny = std::any_of(outcomes.begin(), outcomes.end(),
                                   [](auto const& outcome) { return !outcome.second.empty(); });
    if (!isAny)
        return false;
    bool const isKept = prove(candidate).isKept;
    for (auto const& [flaw, places] : outcomes)
        for (MeshArrays::Point const& place : places)
            if (isKept)
                noteMended(m_report, flaw, 1, place);
            else
                noteLeft(m_report, flaw, 1, place, reasons::shapeWouldChange());
    if (isKept) {
        m_mesh = std::move(candidate);
        m_isJudged = false;
    }
    return isKept;
}

ShapeProof::Verdict WholeRepair::prove(MeshArrays const& candidate)
{
    std::shared_ptr<TriangleTree const> tree = m_errors.tree;
    if (!m_isJudged)
        tree =
            std::make_shared<TriangleTree const>(m_mesh, checkTopology(m_mesh, m_stages), m_stages);
    WindingField const field(m_mesh, *tree, m_stages);
    return ShapeProof(m_mesh, field).prove(candidate, m_stages);
}

/// Tells what no step has told of.
void WholeRepair::noteRest(std::string const& reason)
{
    Errors::Counts const& counts = m_errors.counts;
    auto const isTold = [&](Flaw flaw) {
        return std::any_of(m_report.left.begin(), m_report.left.end(),
                           [&](Repair::Report::Item const& item) { return item.flaw == flaw; });
    };
    if (counts.borderEdges > 0 && !isTold(Flaw::hole)) {
        SurfaceFaults const faults(m_mesh, m_errors.topology, m_stages);
        for (MeshArrays::Point const& place : faults.placesOf(Flaw::hole, false))
            noteLeft(m_report, Flaw::hole, 1, place, m_hasOneSided ? reasons::oneSided() : reason);
    }
    if (counts.nonManifoldEdges + counts.inconsistentEdges > 0)
        noteLeft(m_report, edgeFlaws(m_mesh, m_stages), m_hasOneSided);
}

/// Tells of everything that stays because too little could be mended. The reasons are those of what
/// was tried.
void WholeRepair::noteAllLeft(Repair::Report const& tried)
{
    auto const reasonOf = [&](Flaw flaw) {
        for (Repair::Report::Item const& item : tried.left)
            if (item.flaw == flaw)
                return item.reason;
        return reasons::moreFlaws();
    };
    for (Repair::Report::Item const& item : tried.left)
        if (item.flaw != Flaw::hole && item.flaw != Flaw::crossing &&
            item.flaw != Flaw::crowdedEdge && item.flaw != Flaw::inconsistentEdge)
            m_report.left.push_back(item);
    std::size_t pairs = m_errors.counts.selfIntersections;
    for (std::size_t t = 0; t < m_errors.intersections.isInvolved.size(); ++t)
        if (m_errors.intersections.isInvolved[t])
            noteLeft(m_report, Flaw::crossing, std::exchange(pairs, 0), m_mesh.point(t, 0),
                     reasonOf(Flaw::crossing));
    noteRest(reasonOf(Flaw::hole));
}

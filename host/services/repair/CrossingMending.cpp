// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/CrossingMending.h"

#include "host/services/ShellNesting.h"
#include "host/services/repair/CrossingResolver.h"
#include "host/services/repair/RepairNotes.h"
#include "host/services/repair/ShapeProof.h"

#include <algorithm>
#include <numeric>

namespace {

using Fault = CrossingResolver::Fault;
using Triangles = std::vector<std::uint32_t>;
using Flags = std::vector<std::uint8_t>;

/// A mesh with what it takes to look into it.
struct Surveyed
{
    Surveyed(MeshArrays const& mesh, StageProgress& progress)
        : topology(checkTopology(mesh, progress)), tree(mesh, topology, progress)
    {}

    TopologyReport topology;
    TriangleTree tree;
};

/// Per triangle: whether its shell is closed and its volume negative.
Flags invertedTriangles(MeshArrays const& mesh, TopologyReport const& topology)
{
    std::vector<double> const volumes = shellVolumes(mesh, topology);
    Flags isInverted(mesh.triangles.size());
    for (std::size_t t = 0; t < isInverted.size(); ++t)
        isInverted[t] = volumes[topology.shellOf[t]] < 0;
    return isInverted;
}

std::string reasonOf(Fault fault)
{
    switch (fault) {
        case Fault::open:
            return reasons::open();
        case Fault::insideOut:
            return reasons::insideOut();
        case Fault::gaps:
        case Fault::none:
            break;
    }
    return reasons::gaps();
}

bool isWithin(CrossingResolver::Group const& group, MeshArrays::Point const& place)
{
    for (int axis = 0; axis < 3; ++axis) {
        float const margin = (group.high[axis] - group.low[axis]) / 2;
        if (place[axis] < group.low[axis] - margin || place[axis] > group.high[axis] + margin)
            return false;
    }
    return true;
}

std::size_t pairsOf(std::vector<CrossingResolver::Group> const& groups, Flags const& isResolved)
{
    std::size_t pairs = 0;
    for (std::size_t g = 0; g < groups.size(); ++g)
        pairs += isResolved[g] ? groups[g].pairs : 0;
    return pairs;
}

/// One round: all pairs are resolved at once, as far as the proof allows.
class Round
{
public:
    Round(MeshArrays& mesh, Surveyed const& surveyed, std::vector<CrossingPair> const& pairs,
          StageProgress& progress)
        : m_mesh(mesh),
          m_progress(progress),
          m_isInverted(invertedTriangles(mesh, surveyed.topology)),
          m_field(mesh, surveyed.tree, progress),
          m_resolver(mesh, m_isInverted, m_field, pairs, progress),
          m_reasons(m_resolver.groups().size())
    {}

    /// Returns whether the mesh was changed.
    bool run(Triangles& newTriangles)
    {
        choose();
        // Each try leaves out what has failed.
        for (int tries = 0; tries < 4 && isAny(); ++tries) {
            std::size_t firstNew = 0;
            MeshArrays candidate = m_resolver.resolved(m_isResolved, firstNew, m_progress);
            ShapeProof::Verdict const verdict =
                ShapeProof(m_mesh, m_field).prove(candidate, m_progress);
            if (!verdict.isKept) {
                leaveOut(verdict);
                continue;
            }
            if (!isBetter(candidate, firstNew, newTriangles)) {
                leaveAll(reasons::moreFlaws());
                return false;
            }
            m_mesh = std::move(candidate);
            return true;
        }
        leaveAll(reasons::shapeWouldChange());
        return false;
    }

    /// isFirst  whether what is resolved was there before; what an earlier round has left is only
    ///          told where it stays
    void note(bool isFirst, Repair::Report& report) const
    {
        auto const& groups = m_resolver.groups();
        for (std::size_t g = 0; g < groups.size(); ++g)
            if (m_isResolved[g] && isFirst)
                noteMended(report, Repair::Flaw::crossing, groups[g].pairs, groups[g].place);
            else if (!m_isResolved[g])
                noteLeft(report, Repair::Flaw::crossing, groups[g].pairs, groups[g].place,
                         m_reasons[g]);
    }

private:
    void choose()
    {
        for (CrossingResolver::Group const& group : m_resolver.groups()) {
            m_isResolved.push_back(group.fault == Fault::none);
            if (group.fault != Fault::none)
                m_reasons[m_isResolved.size() - 1] = reasonOf(group.fault);
        }
    }

    bool isAny() const
    {
        return std::find(m_isResolved.begin(), m_isResolved.end(), 1) != m_isResolved.end();
    }

    void leave(std::size_t group, std::string const& reason)
    {
        if (!m_isResolved[group])
            return;
        m_isResolved[group] = 0;
        m_reasons[group] = reason;
    }

    void leaveAll(std::string const& reason)
    {
        for (std::size_t g = 0; g < m_isResolved.size(); ++g)
            leave(g, reason);
    }

    void leaveOut(ShapeProof::Verdict const& verdict)
    {
        bool isFound = false;
        for (std::size_t g = 0; g < m_isResolved.size(); ++g)
            for (MeshArrays::Point const& place : verdict.places)
                if (m_isResolved[g] && isWithin(m_resolver.groups()[g], place)) {
                    leave(g, reasons::shapeWouldChange());
                    isFound = true;
                }
        if (!isFound)
            leaveAll(reasons::shapeWouldChange());
    }

    /// Rounding may make crossings anew; they must be fewer than were resolved.
    bool isBetter(MeshArrays const& candidate, std::size_t firstNew, Triangles& newTriangles)
    {
        newTriangles.resize(candidate.triangles.size() - firstNew);
        std::iota(newTriangles.begin(), newTriangles.end(), std::uint32_t(firstNew));
        Surveyed const surveyed(candidate, m_progress);
        auto const left =
            crossingPairs(candidate, surveyed.topology, surveyed.tree, newTriangles, m_progress);
        if (left.empty())
            newTriangles.clear();
        return left.size() < pairsOf(m_resolver.groups(), m_isResolved);
    }

    MeshArrays& m_mesh;
    StageProgress& m_progress;
    Flags m_isInverted;
    WindingField m_field;
    CrossingResolver m_resolver;
    Flags m_isResolved;
    std::vector<std::string> m_reasons;
};

}  // namespace

bool mendCrossings(MeshArrays& mesh, Triangles seeds, Repair::Report& report,
                   StageProgress& progress)
{
    bool hasChanged = false;
    // Rounding seldom leaves anything for a second round.
    for (int round = 0; round < 3 && !seeds.empty(); ++round) {
        Surveyed const surveyed(mesh, progress);
        auto const pairs =
            crossingPairs(mesh, surveyed.topology, surveyed.tree, std::move(seeds), progress);
        seeds.clear();
        if (pairs.empty())
            break;
        Round resolving(mesh, surveyed, pairs, progress);
        bool const isDone = resolving.run(seeds);
        resolving.note(round == 0, report);
        if (!isDone)
            break;
        hasChanged = true;
    }
    return hasChanged;
}

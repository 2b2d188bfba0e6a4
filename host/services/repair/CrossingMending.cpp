// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/CrossingMending.h"

#include "host/services/ShellNesting.h"
#include "host/services/repair/CrossingResolver.h"
#include "host/services/repair/RepairNotes.h"
#include "host/services/repair/ShapeProof.h"
#include "host/services/repair/TriangleDifference.h"

#include <algorithm>
#include <optional>

namespace {

using Fault = CrossingResolver::Fault;
using Triangles = std::vector<std::uint32_t>;
using Flags = std::vector<std::uint8_t>;

/// What it takes to look into a mesh.
struct Lookup
{
    explicit Lookup(MeshErrors const& errors) : topology(errors.topology), tree(*errors.tree) {}
    Lookup(TopologyReport const& report, TriangleTree const& itsTree)
        : topology(report), tree(itsTree)
    {}

    TopologyReport const& topology;
    TriangleTree const& tree;
};

/// A mesh that is looked into for the first time.
struct Surveyed
{
    Surveyed(MeshArrays const& mesh, StageProgress& progress)
        : topology(checkTopology(mesh, progress)), tree(mesh, topology, progress)
    {}

    Lookup lookup() const { return {topology, tree}; }

    TopologyReport topology;
    TriangleTree tree;
};

/// The triangles of a mesh that an earlier one does not have, as a mesh of their own.
struct NewTriangles
{
    NewTriangles(MeshArrays const& mesh, Triangles const& matched, StageProgress& progress)
        : numbers(numbersIn(matched)),
          own(subset(mesh, numbers)),
          topology(checkTopology(own, progress)),
          tree(own, topology, progress)
    {}

    Triangles numbers;
    MeshArrays own;
    TopologyReport topology;
    TriangleTree tree;

private:
    static Triangles numbersIn(Triangles const& matched)
    {
        Triangles numbers;
        for (std::uint32_t t = 0; t < matched.size(); ++t)
            if (matched[t] == unmatched)
                numbers.push_back(t);
        return numbers;
    }
};

/// Per triangle of the earlier mesh its number in the later one.
Triangles numbersNow(Triangles const& matched, std::size_t earlierCount)
{
    Triangles numbers(earlierCount, SearchLayer::none);
    for (std::uint32_t t = 0; t < matched.size(); ++t)
        if (matched[t] != unmatched)
            numbers[matched[t]] = t;
    return numbers;
}

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
    Round(MeshArrays& mesh, Lookup const& lookup, std::vector<CrossingPair> const& pairs,
          StageProgress& progress)
        : m_mesh(mesh),
          m_lookup(lookup),
          m_progress(progress),
          m_isInverted(invertedTriangles(mesh, lookup.topology)),
          m_field(mesh, lookup.tree, progress),
          m_resolver(mesh, m_isInverted, m_field, pairs, progress),
          m_reasons(m_resolver.groups().size())
    {}

    /// Returns whether the mesh was changed.
    bool run(Triangles& newTriangles)
    {
        choose();
        // Each try leaves out what has failed.
        for (int tries = 0; tries < 4 && isAny(); ++tries) {
            MeshArrays candidate = m_resolver.resolved(m_isResolved, m_progress);
            ShapeProof::Verdict const verdict =
                ShapeProof(m_mesh, m_field).prove(candidate, m_progress);
            if (!verdict.isKept) {
                leaveOut(verdict);
                continue;
            }
            if (!isBetter(candidate, newTriangles)) {
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

    /// Rounding may make crossings anew; they must be fewer than were resolved. Only what is new
    /// can cross anew.
    bool isBetter(MeshArrays const& candidate, Triangles& newTriangles)
    {
        Triangles const matched = matchedInOrder(candidate, m_mesh, m_progress);
        NewTriangles const made(candidate, matched, m_progress);
        std::vector<SearchLayer> const layers{
            {m_mesh, m_lookup.topology, m_lookup.tree,
             numbersNow(matched, m_mesh.triangles.size())},
            {made.own, made.topology, made.tree, made.numbers},
        };
        auto const left = crossingPairs(candidate, layers, made.numbers, m_progress);
        newTriangles = left.empty() ? Triangles() : made.numbers;
        return left.size() < pairsOf(m_resolver.groups(), m_isResolved);
    }

    MeshArrays& m_mesh;
    Lookup m_lookup;
    StageProgress& m_progress;
    Flags m_isInverted;
    WindingField m_field;
    CrossingResolver m_resolver;
    Flags m_isResolved;
    std::vector<std::string> m_reasons;
};

}  // namespace

bool mendCrossings(MeshArrays& mesh, MeshErrors const& errors, Triangles seeds,
                   Repair::Report& report, StageProgress& progress)
{
    bool hasChanged = false;
    // Rounding seldom leaves anything for a second round.
    for (int round = 0; round < 3 && !seeds.empty(); ++round) {
        std::optional<Surveyed> surveyed;
        if (round > 0)
            surveyed.emplace(mesh, progress);
        Lookup const lookup = surveyed ? surveyed->lookup() : Lookup(errors);
        auto const pairs =
            crossingPairs(mesh, lookup.topology, lookup.tree, std::move(seeds), progress);
        seeds.clear();
        if (pairs.empty())
            break;
        Round resolving(mesh, lookup, pairs, progress);
        bool const isDone = resolving.run(seeds);
        resolving.note(round == 0, report);
        if (!isDone)
            break;
        hasChanged = true;
    }
    return hasChanged;
}

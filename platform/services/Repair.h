// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

struct FlawSurvey;

namespace Repair {

/// Counts what a printable solid must not have. The kernel is only read.
class EvaluateErrors
{
public:
    /// Kinds of errors, as bits.
    enum ErrorType
    {
        /// Edges that do not join two triangles: borders and edges with more than two.
        ERROR_EDGES = 1,
        /// Triangles that should not be: degenerate, duplicate, inconsistently oriented, or of a
        /// shell whose orientation contradicts its nesting.
        ERROR_TRIANGLES = 2,
        /// Triangles that cross others.
        ERROR_INTERSECTIONS = 4,
        /// The complete check.
        ERROR_ALL = 7,
    };

    /// The number of each kind, as of the last evaluate(). Triangles that use a vertex twice count
    /// as degenerate only; their edges do not count.
    struct Counts
    {
        /// Edges with one triangle.
        std::size_t borderEdges = 0;
        /// Edges with more than two.
        std::size_t nonManifoldEdges = 0;
        /// Edges with two that disagree in orientation.
        std::size_t inconsistentEdges = 0;
        /// Triangles without area, and those with a coordinate that is no number.
        std::size_t degenerateTriangles = 0;
        /// Of the triangles on the same three vertices all but one.
        std::size_t duplicateTriangles = 0;
        /// Pairs of triangles that have a point in common which lies on no vertex and no edge of
        /// both. Vertices at the same place count as one here, so solids may touch in whole edges.
        std::size_t selfIntersections = 0;
        /// Shells (triangles joined over edges) that are closed and consistently oriented, but face
        /// the wrong way for their nesting; a cavity faces inward and is no error. Shells that
        /// cross do not lie within each other.
        std::size_t misorientedShells = 0;

        std::size_t total() const
        {
            return borderEdges + nonManifoldEdges + inconsistentEdges + degenerateTriangles +
                   duplicateTriangles + selfIntersections + misorientedShells;
        }
    };

    explicit EvaluateErrors(MeshKernel* kernel);

    /// Returns the number of errors of the given kinds.
    ///
    /// type       any combination of ErrorType
    /// firstOnly  accepted; the count is always complete
    /// parallel   accepted; the result is the same either way
    /// throws     Mell::AbortException from `progress`
    /// cost       at most 0.5 s for a million triangles, self-intersections included
    std::size_t evaluate(ErrorType type, bool firstOnly, bool parallel,
                         std::function<void(int)> progress);

    Counts const& counts() const { return m_counts; }

    /// What the last complete check has seen, for a repair of the same mesh. It needs as much
    /// memory as the mesh itself. Null if there was none.
    std::shared_ptr<FlawSurvey const> const& survey() const { return m_survey; }

private:
    MeshKernel* m_kernel;
    Counts m_counts;
    std::shared_ptr<FlawSurvey const> m_survey;
};

/// What a repair is allowed to look at.
class Scope
{
public:
    /// The whole mesh.
    Scope() = default;
    /// Only what a cut made or touched: the triangles of a piece that the part does not have, by
    /// the places of their corners. Flaws of the part that the cut does not meet stay as they are.
    ///
    /// part  what was cut; read through its matrix and borrowed until the repair is over
    static Scope madeFrom(MeshKernel const& part)
    {
        Scope scope;
        scope.m_part = &part;
        return scope;
    }

    bool isWhole() const { return !m_part; }
    /// Null for the whole mesh.
    MeshKernel const* part() const { return m_part; }

private:
    MeshKernel const* m_part = nullptr;
};

/// A flaw as a repair mends it.
enum class Flaw
{
    /// Triangles that use a vertex twice, have no area, or have a coordinate that is no number.
    degenerateTriangle,
    /// Vertices at one place that are not joined.
    openSeam,
    /// Triangles on the same three vertices, all but one.
    duplicateTriangle,
    /// Triangles that face the other way than their neighbours.
    turnedTriangle,
    /// Closed loops of border edges.
    hole,
    /// Pairs of triangles that cross.
    crossing,
    /// Closed shells that face inward where they should face outward.
    turnedShell,
    /// Shells without volume, and shells that lie in solid on both sides.
    superfluousShell,
    /// Edges with more than two triangles. A cut's own repair only tells of them.
    crowdedEdge,
    /// Edges whose two triangles face opposite sides; only told where they stay.
    inconsistentEdge,
};

/// What one repair did, and what it left.
struct Report
{
    struct Item
    {
        Flaw flaw = Flaw::hole;
        std::size_t count = 0;
        /// Points at the first of them, in the coordinates of the mesh's records; at most
        /// `mostPlaces`.
        std::vector<UPoint3<float>> places;
        /// For what was left: one sentence that says why. Empty for what was mended.
        std::string reason;
    };
    static constexpr std::size_t mostPlaces = 16;

    /// In the order of the enumerators, each at most once.
    std::vector<Item> mended;
    /// What the repair tried to mend and gave up, because the mesh would not have kept its shape.
    std::vector<Item> left;

    /// The number of a flaw that was mended.
    std::size_t countOf(Flaw flaw) const;
    bool isEmpty() const { return mended.empty() && left.empty(); }
};

/// A short name for reports that programs read, such as "holes_closed".
char const* keyOf(Flaw flaw);

/// A report for a person, one line for each item, such as "Holes closed: 2, near (1, 2, 3)."; in
/// the language of the application. For what was left the line ends with the reason.
std::vector<std::string> linesOf(Report const& report);

/// Mends meshes in place.
///
///     Repair::RepairMethods repair(&piece, Repair::Scope::madeFrom(part));
///     repair.autoRepair_simple_advanced(progress);
///     for (std::string const& line : Repair::linesOf(repair.report()))
///         log(line);
class RepairMethods
{
public:
    /// survey  what a check has seen of the mesh, which has had nothing but toRclMesh() since; so
    ///         the repair need not look at all of it again. May be null
    explicit RepairMethods(MeshKernel* kernel, Scope scope = {},
                           std::shared_ptr<FlawSurvey const> survey = {});

    /// Mends orientation, open seams, holes, degenerate and duplicate triangles, superfluous shells
    /// and crossings. The mesh is replaced only if the number of errors fell; otherwise it stays as
    /// it was. Coordinates of points that are kept do not change.
    ///
    /// returns  whether no error is left
    /// throws   Mell::AbortException from `progress`; the mesh then stays as it was
    bool autoRepair_simple_advanced(std::function<void(int)> progress);

    /// What the last repair did.
    Report const& report() const { return m_report; }

private:
    MeshKernel* m_kernel;
    Scope m_scope;
    std::shared_ptr<FlawSurvey const> m_survey;
    Report m_report;
};

}  // namespace Repair

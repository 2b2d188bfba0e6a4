// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <cstddef>
#include <functional>

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

private:
    MeshKernel* m_kernel;
    Counts m_counts;
};

/// Mends meshes in place.
class RepairMethods
{
public:
    explicit RepairMethods(MeshKernel* kernel);

    /// Mends orientation, open seams, holes, degenerate and duplicate triangles, stray shells
    /// without volume and local self-intersections. The mesh is replaced only if the number of
    /// errors fell; otherwise it stays as it was. Coordinates of points that are kept do not
    /// change. Shells that cross each other stay: they are for Intersect::boolean.
    ///
    /// returns  whether no error is left
    /// throws   Mell::AbortException from `progress`; the mesh then stays as it was
    bool autoRepair_simple_advanced(std::function<void(int)> progress);

private:
    MeshKernel* m_kernel;
};

}  // namespace Repair

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/PickTree.h"
#include "host/view/ViewPlane.h"

#include <vector>

/// The lines in which a plane meets the triangles of a mesh, joined where triangles share a place,
/// in the coordinates of the records.
///
/// A vertex on the plane counts as above it, so that each line ends within an edge and the lines of
/// a closed mesh are closed, whatever lies in the plane.
class PlaneSection
{
public:
    using Point = UPoint3<float>;

    /// tree  of the mesh
    /// cost  the logarithm of the triangles, and the triangles that the plane meets
    PlaneSection(PickTree const& tree, UMesh<float> const& mesh, ViewPlane const& plane);

    bool isEmpty() const { return m_runs.empty(); }

    /// All lines as pairs of points, with the straight ones that close gaps left out.
    std::vector<Point> lines() const;

    /// The area within the closed lines as triangles, three points each. They overlap: a place
    /// belongs to the area if those that run anticlockwise there, as seen from any one side, are
    /// not as many as those that run clockwise. A line that is open over less than a tenth of its
    /// length counts as closed; other open lines have no area.
    std::vector<Point> areas() const;

    /// Lines that are open over a tenth of their length or more.
    std::size_t openLines() const;

private:
    struct Run
    {
        std::size_t first;
        std::size_t count;
        bool isClosed;
        /// The gap is small enough for the line to bound an area.
        bool hasArea;
    };

    void addRun(std::size_t first, bool isClosed, int turn);

    std::vector<Point> m_points;
    std::vector<Run> m_runs;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"
#include "platform/mesh/MeshKernel.h"

#include <functional>
#include <vector>

/// Cuts and booleans of solids. Every operation reads kernels through their matrices and writes
/// final coordinates; is called on any thread and touches only the kernels it is given; reports
/// percentages of its own work to `progress` on the calling thread, often enough for a cancel to
/// take effect within 100 ms; lets an exception of `progress` pass and then leaves the output
/// kernels empty. The same input gives the same output, whatever the number of threads.
class Intersect
{
public:
    enum BooleanType
    {
        BOOLEAN_UNION = 1,
        BOOLEAN_INTERSECT = 2,
        BOOLEAN_SUBTRACT = 4,
    };

    /// Splits a solid by a plane.
    ///
    /// part     the solid; left intact, so that one copy may serve several cuts
    /// plane    a mesh of two triangles that form a rectangle; their normal N gives the plane its
    ///          direction. It may be smaller than the part, see below
    /// sideA    empty; receives the piece on the side to which N points
    /// sideB    empty; receives the piece on the other side
    /// section  empty; receives the faces that were cut, facing along N. Their border loops are the
    ///          contours, with points added on long edges
    ///
    /// Rule for what lies in the plane: a vertex belongs to both sides; an edge in the plane is a
    /// section edge exactly if the triangles at it go to different sides; a triangle in the plane
    /// stays with the material behind it, that is, it goes to side A if it faces against N and to
    /// side B if it faces along N. Touching the plane without crossing it cuts nothing. Signs are
    /// exact; a vertex onto which the rounding of a section point falls counts as in the plane.
    ///
    /// Where the rectangle does not cover the whole section, only those of the section's connected
    /// faces are cut that lie wholly within it, its border included; the others stay as they are. A
    /// face with a hole is one face, and faces that touch are one. The pieces are then what hangs
    /// together over edges. Pieces at the upper caps, which face against N, go to side A, pieces at
    /// the lower caps to side B, wherever else they reach. A shell without caps goes whole to the
    /// side of its surface's centroid, side A if that lies in the plane; a cavity stays with its
    /// solid. A face that parts nothing, as in a ring cut once, is not cut. Where a piece would
    /// have caps of both kinds, either its lower or its upper faces are not cut: those that leave
    /// more faces of the body cut, or else those that let pieces come off to side A. If no face is
    /// cut the whole part arrives in side A.
    ///
    /// Both sides share the same section points and the same triangulation. The section has the
    /// same contours and a triangulation of its own, without a point inside, through whose inner
    /// edges centre lines may be drawn: its contours' edges are at most a quarter of the face's
    /// mean width long, or 0.5 mm if that is more, unless a section would need many thousands of
    /// points. A part that the plane does not cross arrives whole in one side. Parts that cross
    /// themselves are cut all the same: the section is filled where its winding number is not zero,
    /// as many times over as that number says, so that every piece is closed and the volumes add
    /// up. In the output vertices are numbered; neighbour links and identifiers of triangles are
    /// not set.
    ///
    /// throws   Mell::AbortException from `progress`; Mell::Exception with the place if the part is
    ///          open, or its triangles face different ways, at a contour that the rectangle reaches,
    ///          so that the cut could not be closed. Nothing has been written then. What is put in
    ///          order at the plane instead, and told, is in PlaneCutNotes.h
    /// cost     one pass over the part, plus O(k log k) for the k triangles that the plane meets;
    ///          where the rectangle covers some faces but not all, several times as much
    static void cutByPlane(MeshKernel* part, MeshKernel* plane, MeshKernel* sideA,
                           MeshKernel* sideB, MeshKernel* section,
                           std::function<void(int)> progress, bool flag);

    /// Combines two solids.
    ///
    /// a, b  left intact. `a` may be large; work on it is in proportion to its size only as far as
    ///       it is copied. Either may hold several shells, shells in shells, and touch itself
    /// out   one empty kernel, which receives the result. An empty result is an empty mesh
    ///
    /// Rule where surfaces coincide: what lies on both surfaces bounds the result only if the result
    /// lies on one side of it alone. So a union has no inner wall, and a difference and what is
    /// common no film. Where `a` overlaps itself, each of its layers is combined by itself, so the
    /// volumes add up; `b` counts as solid wherever its winding number is above zero.
    ///
    /// The result is closed and oriented, without triangles of no area, vertices numbered. Signs are
    /// exact, and new points are exact and rounded once. Where rounding would turn a triangle over,
    /// points that are next to each other become one, or an edge is led through the point beside it:
    /// nothing moves by more than the coordinates' last place or two. Triangles of `a` and `b` that
    /// do not touch the other solid are kept as they are, in their order.
    ///
    /// throws   Mell::AbortException from `progress`; Mell::Exception "The part is open where the
    ///          two meet, near (x, y, z)." (or "The tool ...") if an
    ///          operand has a border there, so that the result could not be closed, and sentences
    ///          on points that are no numbers. `out` stays empty then
    /// cost     one pass over both solids, plus some microseconds per pair of triangles that cross.
    ///          Tens of microseconds per triangle of both where an operand crosses itself at the
    ///          other's surface
    static void boolean(MeshKernel* a, MeshKernel* b, std::vector<MeshKernel*>& out,
                        BooleanType type, std::function<void(int)> progress, int flag);

    /// Splits `a` by `b` in one pass: `first` receives a within b, `second` a less b. Both have the
    /// same new points, and are what boolean() gives, each by itself.
    static void boolean_subtract_keep(MeshKernel* a, MeshKernel* b, MeshKernel* first,
                                      MeshKernel* second, std::function<void(int)> progress,
                                      int flag);
};

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
    ///          direction. A part beside the rectangle is not cut and arrives whole in side A; one
    ///          that the rectangle meets lies within its reach
    /// sideA    empty; receives the piece on the side to which N points
    /// sideB    empty; receives the piece on the other side
    /// section  empty; receives the section face, facing along N. Its border loops are the contours
    ///
    /// Rule for what lies in the plane: a vertex belongs to both sides; an edge in the plane is a
    /// section edge exactly if the triangles at it go to different sides; a triangle in the plane
    /// stays with the material behind it, that is, it goes to side A if it faces against N and to
    /// side B if it faces along N. Touching the plane without crossing it cuts nothing. Signs are
    /// exact; a vertex onto which the rounding of a section point falls counts as in the plane.
    ///
    /// Both sides and the section share the same section points and the same triangulation. A part
    /// that the plane does not cross arrives whole in one side. Parts that cross themselves are cut
    /// all the same: the section is filled where its winding number is not zero, as many times over
    /// as that number says, so that every piece is closed and the volumes add up. Neighbour links
    /// and identifiers of the output are not set.
    ///
    /// throws   Mell::AbortException from `progress`; Mell::Exception "The part is open where the
    ///          plane meets it, near (x, y, z). Repair the part and cut again." if the part has a
    ///          border there, so that the cut could not be closed; "The cutting plane ends within
    ///          the part. Make the plane larger than the part." Nothing has been written then
    /// cost     one pass over the part, plus O(k log k) for the k triangles that the plane meets
    static void cutByPlane(MeshKernel* part, MeshKernel* plane, MeshKernel* sideA,
                           MeshKernel* sideB, MeshKernel* section,
                           std::function<void(int)> progress, bool flag);

    /// Combines two solids; `out` holds one empty kernel that receives the result, which may be
    /// empty.
    static void boolean(MeshKernel* a, MeshKernel* b, std::vector<MeshKernel*>& out,
                        BooleanType type, std::function<void(int)> progress, int flag);

    /// Splits `a` by `b` in one pass: `first` receives a within b, `second` a less b.
    static void boolean_subtract_keep(MeshKernel* a, MeshKernel* b, MeshKernel* first,
                                      MeshKernel* second, std::function<void(int)> progress,
                                      int flag);
};

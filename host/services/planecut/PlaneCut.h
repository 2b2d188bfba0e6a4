// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/planecut/SideCopies.h"
#include "platform/services/PlaneCutNotes.h"

#include <functional>
#include <memory>

/// What is wanted of a plane cut: at least one half.
struct PlaneCutWants
{
    bool above = true;
    bool below = true;
    bool section = true;

    bool bothHalves() const { return above && below; }
};

/// Takes over a half of a plane cut, which has triangles.
using TakeHalf = std::function<void(CutSide, std::unique_ptr<UMesh<float>>)>;

/// What a plane cut makes beside its halves.
struct PlaneCutResult
{
    /// Only if it is wanted.
    std::unique_ptr<UMesh<float>> section;
    /// The plane meets nothing of the part: all of it belongs to one side, and nothing was copied or
    /// handed out.
    enum class Whole
    {
        no,
        above,
        below,
    } whole = Whole::no;
    PlaneCutNotes notes;
};

/// Cuts a mesh by a plane; the contract is that of Intersect::cutByPlane.
///
/// Stages: the vertices' sides; copies of the triangles that lie wholly on one side; contours of
/// those that meet the plane; one constrained Delaunay triangulation of the section; the cut
/// triangles and the caps of both halves on the same section points. Where the plane mesh does not
/// cover the section, boundCut() chooses its faces and everything's half before the last stage.
/// Where the contours have a fault, all this is done once more with what orderAtPlane() makes of
/// the part.
///
/// wants  a half that is made alone has the same bytes as if both were made. Both are made all the
///        same where the plane does not cover the section, or rounding leaves something to mend
/// take   receives each half that is wanted once, that below first, and as a rule before the other
///        one is made
///
/// See docs/decisions/0001-plane-cut.md.
PlaneCutResult cutMeshByPlane(UMesh<float> const& part, CutPlane const& plane,
                              PlaneCutWants const& wants, TakeHalf const& take,
                              std::function<void(int)> const& progress);

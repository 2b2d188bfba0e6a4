// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <functional>
#include <memory>
#include <vector>

/// What a plane cut did to a part beyond cutting it, and what it could not mend: a place of each in
/// world millimetres.
struct PlaneCutNotes
{
    /// Triangles that faced the other way than those around them.
    std::vector<UPoint3<float>> turned;
    /// Triangles that lay there once more.
    std::vector<UPoint3<float>> doubled;
    /// Pairs of triangles of a piece that cross for having been rounded.
    std::vector<UPoint3<float>> crossing;
};

/// Adds what is told of one cut to what is told of others.
inline void append(PlaneCutNotes& all, PlaneCutNotes const& notes)
{
    all.turned.insert(all.turned.end(), notes.turned.begin(), notes.turned.end());
    all.doubled.insert(all.doubled.end(), notes.doubled.begin(), notes.doubled.end());
    all.crossing.insert(all.crossing.end(), notes.crossing.begin(), notes.crossing.end());
}

/// Does what Intersect::cutByPlane does, and tells about it. What is told is in the log as well.
///
/// section  null if nobody wants it, which saves a good part of a cut with long contours
PlaneCutNotes cutByPlaneWithNotes(MeshKernel const& part, MeshKernel const& plane,
                                  MeshKernel& sideA, MeshKernel& sideB, MeshKernel* section,
                                  std::function<void(int)> const& progress);

/// Takes over a piece of a plane cut, which has triangles and nobody else uses unless it is the whole
/// part.
using TakeCutSide = std::function<void(bool isAbove, std::shared_ptr<MeshKernel> const& piece)>;

/// The same, but each piece is handed out when it is made, that below first and as a rule before there
/// is another one: so that both need not be in memory at once. Where it throws, one may have been
/// handed out.
PlaneCutNotes cutByPlaneInTurn(MeshKernel const& part, MeshKernel const& plane,
                               TakeCutSide const& take, MeshKernel* section,
                               std::function<void(int)> const& progress);

/// The two sides of a plane cut.
enum class PlaneSide
{
    a,
    b,
};

/// What a cut that makes one piece tells.
struct CutOffNotes
{
    /// Whether there is anything on the other side.
    bool isOtherFilled = false;
    PlaneCutNotes ofCut;
};

/// Does what cutByPlaneWithNotes does, but makes only the piece on one side, the same to the byte:
/// the other takes neither time nor memory where the plane covers the section, as a rule.
///
/// piece  empty; receives the piece
CutOffNotes cutOffByPlane(MeshKernel const& part, MeshKernel const& plane, PlaneSide side,
                          MeshKernel& piece, MeshKernel* section,
                          std::function<void(int)> const& progress);

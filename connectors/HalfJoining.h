// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ShellSurvey.h"

class PlaneFrame;

/// How far raised solids reach into the lower half, in millimetres.
inline constexpr float connectorOverlapMm = 0.01f;

// Both give up each plain half as soon as it has been read, since the halves of a large part are
// what a run needs its memory for.

/// Puts a raised solid on the lower half and takes its counterpart out of the upper half.
///
/// raised    trimmed to the material of the uncut part and joined to the lower half
/// hollow    taken out of the upper half
/// shells    looks at the halves that solids are combined with
/// progress  of the stage; may be empty
/// throws    as Intersect::boolean
Halves joinRaisedAndHollow(PartOfRun& part, MeshKernel& raised, MeshKernel& hollow,
                           ShellSurvey& shells, std::function<void(int)> const& progress);

/// Sinks the floor of a hollow below the upper half's face, if it lies less than the overlap of
/// raised solids below it: floor and face in one plane, as far as rounding tells, would leave a
/// film between them. Nothing of the upper half is there.
///
/// hollow  its floor lies in the section plane
/// gap     between the two faces
void sinkFloor(MeshKernel& hollow, PlaneFrame const& frame, float gap);

/// Takes the same solid out of both halves.
Halves takeOutOfBoth(PartOfRun& part, MeshKernel& hollow, ShellSurvey& shells,
                     std::function<void(int)> const& progress);

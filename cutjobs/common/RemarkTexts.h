// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutRemark.h"
#include "platform/services/CombiningNotes.h"
#include "platform/services/PlaneCutNotes.h"

// The remarks that cuts make, in words.

/// bounded  the plane ends at its rectangle
CutRemark planeMisses(Mesh::DocumentObject* part, bool bounded);
/// What a plane cut did beyond cutting.
CutRemarks remarksOn(PlaneCutNotes const& notes, Mesh::DocumentObject* part);
/// What combining solids has left in the pieces.
CutRemarks remarksOn(CombiningNotes const& notes, Mesh::DocumentObject* part);
CutRemark toolMisses(Mesh::DocumentObject* part);
CutRemark toolHoldsPart(Mesh::DocumentObject* part);

CutRemark noRoomForPins(Mesh::DocumentObject* part);
CutRemark noRoomForJoint(Mesh::DocumentObject* part);

CutRemark gapTakesPart(Mesh::DocumentObject* part);
CutRemark gapTakesInside(Mesh::DocumentObject* part);
CutRemark gapTakesOutside(Mesh::DocumentObject* part);
CutRemark gapTakesUpper(Mesh::DocumentObject* part);
CutRemark gapTakesLower(Mesh::DocumentObject* part);

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "connectors/ContourDistance.h"
#include "connectors/SectionContour.h"

template <typename T>
class UMesh;

/// The centre lines of a section: its chordal axis, which joins the midpoints of the inner edges of
/// the triangulated section face; a triangle with three usable edges is a junction at its centroid.
///
/// mesh       the section face, with topology built and triangles numbered in list order
/// contours   distances from the section's contours
/// clearance  an edge is usable if its midpoint is farther than this and 0.1 mm from every contour
/// poll       called for every triangle; may be empty; what it throws passes
/// returns    polylines in space, each with at least two points
/// cost       one distance for each inner edge, then linear
std::vector<std::vector<UPoint3<float>>> extractCentreLines(
    UMesh<float>& mesh, ContourDistance const& contours, float clearance,
    ConnectorProgress::Poll const& poll = {});

/// Whether a point's distance from the contours leaves the margin of 0.1 mm beyond a clearance.
///
/// recall  kept from point to point
bool isClearOfContours(ContourDistance const& contours, UPoint3<float> const& p, float clearance,
                       ContourDistance::Recall& recall);

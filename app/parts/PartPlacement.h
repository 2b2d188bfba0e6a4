// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <vector>

/// Moves, turns, reflections and scales of parts as a user gives them by numbers, each as one named undo step. World
/// millimetres and degrees. What would change nothing makes no step and returns false; a number
/// that is not finite counts as nothing.
///
/// parts   of the document, each once
/// thread  the user interface thread
/// cost    one pass over the parts' vertices, for their boxes
namespace PartPlacement {

using Parts = std::vector<Mesh::DocumentObject*>;

/// The box around parts; null without geometry.
UBox3<float> boxOf(Parts const& parts);
UPoint3<float> middleOf(UBox3<float> const& box);

bool move(Mesh::Document& document, Parts const& parts, UVector3<float> const& offset);
/// Turns about the x, then the y, then the z axis through the middle of the parts' box.
bool rotate(Mesh::Document& document, Parts const& parts, UVector3<double> const& degrees);
/// Lets every part down, or up, until it stands on the plane z = 0.
bool dropToPlate(Mesh::Document& document, Parts const& parts);
/// Moves the parts together until the middle of their box is over the origin.
bool centreOnPlate(Mesh::Document& document, Parts const& parts);

/// Turns by 90 degrees about an axis through the middle of the parts' box, to the bit: what is flat
/// stays so.
///
/// axis  0, 1 or 2; isBackwards against the right-hand rule
bool quarterTurn(Mesh::Document& document, Parts const& parts, int axis, bool isBackwards);
/// Reflects the parts together in the middle of their box, along an axis: 0, 1 or 2.
bool mirror(Mesh::Document& document, Parts const& parts, int axis);
/// The largest and the smallest factor by which parts are scaled at once.
constexpr double largestFactor = 1e4, smallestFactor = 1e-4;
/// Scales the parts together about the middle of the bottom of their box, so that what stands on the
/// plate stays on it. Factors outside the limits above change nothing.
bool scale(Mesh::Document& document, Parts const& parts, UVector3<double> const& factors);

/// A part, and what is to point down.
struct Lying
{
    Mesh::DocumentObject* part;
    UVector3<double> down;
};
/// Turns each part about its own middle, by the shortest way, until its direction points down, and
/// lets it down onto the plane z = 0. A direction of no length turns nothing.
bool layDown(Mesh::Document& document, std::vector<Lying> const& lying);
/// Lays each part on its largest flat face that can carry it. Parts without one stay as they are.
///
/// left  takes these
bool layOnLargestFace(Mesh::Document& document, Parts const& parts, Parts& left);

/// What became of parts of which no face that a cut made can carry them.
struct CutFaceOutcome
{
    /// They lie on their largest flat face instead.
    Parts onLargest;
    /// They have no flat face, and stay as they are.
    Parts left;
};
/// Lays each part on the largest face that a plane cut made, or else on its largest flat face.
bool layOnCutFace(Mesh::Document& document, Parts const& parts, CutFaceOutcome& outcome);

}  // namespace PartPlacement

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <vector>

class MeshKernel;

/// A closed polygon in space, in walking order. Its first point stands twice at the head, and the
/// closing edge is left implicit. It has at least three different points.
using SectionContour = std::vector<UPoint3<float>>;

/// Walks the borders of a section face.
///
/// cap      the section face, its triangles facing along the plane's normal N. Afterwards its
///          topology is built, and its triangles and vertices are numbered in list order
/// returns  outer contours clockwise and those of holes anticlockwise, seen from the tip of N, in
///          the order of their first triangles
/// cost     linear in the triangles
std::vector<SectionContour> extractSectionContours(MeshKernel* cap);

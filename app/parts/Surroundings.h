// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/Measuring.h"

#include <optional>
#include <vector>

// What a place on a part's surface belongs to: the flat face around it, and the straight edge of that
// face near it. World millimetres and degrees.
namespace Measuring {

struct Edge
{
    UPoint3<double> from;
    UPoint3<double> to;

    UVector3<double> along() const { return to - from; }
    double length() const { return along().GetLength(); }
};

struct Face
{
    /// Square millimetres.
    double area = 0;
    std::vector<Edge> outline;
};

struct Surroundings
{
    /// All of the straight line on which the triangles' edges lie; none if there is no sharp edge
    /// within reach.
    std::optional<Edge> edge;
    /// None on a bent surface.
    std::optional<Face> face;
};

/// reach  how far an edge may be from the place
/// cost   two passes over the triangles
Surroundings surroundingsOf(MeshKernel const& part, SurfacePoint const& at, double reach);

double distance(UPoint3<double> const& point, Edge const& edge);
double distance(Edge const& a, Edge const& b);
/// Between the lines of two edges, 0 to 90.
double angle(Edge const& a, Edge const& b);

}  // namespace Measuring

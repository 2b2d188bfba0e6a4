// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/SolidPicture.h"
#include "platform/geometry/UPoint3.h"

#include <vector>

// What is drawn of connectors before they are cut, said once for both versions of OpenGL.
namespace Freecut {

/// How a connector looks.
enum class ConnectorLook
{
    Pin,
    Hole,
    /// It breaks through the part's surface.
    Leaving,
    /// It is left out.
    Ghost,
};

/// The connectors of a section, in world millimetres.
struct ConnectorShapes
{
    struct Cylinder
    {
        UPoint3<float> bottom;
        UPoint3<float> top;
        float radius;
        ConnectorLook look;
    };
    /// A closed line, or one of two points.
    struct Line
    {
        std::vector<UPoint3<float>> points;
        ConnectorLook look;
    };

    std::vector<Cylinder> cylinders;
    std::vector<Line> lines;

    bool isEmpty() const { return cylinders.empty() && lines.empty(); }
};

namespace ConnectorColors {

inline constexpr Color255 pin{0, 110, 200, 90};
inline constexpr Color255 hole{235, 150, 0, 90};
inline constexpr Color255 leaving{225, 20, 20, 120};
inline constexpr Color255 ghost{128, 128, 128, 40};

}  // namespace ConnectorColors

/// Vertices, three floats each, and what is drawn of them, in order: faces, blended by the colour's
/// alpha, and then lines.
struct ConnectorPicture
{
    std::vector<float> vertices;
    std::vector<ColoredRuns> strokes;
};

ConnectorPicture pictureOf(ConnectorShapes const& shapes);

}  // namespace Freecut

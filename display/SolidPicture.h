// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/LineDrawing.h"
#include "tools/ToolOutlines.h"

#include <vector>

// What is drawn of a solid tool, said once for both versions of OpenGL.
namespace Freecut {

namespace ToolColors {

/// The nominal outline.
inline constexpr Color255 red{255, 0, 0, 255};
/// The nominal outline beside one with rounded corners.
inline constexpr Color255 pink{255, 192, 203, 255};
/// The outlines on both sides of the clearance.
inline constexpr Color255 darkBlue{8, 46, 84, 255};
/// Teeth under edit.
inline constexpr Color255 purple{104, 34, 139, 255};
/// The handles of teeth.
inline constexpr Color255 translucentPurple{104, 34, 139, 122};
/// The faces of a preview, as opaque as the record says.
inline constexpr Color255 yellow{255, 255, 0, 255};
/// What falls away where a polygon crosses itself.
inline constexpr Color255 cyan{0, 255, 255, 255};

}  // namespace ToolColors

/// Runs of one colour.
struct ColoredRuns
{
    Color255 color;
    std::vector<LineRun> runs;
};

/// Vertices that are uploaded together, and what is drawn of them, in order.
struct LinePass
{
    /// Borrowed from the outlines.
    std::vector<float> const* vertices;
    std::vector<ColoredRuns> strokes;
    /// Those of faces with light on them, borrowed too; null for lines.
    std::vector<float> const* normals = nullptr;
};

using LinePicture = std::vector<LinePass>;

LinePicture pictureOfCuboid(ToolOutlines const& outlines, bool isRounded);
LinePicture pictureOfCylinder(ToolOutlines const& outlines);
/// vertexCount  the corners that were drawn; two of them make a single line
LinePicture pictureOfPolygon(ToolOutlines const& outlines, bool isRounded, std::size_t vertexCount);

/// The solid of a preview; it draws nothing without runs.
LinePass passOfFaces(ToolOutlines const& outlines, unsigned alpha, std::vector<LineRun> runs);
/// The faces in the preview buffer as OpenGL 2.1 gets them.
std::vector<LineRun> facesAsTriangles(ToolOutlines const& outlines);
/// As OpenGL 3.3 gets them: a cuboid's caps, then its sides, as fans.
std::vector<LineRun> facesOfCuboid33(ToolOutlines const& outlines);
/// The sides of all loops as fans, then their caps as triangles.
std::vector<LineRun> facesOfPrisms33(ToolOutlines const& outlines);

}  // namespace Freecut

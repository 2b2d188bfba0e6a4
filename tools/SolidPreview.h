// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

namespace Freecut {

/// Writes the faces of a solid as coordinates to draw: for OpenGL 2.1 as triangles with a normal
/// for each corner, for OpenGL 3.3 as points alone, with the sides as fans of four.
class SolidPreview
{
public:
    /// positions, normals  appended to; borrowed
    SolidPreview(bool isOpenGL33, std::vector<float>& positions, std::vector<float>& normals)
        : m_isOpenGL33(isOpenGL33), m_positions(positions), m_normals(normals)
    {}

    bool isOpenGL33() const { return m_isOpenGL33; }

    /// The points themselves, without normals.
    void addPoints(Ring const& points);
    void addTriangle(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c);
    /// The walls between two rings of as many points, the upper one anticlockwise from above.
    void addSides(Ring const& top, Ring const& bottom);
    /// The triangles of the bottom, each followed by its image at the top. As triangles with
    /// normals the bottom's face downward.
    void addCaps(Ring const& bottom, UVector3<float> const& extrudeVector);

private:
    bool m_isOpenGL33;
    std::vector<float>& m_positions;
    std::vector<float>& m_normals;
};

/// Appends x, y and z of each point.
void appendCoordinates(std::vector<float>& coordinates, Ring const& points);

}  // namespace Freecut

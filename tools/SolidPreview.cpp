// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SolidPreview.h"

#include "tools/EarClipping.h"

namespace Freecut {

namespace {

template <typename Triple>
void append(std::vector<float>& coordinates, Triple const& triple)
{
    coordinates.insert(coordinates.end(), {triple.X(), triple.Y(), triple.Z()});
}

}  // namespace

void appendCoordinates(std::vector<float>& coordinates, Ring const& points)
{
    for (UPoint3<float> const& point : points)
        append(coordinates, point);
}

void SolidPreview::addPoints(Ring const& points)
{
    appendCoordinates(m_positions, points);
}

void SolidPreview::addTriangle(UPoint3<float> const& a, UPoint3<float> const& b,
                               UPoint3<float> const& c)
{
    UVector3<float> const normal = ((b - a) * (c - a)).Normalize();
    for (UPoint3<float> const& corner : {a, b, c}) {
        append(m_positions, corner);
        if (!m_isOpenGL33)
            append(m_normals, normal);
    }
}

void SolidPreview::addSides(Ring const& top, Ring const& bottom)
{
    for (std::size_t i = 0; i < top.size(); ++i) {
        std::size_t const next = (i + 1) % top.size();
        if (m_isOpenGL33) {
            addPoints({top[i], bottom[i], bottom[next], top[next]});
        } else {
            addTriangle(top[i], bottom[i], bottom[next]);
            addTriangle(top[i], bottom[next], top[next]);
        }
    }
}

void SolidPreview::addCaps(Ring const& bottom, UVector3<float> const& extrudeVector)
{
    for (auto const& [i, k, l] : earsOfLoop(bottom, extrudeVector)) {
        UPoint3<float> const& a = bottom[i];
        UPoint3<float> const& b = bottom[k];
        UPoint3<float> const& c = bottom[l];
        if (m_isOpenGL33)
            addTriangle(a, b, c);
        else
            addTriangle(c, b, a);
        addTriangle(a + extrudeVector, b + extrudeVector, c + extrudeVector);
    }
}

}  // namespace Freecut

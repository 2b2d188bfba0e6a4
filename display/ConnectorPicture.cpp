// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/ConnectorPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

// Of one cylinder; the more there are, the fewer facets each has.
constexpr std::size_t mostFacets = 24;
constexpr std::size_t leastFacets = 4;
/// Of all cylinders together, as far as that goes: what a picture in software can take.
constexpr std::size_t facetsOfAll = 24000;
/// Lines along a cylinder, between its ends.
constexpr std::size_t sideLines = 4;
constexpr ConnectorLook looks[] = {ConnectorLook::Ghost, ConnectorLook::Hole, ConnectorLook::Pin,
                                   ConnectorLook::Leaving};

Color255 colorOf(ConnectorLook look)
{
    switch (look) {
        case ConnectorLook::Pin:
            return ConnectorColors::pin;
        case ConnectorLook::Hole:
            return ConnectorColors::hole;
        case ConnectorLook::Leaving:
            return ConnectorColors::leaving;
        case ConnectorLook::Ghost:
            break;
    }
    return ConnectorColors::ghost;
}

/// Two unit vectors at right angles to an axis and to each other.
std::array<Vector, 2> across(Vector const& axis)
{
    Vector const least =
        std::abs(axis.X()) < 0.6f * axis.GetLength() ? Vector(1, 0, 0) : Vector(0, 1, 0);
    Vector u = axis * least;
    u.Normalize();
    Vector v = axis * u;
    v.Normalize();
    return {u, v};
}

class PictureWriter
{
public:
    explicit PictureWriter(std::size_t cylinders)
        : m_facets(std::clamp(facetsOfAll / std::max<std::size_t>(cylinders, 1), leastFacets,
                              mostFacets))
    {}

    ConnectorPicture write(ConnectorShapes const& shapes)
    {
        for (ConnectorLook const look : looks) {
            for (auto const& cylinder : shapes.cylinders)
                if (cylinder.look == look)
                    addFaces(cylinder);
            endRun(look, GL_TRIANGLES);
        }
        for (ConnectorLook const look : looks) {
            for (auto const& cylinder : shapes.cylinders)
                if (cylinder.look == look)
                    addEdges(cylinder);
            for (auto const& line : shapes.lines)
                if (line.look == look)
                    addLine(line.points);
            endRun(look, GL_LINES);
        }
        return std::move(m_picture);
    }

private:
    using Ring = std::vector<Point>;

    std::array<Ring, 2> ringsOf(ConnectorShapes::Cylinder const& cylinder) const
    {
        auto const [u, v] = across(cylinder.top - cylinder.bottom);
        std::array<Ring, 2> rings;
        for (std::size_t i = 0; i < m_facets; ++i) {
            float const angle = float(i) * 2 * std::numbers::pi_v<float> / float(m_facets);
            Vector const out =
                u * (cylinder.radius * std::cos(angle)) + v * (cylinder.radius * std::sin(angle));
            rings[0].push_back(cylinder.bottom + out);
            rings[1].push_back(cylinder.top + out);
        }
        return rings;
    }

    void addFaces(ConnectorShapes::Cylinder const& cylinder)
    {
        auto const [low, high] = ringsOf(cylinder);
        for (std::size_t i = 0; i < m_facets; ++i) {
            std::size_t const next = (i + 1) % m_facets;
            for (Point const& p :
                 {cylinder.bottom, low[next], low[i], cylinder.top, high[i], high[next], low[i],
                  low[next], high[next], low[i], high[next], high[i]})
                add(p);
        }
    }

    void addEdges(ConnectorShapes::Cylinder const& cylinder)
    {
        auto const [low, high] = ringsOf(cylinder);
        for (Ring const& ring : {low, high})
            addLine(ring);
        for (std::size_t i = 0; i < m_facets; i += m_facets / sideLines) {
            add(low[i]);
            add(high[i]);
        }
    }

    template <typename Points>
    void addLine(Points const& points)
    {
        // A line of two points has nothing to close.
        std::size_t const pieces = points.size() > 2 ? points.size() : points.size() / 2;
        for (std::size_t i = 0; i < pieces; ++i) {
            add(points[i]);
            add(points[(i + 1) % points.size()]);
        }
    }

    void add(Point const& p)
    {
        m_picture.vertices.insert(m_picture.vertices.end(), {p.X(), p.Y(), p.Z()});
    }

    void endRun(ConnectorLook look, GLenum mode)
    {
        int const end = int(m_picture.vertices.size() / 3);
        if (end == m_begin)
            return;
        Color255 color = colorOf(look);
        bool const isLine = mode == GL_LINES;
        if (isLine)
            color[3] = look == ConnectorLook::Ghost ? 120 : 255;
        m_picture.strokes.push_back({color, {{mode, m_begin, end - m_begin, true}}});
        m_begin = end;
    }

    std::size_t m_facets;
    ConnectorPicture m_picture;
    int m_begin = 0;
};

}  // namespace

ConnectorPicture pictureOf(ConnectorShapes const& shapes)
{
    return PictureWriter(shapes.cylinders.size()).write(shapes);
}

}  // namespace Freecut

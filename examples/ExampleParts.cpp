// SPDX-License-Identifier: GPL-3.0-or-later
#include "examples/ExampleParts.h"

#include "host/formats/MeshBuilder.h"
#include "host/formats/PolygonSplitter.h"
#include "platform/services/EarcutPolygon.h"

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

using Ring = std::vector<UPoint3<float>>;

constexpr double fullTurn = 2 * std::numbers::pi;

class SolidBuilder
{
public:
    /// The strip between two rings of the same length. Seen from outside, `first` runs from left to
    /// right and `second` lies above it.
    void strip(Ring const& first, Ring const& second)
    {
        for (std::size_t i = 0; i < first.size(); ++i) {
            std::size_t const j = (i + 1) % first.size();
            polygon({first[i], first[j], second[j], second[i]});
        }
    }

    /// Anticlockwise seen from outside; convex or not.
    void polygon(Ring const& ring)
    {
        std::vector<UVertex<float>*> corners;
        for (UPoint3<float> const& p : ring)
            corners.push_back(m_builder.points().join(p));
        m_splitter.add(corners);
    }

    void triangles(std::vector<Ring> const& list)
    {
        for (Ring const& t : list)
            polygon(t);
    }

    void trianglesReversed(std::vector<Ring> const& list)
    {
        for (Ring const& t : list)
            polygon(Ring(t.rbegin(), t.rend()));
    }

    /// A disc around `centre`, on the side to which the ring runs anticlockwise.
    void disc(Ring const& ring, UPoint3<float> const& centre)
    {
        for (std::size_t i = 0; i < ring.size(); ++i)
            polygon({centre, ring[i], ring[(i + 1) % ring.size()]});
    }

    std::unique_ptr<MeshKernel> finish() { return m_builder.finish(); }

private:
    Formats::MeshBuilder m_builder{4096, 2048};
    Formats::PolygonSplitter m_splitter{m_builder};
};

/// A ring of the vase, anticlockwise seen from above. The waves fade towards the foot.
Ring vaseRing(double height, double inset)
{
    constexpr int segments = 48;
    constexpr int waves = 8;
    double const share = height / 90;
    double const radius = 26 + 9 * std::sin(share * 4.2) - inset;
    Ring ring;
    for (int i = 0; i < segments; ++i) {
        double const angle = fullTurn * i / segments;
        double const reach = radius + 1.5 * share * std::cos(waves * angle);
        ring.push_back(
            {float(reach * std::cos(angle)), float(reach * std::sin(angle)), float(height)});
    }
    return ring;
}

constexpr int holeSegments = 48;

/// The edge of a round hole, anticlockwise seen from above.
Ring holeRing(double x, double y, double z, double radius)
{
    Ring ring;
    for (int i = 0; i < holeSegments; ++i) {
        double const angle = fullTurn * (double(i) / holeSegments + 0.625);
        ring.push_back(
            {float(x + radius * std::cos(angle)), float(y + radius * std::sin(angle)), float(z)});
    }
    return ring;
}

/// A rectangle with a round hole, facing up.
std::vector<Ring> holedRectangle(Ring const& corners, Ring const& hole)
{
    Ring points = corners;
    points.insert(points.end(), hole.rbegin(), hole.rend());
    std::vector<std::vector<std::array<double, 2>>> rings(2);
    for (std::size_t i = 0; i < points.size(); ++i)
        rings[i < corners.size() ? 0 : 1].push_back({points[i].X(), points[i].Y()});
    std::vector<Ring> triangles;
    std::vector<int> const indices = EarcutPolygon::earcut(rings);
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3)
        triangles.push_back({points[std::size_t(indices[i])], points[std::size_t(indices[i + 1])],
                             points[std::size_t(indices[i + 2])]});
    return triangles;
}

Ring rectangle(float x0, float x1, float y0, float y1, float z)
{
    return {{x0, y0, z}, {x1, y0, z}, {x1, y1, z}, {x0, y1, z}};
}

/// Turns the axes in a circle, x to y to z to x, which keeps the outside outside.
Ring turned(Ring ring)
{
    for (UPoint3<float>& p : ring)
        p = {p.Z(), p.X(), p.Y()};
    return ring;
}

/// A ring of the pipe. Seen from outside it runs from left to right when the bend goes up.
Ring elbowRing(double bend, double radius)
{
    constexpr int segments = 36;
    constexpr double bendRadius = 40;
    constexpr double axisHeight = 15;
    Ring ring;
    for (int i = 0; i < segments; ++i) {
        double const angle = fullTurn * i / segments;
        double const reach = bendRadius + radius * std::cos(angle);
        ring.push_back({float(reach * std::cos(bend)), float(reach * std::sin(bend)),
                        float(axisHeight - radius * std::sin(angle))});
    }
    return ring;
}

}  // namespace

std::unique_ptr<MeshKernel> vase()
{
    constexpr int steps = 18;
    constexpr double wall = 3;
    std::vector<Ring> profile;
    for (int i = 0; i <= steps; ++i)
        profile.push_back(vaseRing(90.0 * i / steps, 0));
    for (int i = steps; i >= 1; --i)
        profile.push_back(vaseRing(90.0 * i / steps, wall));

    SolidBuilder solid;
    for (std::size_t i = 0; i + 1 < profile.size(); ++i)
        solid.strip(profile[i], profile[i + 1]);
    solid.disc(Ring(profile.front().rbegin(), profile.front().rend()), {0, 0, 0});
    solid.disc(profile.back(), {0, 0, profile.back()[0].Z()});
    return solid.finish();
}

std::unique_ptr<MeshKernel> bracket()
{
    constexpr float length = 80;
    constexpr float width = 30;
    constexpr float height = 50;
    constexpr float thickness = 8;
    SolidBuilder solid;

    // The base with its hole, from below and from above.
    Ring const low = holeRing(50, width / 2, 0, 9);
    Ring const high = holeRing(50, width / 2, thickness, 9);
    solid.trianglesReversed(holedRectangle(rectangle(0, length, 0, width, 0), low));
    solid.triangles(holedRectangle(rectangle(thickness, length, 0, width, thickness), high));
    solid.strip(high, low);

    // The wall, drawn lying and turned up.
    Ring const back = holeRing(width / 2, 32, 0, 7);
    Ring const front = holeRing(width / 2, 32, thickness, 7);
    for (Ring const& t : holedRectangle(rectangle(0, width, 0, height, 0), back))
        solid.trianglesReversed({turned(t)});
    for (Ring const& t : holedRectangle(rectangle(0, width, thickness, height, thickness), front))
        solid.triangles({turned(t)});
    solid.strip(turned(front), turned(back));

    solid.polygon(
        {{length, 0, 0}, {length, width, 0}, {length, width, thickness}, {length, 0, thickness}});
    solid.polygon(rectangle(0, thickness, 0, width, height));
    solid.polygon({{0, 0, 0},
                   {length, 0, 0},
                   {length, 0, thickness},
                   {thickness, 0, thickness},
                   {thickness, 0, height},
                   {0, 0, height}});
    solid.polygon({{0, width, height},
                   {thickness, width, height},
                   {thickness, width, thickness},
                   {length, width, thickness},
                   {length, width, 0},
                   {0, width, 0}});
    return solid.finish();
}

std::unique_ptr<MeshKernel> elbow()
{
    constexpr int steps = 12;
    std::vector<Ring> rings;
    for (int i = 0; i <= steps; ++i)
        rings.push_back(elbowRing(fullTurn / 4 * i / steps, 15));
    for (int i = steps; i >= 0; --i)
        rings.push_back(elbowRing(fullTurn / 4 * i / steps, 11));

    SolidBuilder solid;
    for (std::size_t i = 0; i < rings.size(); ++i)
        solid.strip(rings[i], rings[(i + 1) % rings.size()]);
    return solid.finish();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/ConnectorPicture.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace Freecut;

namespace {

ConnectorShapes::Cylinder cylinderAt(float x, ConnectorLook look)
{
    return {{x, 0, 1}, {x, 3, 5}, 2, look};
}

/// The triangles of a run.
Soup soupOf(ConnectorPicture const& picture, LineRun const& run)
{
    Soup soup;
    for (int i = run.first; i < run.first + run.count; ++i) {
        float const* const p = picture.vertices.data() + 3 * i;
        soup.add({p[0], p[1], p[2]});
    }
    for (std::uint32_t i = 0; i + 2 < soup.points.size(); i += 3)
        soup.add(i, i + 1, i + 2);
    soup.joinPoints();
    return soup;
}

}  // namespace

TEST(ConnectorPicture, ACylinderIsAClosedSolid)
{
    ConnectorPicture const picture = pictureOf({{cylinderAt(0, ConnectorLook::Pin)}, {}});
    ASSERT_EQ(picture.strokes.size(), 2u);
    EXPECT_EQ(picture.strokes[0].color, ConnectorColors::pin);
    ASSERT_EQ(picture.strokes[0].runs[0].mode, GLenum(GL_TRIANGLES));
    EXPECT_TRUE(picture.strokes[0].runs[0].isBlended);
    Soup const solid = soupOf(picture, picture.strokes[0].runs[0]);
    EXPECT_EQ(closedSolidFaults(solid), "");
    double const corners = 24;
    double const area = corners / 2 * 4 * std::sin(2 * std::numbers::pi / corners);
    EXPECT_NEAR(volumeOf(solid), area * 5, 1e-3);
    for (UPoint3<float> const& p : solid.points) {
        double const along = (p.Y() * 3 + (p.Z() - 1) * 4) / 5;
        EXPECT_TRUE(std::abs(along) < 1e-5 || std::abs(along - 5) < 1e-5) << along;
    }
}

TEST(ConnectorPicture, LinesComeAfterAllFacesAndEachLookHasItsColour)
{
    ConnectorPicture const picture =
        pictureOf({{cylinderAt(0, ConnectorLook::Pin), cylinderAt(9, ConnectorLook::Leaving),
                    cylinderAt(18, ConnectorLook::Ghost), cylinderAt(27, ConnectorLook::Hole)},
                   {{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, ConnectorLook::Hole},
                    {{{5, 0, 0}, {5, 0, 1}}, ConnectorLook::Leaving}}});
    ASSERT_EQ(picture.strokes.size(), 8u);
    int next = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        LineRun const& run = picture.strokes[i].runs.at(0);
        EXPECT_EQ(run.mode, GLenum(i < 4 ? GL_TRIANGLES : GL_LINES)) << i;
        EXPECT_EQ(run.first, next);
        next += run.count;
        Color255 plain = picture.strokes[i].color, first = picture.strokes[i % 4].color;
        plain[3] = first[3] = 0;
        EXPECT_EQ(plain, first) << "a line has its face's colour";
    }
    EXPECT_EQ(std::size_t(next) * 3, picture.vertices.size());
    // The triangle is closed, the line of two points is one line.
    int const lines = picture.strokes[4].runs[0].count;
    EXPECT_EQ(picture.strokes[5].runs[0].count, lines + 6);
    EXPECT_EQ(picture.strokes[6].runs[0].count, lines);
    EXPECT_EQ(picture.strokes[7].runs[0].count, lines + 2);
}

TEST(ConnectorPicture, ThousandsOfCylindersHaveFewFacetsEach)
{
    ConnectorShapes shapes;
    for (int i = 0; i < 20000; ++i)
        shapes.cylinders.push_back(cylinderAt(float(5 * i), ConnectorLook::Hole));
    ConnectorPicture const picture = pictureOf(shapes);
    EXPECT_EQ(picture.strokes[0].runs[0].count, 20000 * 4 * 12);
    EXPECT_TRUE(pictureOf({}).vertices.empty());
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/CameraWatch.h"
#include "display/SolidPicture.h"
#include "display/ToolLabels.h"
#include "display/VolumeViewProvider.h"
#include "tests/display/DrawnTool.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/VolumeOutline.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace Freecut {

bool operator==(LineRun const& a, LineRun const& b)
{
    return a.mode == b.mode && a.first == b.first && a.count == b.count &&
           a.isBlended == b.isBlended;
}

void PrintTo(LineRun const& run, std::ostream* out)
{
    *out << "{" << run.mode << ", " << run.first << ", " << run.count << "}";
}

}  // namespace Freecut

namespace {

using namespace Freecut;
using Runs = std::vector<LineRun>;
using Point = UPoint3<float>;

template <typename Tool>
ToolOutlines const& outlinesOf(Tool* tool)
{
    auto* const provider = static_cast<VolumeViewProvider*>(tool->getViewProvider());
    provider->updateGeometry();
    return provider->getOutline()->outlines();
}

void expectStroke(ColoredRuns const& stroke, Color255 const& color, Runs const& runs)
{
    EXPECT_EQ(stroke.color, color);
    EXPECT_EQ(stroke.runs, runs);
}

class SolidPicture : public testing::Test
{
protected:
    SolidPicture() { test.add(box(100, 100, 50), "part"); }

    CuboidGraphicObject* drawCuboid(bool isRounded)
    {
        auto* const tool = test.draw<CuboidGraphicObject>({{0, 0}});
        CuboidProperty& record = tool->getProperty();
        record.setCuboidParameters(true, 2, 1, false, 0, 178, isRounded, 3, false, 2, 20, 30, 0);
        return tool;
    }

    DrawnDocument test;
};

}  // namespace

TEST_F(SolidPicture, OfACuboidIsRedAndBesideItsRoundedOutlinePink)
{
    ToolOutlines const& sharp = outlinesOf(drawCuboid(false));
    LinePicture const plain = pictureOfCuboid(sharp, false);
    ASSERT_EQ(plain.size(), 3u);
    EXPECT_EQ(plain[0].vertices, &sharp.outlineBuffer);
    expectStroke(plain[0].strokes[0], ToolColors::red, {});
    expectStroke(plain[0].strokes[1], ToolColors::red, {{GL_LINE_LOOP, 0, 4}});

    ToolOutlines const& round = outlinesOf(drawCuboid(true));
    int const rounded = int(round.roundedRing().size());
    ASSERT_GT(rounded, 4);
    LinePicture const picture = pictureOfCuboid(round, true);
    expectStroke(picture[0].strokes[0], ToolColors::red, {{GL_LINE_LOOP, 0, rounded}});
    expectStroke(picture[0].strokes[1], ToolColors::pink, {{GL_LINE_LOOP, rounded, 4}});
    EXPECT_EQ(picture[1].vertices, &round.outerBuffer);
    expectStroke(picture[1].strokes[0], ToolColors::darkBlue,
                 {{GL_LINE_LOOP, 0, int(round.outerRing().size())}});
    EXPECT_EQ(picture[2].vertices, &round.innerBuffer);
    expectStroke(picture[2].strokes[0], ToolColors::darkBlue,
                 {{GL_LINE_LOOP, 0, int(round.innerRing().size())}});
}

TEST_F(SolidPicture, OfACylinderIsItsRingInRed)
{
    auto* const tool = test.draw<CylinderGraphicObject>({{0, 0}, {0, 9}});
    tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 2, 9, true, 2, 2, 0,
                                           0.025f);
    ToolOutlines const& outlines = outlinesOf(tool);
    LinePicture const picture = pictureOfCylinder(outlines);
    ASSERT_EQ(picture.size(), 3u);
    ASSERT_EQ(picture[0].strokes.size(), 1u);
    expectStroke(picture[0].strokes[0], ToolColors::red,
                 {{GL_LINE_LOOP, 0, int(outlines.baseRing().size())}});
    EXPECT_TRUE(picture[1].strokes[0].runs.empty());
}

TEST_F(SolidPicture, OfAPolygonHasTeethThenResidualThenRoundedThenNominalThenClearance)
{
    // Two lobes, one of which falls away.
    auto* const tool =
        test.draw<PolygonGraphicObject>({{0, 0}, {40, 48}, {40, 0}, {16, 12}, {0, 40}});
    PolygonProperty& record = tool->getProperty();
    record.setEdgeRecords(std::vector<TeethEdge>(5));
    for (int const i : {1, 3}) {
        TeethEdge& edge = record.getEdgeRecords()[std::size_t(i)];
        edge.hasTeeth = edge.editing = true;
        edge.teethPoints = {record.getKeyPoints()[std::size_t(i)] + UVector3<float>(3, 3, 0)};
    }
    record.setShapeParameters(true, 1, 0.5f, false, 0, 178, true, 1, false, 2);
    ToolOutlines const& outlines = outlinesOf(tool);
    ASSERT_EQ(outlines.residualLoops.size(), 1u);
    ASSERT_EQ(outlines.solidLoops.size(), 1u);
    int const residual = int(outlines.residualLoops[0].size()) - 1;
    int const rounded = int(outlines.roundedLoops[0].size());
    int const solid = int(outlines.solidLoops[0].size()) - 1;

    LinePicture const picture = pictureOfPolygon(outlines, true, 5);
    ASSERT_EQ(picture.size(), 4u);
    EXPECT_EQ(picture[0].vertices, &outlines.teethBuffer);
    expectStroke(picture[0].strokes[0], ToolColors::purple,
                 {{GL_LINE_STRIP, 0, 3}, {GL_LINE_STRIP, 3, 3}});
    ASSERT_EQ(picture[1].strokes.size(), 3u);
    expectStroke(picture[1].strokes[0], ToolColors::cyan, {{GL_LINE_LOOP, 0, residual}});
    expectStroke(picture[1].strokes[1], ToolColors::red, {{GL_LINE_LOOP, residual, rounded}});
    expectStroke(picture[1].strokes[2], ToolColors::pink,
                 {{GL_LINE_LOOP, residual + rounded, solid}});
    EXPECT_EQ(outlines.outlineBuffer.size(), std::size_t(3 * (residual + rounded + solid)));
    EXPECT_EQ(picture[2].vertices, &outlines.outerBuffer);
    EXPECT_EQ(picture[3].vertices, &outlines.innerBuffer);
    EXPECT_TRUE(picture[3].strokes[0].runs.empty());

    LinePicture const sharp = pictureOfPolygon(outlines, false, 5);
    EXPECT_EQ(sharp[1].strokes[2].color, ToolColors::red);
}

TEST_F(SolidPicture, OfTwoPointsIsOneRedLine)
{
    auto* const tool = test.draw<PolygonGraphicObject>({{0, 0}, {40, 48}});
    LinePicture const picture = pictureOfPolygon(outlinesOf(tool), false, 2);
    ASSERT_EQ(picture[1].strokes.size(), 1u);
    expectStroke(picture[1].strokes[0], ToolColors::red, {{GL_LINE_LOOP, 0, 2}});
    EXPECT_EQ(picture.size(), 4u) << "the clearance follows";
}

TEST_F(SolidPicture, FacesAreFansAndTrianglesThatUseUpTheBuffer)
{
    CuboidGraphicObject* const cuboid = drawCuboid(true);
    cuboid->getProperty().setPreviewing(true);
    ToolOutlines const& outlines = outlinesOf(cuboid);
    int const n = int(outlines.topRing().size());
    Runs const runs = facesOfCuboid33(outlines);
    ASSERT_EQ(runs.size(), std::size_t(n + 2));
    EXPECT_EQ(runs[0], (LineRun{GL_TRIANGLE_FAN, 0, n, true}));
    EXPECT_EQ(runs[1], (LineRun{GL_TRIANGLE_FAN, n, n, true}));
    EXPECT_EQ(runs[2], (LineRun{GL_TRIANGLE_FAN, 2 * n, 4, true}));
    EXPECT_EQ(runs.back(), (LineRun{GL_TRIANGLE_FAN, 6 * n - 4, 4, true}));

    auto* const polygon = test.draw<PolygonGraphicObject>({{0, 0}, {40, 0}, {40, 30}, {0, 30}});
    polygon->getProperty().setEdgeRecords(std::vector<TeethEdge>(4));
    polygon->getProperty().setPreviewing(true);
    ToolOutlines prism = outlinesOf(polygon);
    // As the buffer of OpenGL 3.3: 4 sides of 4 points, then 2 triangles for each cap.
    prism.previewBuffer.assign(3 * (16 + 12), 0);
    Runs const prismRuns = facesOfPrisms33(prism);
    ASSERT_EQ(prismRuns.size(), 5u);
    EXPECT_EQ(prismRuns[3], (LineRun{GL_TRIANGLE_FAN, 12, 4, true}));
    EXPECT_EQ(prismRuns[4], (LineRun{GL_TRIANGLES, 16, 12, true}));
    prism.topLoops.clear();
    EXPECT_TRUE(facesAsTriangles(prism).empty());
}

TEST(FacesOfPreview, AreYellowWithTheirNormalsAndAsOpaqueAsTheRecordSays)
{
    ToolOutlines const outlines;
    LinePass const faces = passOfFaces(outlines, 178, {{GL_TRIANGLES, 0, 3, true}});
    EXPECT_EQ(faces.vertices, &outlines.previewBuffer);
    EXPECT_EQ(faces.normals, &outlines.normalBuffer);
    ASSERT_EQ(faces.strokes.size(), 1u);
    expectStroke(faces.strokes[0], {255, 255, 0, 178}, {{GL_TRIANGLES, 0, 3, true}});
    EXPECT_TRUE(passOfFaces(outlines, 178, {}).strokes.empty());
}

TEST(CameraChange, FollowsTheTable)
{
    Point const e(0, 0, 1), e2(0, 1, 0), r(0, 0, 0), r2(5, 0, 0);
    UVector3<float> const u(0, 1, 0), u2(1, 0, 0);
    for (auto const& up : {u, u2}) {
        EXPECT_EQ(changeBetween({e, r, u}, {e2, r2, up}), CameraChange::Panned);
        EXPECT_EQ(changeBetween({e, r, u}, {e, r2, up}), CameraChange::ReferenceMoved);
        EXPECT_EQ(changeBetween({e, r, u}, {e2, r, up}), CameraChange::Turned);
    }
    EXPECT_EQ(changeBetween({e, r, u}, {e, r, u2}), CameraChange::Rolled);
    EXPECT_EQ(changeBetween({e, r, u}, {e, r, u}), CameraChange::None);
}

TEST(CoordinateText, HasTheTwoCoordinatesThatTheViewLeavesFree)
{
    QLocale const before;
    QLocale::setDefault(QLocale::c());
    Point const p(1.5f, -2, 3.25f);
    for (int const i : {0, 1})
        EXPECT_EQ(coordinateText(p, i), "[X:1.500,Z:3.250]");
    for (int const i : {2, 3})
        EXPECT_EQ(coordinateText(p, i), "[X:1.500,Y:-2.000]");
    for (int const i : {4, 5})
        EXPECT_EQ(coordinateText(p, i), "[Y:-2.000,Z:3.250]");
    QLocale::setDefault(before);
}

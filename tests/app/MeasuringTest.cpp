// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/Surroundings.h"
#include "app/tools/MeasureTool.h"
#include "app/tools/WallProbe.h"
#include "app/window/ToolHint.h"
#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/NavigationStyle.h"
#include "tests/app/AppWindow.h"
#include "tests/app/MouseInWindow.h"

#include <QClipboard>
#include <QLabel>
#include <QMouseEvent>

#include <numbers>

namespace {

using Vector = UVector3<double>;
using Point3 = UPoint3<double>;
using Measuring::SurfacePoint;

/// A hand measures parts, in the window.
class MeasuringByHand : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        show();
        part = test->add(box(20, 30, 40), "block");
        view().OnViewType(0);
        view().fitAll();
        QCoreApplication::processEvents();
        trigger("Std_Measure");
        ASSERT_EQ(view().getInteractModeName(), "MeasureTool");
    }

    Mesh::GLView& view() const { return window->view(); }
    void click(UPoint3<float> const& world) const
    {
        QPoint position;
        view().getWidgetcoordFromWCS(world, position.rx(), position.ry());
        MouseInWindow(*window).click(view(), position);
    }
    /// With what is found in the background.
    bool tells(QString const& line) const
    {
        return waitUntil([&] { return shown().split('\n').contains(line); });
    }
    QString shown() const { return tool().text(); }
    MeasureTool& tool() const
    {
        return static_cast<MeasureTool&>(*view().navigationStyle()->mouseModel());
    }
    /// A click, the first one since all was put away, after which nothing from the background has
    /// come yet.
    void clickWithoutEvents(UPoint3<float> const& world) const
    {
        // The first pick sorts the mesh.
        click(world);
        EXPECT_TRUE(tells("Wall thickness: 30.000 mm")) << qPrintable(shown());
        MouseInWindow(*window).click(view(), {4, view().height() - 4});
        EXPECT_EQ(shown(), "");
        QPoint position;
        view().getWidgetcoordFromWCS(world, position.rx(), position.ry());
        QMouseEvent press(QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::LeftButton, {});
        tool().mousePressEvent(&press);
        QMouseEvent release(QEvent::MouseButtonRelease, position, Qt::LeftButton, {}, {});
        tool().mouseReleaseEvent(&release);
    }
    /// Long after whatever is found in the background has come.
    static void waitForAll() { QTest::qWait(200); }

    Mesh::DocumentObject* part = nullptr;
};

}  // namespace

TEST(Measuring, DistanceAngleAndTheDistanceOfParallelFaces)
{
    double const s = std::sqrt(0.5);
    SurfacePoint const a{{1, 2, 3}, {0, 0, 1}};
    auto const parallel = Measuring::between(a, {{4, 6, 15}, {0, 0, -1}});
    EXPECT_DOUBLE_EQ(parallel.distance, 13);
    EXPECT_DOUBLE_EQ(*parallel.angle, 0);
    EXPECT_DOUBLE_EQ(*parallel.betweenFaces, 12);
    auto const slanted = Measuring::between(a, {{1, 2, 3}, {s, 0, s}});
    EXPECT_DOUBLE_EQ(*slanted.angle, 45);
    EXPECT_FALSE(slanted.betweenFaces);
    EXPECT_FALSE(Measuring::between(a, {{1, 2, 3}, {}}).angle);
    EXPECT_DOUBLE_EQ(*Measuring::between(a, {{0, 0, 0}, {1, 0, 0}}).angle, 90);
}

TEST(Measuring, WallsAreAsThickAsTheyWereMade)
{
    constexpr int facets = 400;
    auto const pipe = kernelOf(tube(10, 7, 20, facets));
    // In the middle of a facet of the outer side, whose distance from the axis is known.
    double const half = std::numbers::pi / facets;
    double const out = 10 * std::cos(half), in = 7 * std::cos(half);
    Vector const normal(std::cos(half), std::sin(half), 0);
    SurfacePoint const at{{normal.X() * out, normal.Y() * out, 9.7}, normal};
    EXPECT_NEAR(*Measuring::wallThickness(*pipe, at), out - in, 1e-4);
    // From the inner side outwards, into the material.
    SurfacePoint const inner{{normal.X() * in, normal.Y() * in, 9.7}, -normal};
    EXPECT_NEAR(*Measuring::wallThickness(*pipe, inner), out - in, 1e-4);
}

TEST(Measuring, OfAMirroredPartTooAndOfAnOpenOneNothing)
{
    auto const block = kernelOf(box(2, 3, 4));
    block->getMatrix()(0, 0) = -3;
    // It reaches from x = -6 to 0 now.
    EXPECT_NEAR(*Measuring::wallThickness(*block, {{0, 1, 1.5}, {1, 0, 0}}), 6, 1e-9);
    auto const tray = kernelOf(openBox(2, 3, 4));
    EXPECT_FALSE(Measuring::wallThickness(*tray, {{0.7, 1.1, 0}, {0, 0, -1}}));
}

TEST_F(MeasuringByHand, OneClickTellsTheWallAndTwoTheDistance)
{
    EXPECT_TRUE(toolHint("MeasureTool", commands()).startsWith("Click on a part"));
    click({7, 0, 13});
    EXPECT_TRUE(tells("Wall thickness: 30.000 mm")) << qPrintable(shown());
    EXPECT_TRUE(tells("Area of the face: 8.00 cm\u00b2")) << qPrintable(shown());
    EXPECT_EQ(shown(), "Wall thickness: 30.000 mm\nArea of the face: 8.00 cm\u00b2");
    // Near the corners they are taken themselves.
    click({1, 0, 5});
    click({0.2f, 0, 0.2f});
    click({19.8f, 0, 39.8f});
    EXPECT_EQ(shown(),
              "Distance: 44.721 mm\nX: 20.000 mm  Y: 0.000 mm  Z: 40.000 mm\n"
              "Angle of the faces: 0.00" +
                  QString(QChar(0xb0)) + "\nDistance of the faces: 0.000 mm");
    takePicture("measure");
    QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), shown());
    // The next click begins anew, one beside the parts ends it.
    click({7, 0, 13});
    EXPECT_TRUE(tells("Wall thickness: 30.000 mm")) << qPrintable(shown());
    MouseInWindow(*window).click(view(), {4, view().height() - 4});
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(test->document->undoNames().empty());
}

TEST(Measuring, FindsTheFaceAndTheStraightEdgeOfAPlace)
{
    using namespace Measuring;
    auto const block = kernelOf(box(20, 30, 40));
    block->getMatrix()(0, 0) = -2;
    // On the side at y = 0, one millimetre from the edge at x = -40.
    SurfacePoint const near{{-39, 0, 13}, {0, -1, 0}};
    Surroundings const found = surroundingsOf(*block, near, 1.5);
    ASSERT_TRUE(found.face && found.edge);
    EXPECT_NEAR(found.face->area, 1600, 1e-6);
    EXPECT_EQ(found.face->outline.size(), 4u);
    EXPECT_NEAR(found.edge->length(), 40, 1e-9);
    EXPECT_NEAR(distance(Point3(-40, 0, 20), *found.edge), 0, 1e-9);
    EXPECT_FALSE(surroundingsOf(*block, near, 0.5).edge);
    EXPECT_FALSE(surroundingsOf(*block, {{-20, 0, 20}, {0, -1, 0}}, 5).edge);
}

TEST(Measuring, EdgesGoOnInStraightLinesAndFacesEndWhereTheSurfaceTurns)
{
    using namespace Measuring;
    // A face in strips: its long edges consist of many.
    Soup strips = tube(10, 7, 20, 64);
    auto const pipe = kernelOf(strips);
    Surroundings const ring = surroundingsOf(*pipe, {{8.5, 0, 20}, {0, 0, 1}}, 0);
    ASSERT_TRUE(ring.face);
    double const area = 32 * std::sin(2 * std::numbers::pi / 64) * (10 * 10 - 7 * 7);
    EXPECT_NEAR(ring.face->area, area, 1e-3);
    EXPECT_EQ(ring.face->outline.size(), 128u);
    // Between facets of the wall there is no edge that counts.
    double const half = std::numbers::pi / 64;
    Vector const normal(std::cos(half), std::sin(half), 0);
    double const out = 10 * std::cos(half);
    EXPECT_FALSE(
        surroundingsOf(*pipe, {{normal.X() * out, normal.Y() * out, 9.7}, normal}, 3).edge);
    // A finely meshed ball has no face.
    auto const ball = kernelOf(sphere(10, 400, 400));
    UTriangle<float> const& any = *ball->readMesh()->triangles[100000];
    Vector const up = outwardNormal(ball->getMatrix(), any);
    UPoint3<float> const p = any.cP(0);
    EXPECT_FALSE(surroundingsOf(*ball, {{p.X(), p.Y(), p.Z()}, up}, 1).face);
}

TEST(Measuring, DistancesAndAnglesOfEdges)
{
    using namespace Measuring;
    Edge const a{{0, 0, 0}, {10, 0, 0}};
    EXPECT_DOUBLE_EQ(distance(a, Edge{{5, -3, 4}, {5, 3, 4}}), 4);
    EXPECT_DOUBLE_EQ(distance(a, Edge{{13, 4, 0}, {13, 9, 0}}), 5);
    EXPECT_DOUBLE_EQ(distance(a, Edge{{2, 7, 0}, {-9, 7, 0}}), 7);
    EXPECT_DOUBLE_EQ(distance(a, Edge{{5, 3, 0}, {5, 3, 0}}), 3);
    EXPECT_DOUBLE_EQ(distance(Point3(-3, 4, 0), a), 5);
    EXPECT_DOUBLE_EQ(angle(a, Edge{{0, 0, 5}, {-1, 1, 5}}), 45);
}

TEST_F(MeasuringByHand, EdgesAndFacesAreEndsOfADistance)
{
    // Beside the edges at the left and right of the front.
    click({0.15f, 0, 13});
    EXPECT_TRUE(tells("Length of the edge: 40.000 mm")) << qPrintable(shown());
    click({19.85f, 0, 27});
    EXPECT_TRUE(tells("Distance of the edges: 20.000 mm")) << qPrintable(shown());
    EXPECT_TRUE(tells("Angle of the edges: 0.00" + QString(QChar(0xb0))));
    takePicture("measure-edges");
    click({0.15f, 0, 13});
    click({19.8f, 0, 39.8f});
    EXPECT_TRUE(tells("Distance to the edge: 20.000 mm")) << qPrintable(shown());
    // The corner of the top, and the front as a whole.
    click({19.8f, 0, 39.8f});
    click({7, 0, 13});
    EXPECT_TRUE(tells("Distance to the face: 0.000 mm")) << qPrintable(shown());
    takePicture("measure-face");
}

TEST_F(MeasuringByHand, WhatHasChangedIsNoLongerShown)
{
    click({7, 0, 13});
    EXPECT_TRUE(tells("Wall thickness: 30.000 mm"));
    part->translate({1, 0, 0}, 0);
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(view().findChild<QLabel*>("Measure"));
}

TEST_F(MeasuringByHand, TheWallOfAClickIsFoundInTheBackground)
{
    clickWithoutEvents({7, 0, 13});
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(tells("Wall thickness: 30.000 mm")) << qPrintable(shown());
    // Beside a second place it is not told.
    click({12, 0, 20});
    EXPECT_TRUE(shown().startsWith("Distance")) << qPrintable(shown());
    EXPECT_FALSE(shown().contains("Wall")) << qPrintable(shown());
}

TEST_F(MeasuringByHand, AWallThatIsFoundTooLateIsNotTold)
{
    // Of a part that is no longer as it was.
    clickWithoutEvents({7, 0, 13});
    part->translate({1, 0, 0}, 0);
    waitForAll();
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(view().findChild<QLabel*>("Measure"));
    // When the tool has been put away.
    clickWithoutEvents({7, 0, 13});
    view().stopSelection();
    waitForAll();
    EXPECT_FALSE(view().findChild<QLabel*>("Measure"));
}

TEST(WallProbe, TellsOfThePlaceAskedForLast)
{
    auto const block = kernelOf(box(20, 30, 40));
    WallProbe probe;
    std::vector<double> told;
    QObject::connect(&probe, &WallProbe::found, &probe,
                     [&](bool, double thickness) { told.push_back(thickness); });
    probe.ask(*block, {{7, 0, 13}, {0, -1, 0}});
    probe.ask(*block, {{20, 5, 13}, {1, 0, 0}});
    EXPECT_TRUE(waitUntil([&] { return !told.empty(); }));
    EXPECT_EQ(told, std::vector<double>{20});
    probe.ask(*block, {{7, 0, 13}, {0, -1, 0}});
    probe.forget();
    probe.ask(*block, {{7, 5, 40}, {0, 0, 1}});
    EXPECT_TRUE(waitUntil([&] { return told.size() > 1; }));
    EXPECT_EQ(told, (std::vector<double>{20, 40}));
}

TEST_F(MeasuringByHand, TheMouseOverAPartTellsItsWallInTheBackground)
{
    MouseInWindow const mouse(*window);
    auto const hover = [&](UPoint3<float> const& world) {
        QPoint position;
        view().getWidgetcoordFromWCS(world, position.rx(), position.ry());
        // The first move sorts the mesh.
        mouse.moveTo(view(), position + QPoint(1, 1));
        mouse.moveTo(view(), position);
    };
    hover({7, 0, 13});
    EXPECT_TRUE(waitUntil([&] { return shown() == "Wall thickness: 30.000 mm"; }));
    QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Wall thickness: 30.000 mm");
    mouse.moveTo(view(), {4, view().height() - 4});
    EXPECT_EQ(shown(), "");
    // What a click tells stays.
    click({7, 0, 13});
    mouse.moveTo(view(), {4, view().height() - 4});
    EXPECT_TRUE(tells("Wall thickness: 30.000 mm")) << qPrintable(shown());
    click({12, 0, 20});
    QString const distance = shown();
    EXPECT_TRUE(distance.startsWith("Distance")) << qPrintable(distance);
    hover({7, 0, 13});
    QCoreApplication::processEvents();
    EXPECT_EQ(shown(), distance);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/Measuring.h"
#include "app/tools/MeasureTool.h"
#include "app/window/ToolHint.h"
#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/NavigationStyle.h"
#include "tests/app/AppWindow.h"
#include "tests/app/MouseInWindow.h"

#include <QClipboard>
#include <QLabel>

#include <numbers>

namespace {

using Vector = UVector3<double>;
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
    QString shown() const
    {
        return static_cast<MeasureTool const*>(view().navigationStyle()->mouseModel())->text();
    }

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
    EXPECT_EQ(shown(), "Wall thickness: 30.000 mm");
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
    EXPECT_EQ(shown(), "Wall thickness: 30.000 mm");
    MouseInWindow(*window).click(view(), {4, view().height() - 4});
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(test->document->undoNames().empty());
}

TEST_F(MeasuringByHand, WhatHasChangedIsNoLongerShown)
{
    click({7, 0, 13});
    EXPECT_FALSE(shown().isEmpty());
    part->translate({1, 0, 0}, 0);
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(view().findChild<QLabel*>("Measure"));
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
    EXPECT_EQ(shown(), "Wall thickness: 30.000 mm");
    click({12, 0, 20});
    QString const distance = shown();
    EXPECT_TRUE(distance.startsWith("Distance")) << qPrintable(distance);
    hover({7, 0, 13});
    QCoreApplication::processEvents();
    EXPECT_EQ(shown(), distance);
}

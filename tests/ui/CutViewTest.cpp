// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/CutView.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DockWidget.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/SideControlTab.h"
#include "platform/view/MeshGLView.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>

#include <cmath>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

class CutViews : public testing::Test
{
protected:
    CutViews()
    {
        view.setDocument(test.document);
        part = test.add(box(40, 30, 20, {10, 0, 0}), "box");
        cut = control.getDock("Preparing")->getCutView();
        cut->setView(&view);
        settle();
    }

    static void settle() { QCoreApplication::processEvents(); }

    template <typename Widget>
    Widget* widget(char const* name) const
    {
        return control.findChild<Widget*>(name);
    }

    TestDocument test;
    Mesh::GLView view;
    SideControlTab control;
    Mesh::DocumentObject* part = nullptr;
    CutView* cut = nullptr;
    Point point;
    Vector normal;
};

}  // namespace

TEST_F(CutViews, AreFoundByTheNameOfTheirPage)
{
    EXPECT_NE(cut, nullptr);
    EXPECT_EQ(control.getDock("Other"), nullptr);
    MainWindow window;
    EXPECT_EQ(window.getSideControl(), nullptr);
    window.setSideControl(&control);
    EXPECT_EQ(window.getSideControl(), &control);
}

TEST_F(CutViews, GiveNoPlaneUnlessTheyAreActive)
{
    point = {1, 2, 3};
    normal = {4, 5, 6};
    EXPECT_FALSE(cut->getCutParameters(point, normal));
    EXPECT_EQ(point, Point(1, 2, 3));
    EXPECT_EQ(normal, Vector(4, 5, 6));
    EXPECT_FALSE(view.liveCut());
    widget<QAbstractButton>("active")->click();
    ASSERT_TRUE(cut->getCutParameters(point, normal));
    EXPECT_EQ(point, Point(30, 15, 10));
    EXPECT_EQ(normal, Vector(0, 0, 1));
    ASSERT_TRUE(view.liveCut());
    EXPECT_EQ(view.liveCut()->point, point);
    EXPECT_EQ(view.liveCut()->normal, normal);
    widget<QAbstractButton>("active")->click();
    EXPECT_FALSE(view.liveCut());
}

TEST_F(CutViews, GiveNoPlaneWithoutAVisiblePart)
{
    widget<QAbstractButton>("active")->click();
    ASSERT_TRUE(cut->getCutParameters(point, normal));
    part->setVisible(false);
    settle();
    point = {1, 2, 3};
    EXPECT_FALSE(cut->getCutParameters(point, normal));
    EXPECT_EQ(point, Point(1, 2, 3));
    EXPECT_FALSE(view.liveCut());
    part->setVisible(true);
    settle();
    EXPECT_TRUE(cut->getCutParameters(point, normal));
}

TEST_F(CutViews, GiveExactlyAnAxisAsTheNormal)
{
    cut->setActive(true);
    for (int axis = 0; axis < 3; ++axis)
        for (bool const flipped : {false, true}) {
            cut->setAxis(CutView::Axis(axis));
            cut->setFlipped(flipped);
            ASSERT_TRUE(cut->getCutParameters(point, normal));
            for (int i = 0; i < 3; ++i) {
                EXPECT_EQ(normal[i], i == axis ? (flipped ? -1 : 1) : 0);
                EXPECT_EQ(std::signbit(normal[i]), i == axis && flipped);
            }
            EXPECT_EQ(view.liveCut()->normal, normal);
        }
}

TEST_F(CutViews, MoveTheirPlaneBySliderAndNumber)
{
    cut->setActive(true);
    widget<QAbstractButton>("axis0")->click();
    auto* const slider = widget<CutViewSlider>("slider");
    slider->setValue(slider->maximum());
    ASSERT_TRUE(cut->getCutParameters(point, normal));
    EXPECT_EQ(point, Point(50, 15, 10));
    slider->setValue(slider->minimum() + (slider->maximum() - slider->minimum()) / 4);
    EXPECT_NEAR(cut->position(), 20, 1e-9);
    auto* const number = widget<MellQuantitySpinBox>("position");
    EXPECT_NEAR(number->value(), 20, 1e-9);
    number->setValue(45);
    ASSERT_TRUE(cut->getCutParameters(point, normal));
    EXPECT_EQ(point, Point(45, 15, 10));
    EXPECT_EQ(slider->value(), slider->minimum() + (slider->maximum() - slider->minimum()) * 7 / 8);
    // The slider is coarser than the number, which stays as it was typed.
    number->setValue(45.0123);
    EXPECT_EQ(cut->position(), 45.0123);
}

TEST_F(CutViews, TakeANormalOfAnyLengthButNone)
{
    cut->setActive(true);
    cut->setNormal({0, 3, 4});
    ASSERT_TRUE(cut->getCutParameters(point, normal));
    EXPECT_EQ(normal, Vector(0, 0.6f, 0.8f));
    // In the middle of the parts at first.
    EXPECT_NEAR(point.X(), 30, 1e-4);
    EXPECT_NEAR(point.Y(), 15, 1e-4);
    EXPECT_NEAR(point.Z(), 10, 1e-4);
    cut->setPosition(-100);
    EXPECT_NEAR(cut->position(), 0, 1e-9);
    cut->setPosition(100);
    EXPECT_NEAR(cut->position(), 0.6 * 30 + 0.8 * 20, 1e-9);
    widget<MellQuantitySpinBox>("normal1")->setValue(0);
    ASSERT_TRUE(cut->getCutParameters(point, normal));
    EXPECT_EQ(normal, Vector(0, 0, 1));
    widget<MellQuantitySpinBox>("normal2")->setValue(0);
    EXPECT_FALSE(cut->getCutParameters(point, normal));
    EXPECT_FALSE(view.liveCut());
}

TEST_F(CutViews, FollowTheParts)
{
    cut->setActive(true);
    cut->setPosition(15);
    part->translate({0, 0, 100}, 0);
    settle();
    EXPECT_EQ(cut->position(), 100);
    Mesh::DocumentObject* const other = test.add(box(10, 10, 10), "other");
    settle();
    cut->setPosition(0);
    EXPECT_EQ(cut->position(), 0);
    other->setVisible(false);
    settle();
    EXPECT_EQ(cut->position(), 100);
    test.document->removeObject(other);
    test.document->removeObject(part);
    settle();
    EXPECT_EQ(cut->position(), 0);
    EXPECT_FALSE(cut->getCutParameters(point, normal));
}

TEST_F(CutViews, TellTheViewWhetherToFillTheCut)
{
    cut->setActive(true);
    EXPECT_TRUE(view.liveCut()->hasCaps);
    widget<QAbstractButton>("caps")->click();
    EXPECT_FALSE(view.liveCut()->hasCaps);
}

TEST_F(CutViews, LeaveTheViewWholeWhenTheyGo)
{
    cut->setActive(true);
    ASSERT_TRUE(view.liveCut());
    delete cut;
    EXPECT_FALSE(view.liveCut());
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/HeightScale.h"
#include "host/ui/HeightSlider.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/view/MeshGLView.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/ScratchSettings.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolButton>

#include <cmath>
#include <memory>

namespace {

class HeightSliders : public testing::Test
{
protected:
    HeightSliders()
    {
        heights().setHeight(0);
        heights().refresh();
        view.setDocument(test.document);
        slider = std::make_unique<HeightSlider>();
        slider->setView(&view);
        scale = slider->findChild<HeightScale*>();
        slider->resize(slider->sizeHint().width(), 600);
    }
    ~HeightSliders() override
    {
        slider.reset();
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
    }

    static Base::MellViewSlider& heights() { return *MainWindow::getViewSlider(); }
    static void settle() { QCoreApplication::processEvents(); }

    void key(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(scale, &event);
    }
    void mouse(QEvent::Type type, double place, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, QPointF(20, place),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(scale, &event);
    }

    ScratchSettings settings;
    TestDocument test;
    Mesh::GLView view;
    std::unique_ptr<HeightSlider> slider;
    HeightScale* scale = nullptr;
};

}  // namespace

TEST_F(HeightSliders, TakeTheirRangeFromThePartsAndAHeightAmongThem)
{
    EXPECT_FALSE(scale->isEnabled());
    Mesh::DocumentObject* const part = test.add(box(10, 10, 30), "box");
    settle();
    EXPECT_TRUE(scale->isEnabled());
    EXPECT_EQ(heights().getMinimum(), 0);
    EXPECT_EQ(heights().getMaximum(), 30);
    EXPECT_EQ(heights().getHeight(), 15);
    heights().setHeight(20);
    part->translate({0, 0, 100}, 0);
    settle();
    EXPECT_EQ(heights().getMinimum(), 100);
    // What the user has set stays.
    EXPECT_EQ(heights().getHeight(), 20);
    test.document->removeObject(part);
    settle();
    EXPECT_FALSE(scale->isEnabled());
}

TEST_F(HeightSliders, ShowAndSetTheOneHeight)
{
    test.add(box(10, 10, 30), "box");
    settle();
    auto* const field = slider->findChild<MellQuantitySpinBox*>("height");
    heights().setHeight(7.25f);
    EXPECT_NEAR(field->value(), 7.25, 1e-6);
    field->setValue(12.5);
    EXPECT_EQ(heights().getHeight(), 12.5f);
    // Beyond the parts too, by number.
    field->setValue(40);
    EXPECT_EQ(heights().getHeight(), 40);
}

TEST_F(HeightSliders, AreMovedByKeys)
{
    test.add(box(10, 10, 30), "box");
    settle();
    heights().setHeight(10);
    key(Qt::Key_Up);
    EXPECT_FLOAT_EQ(heights().getHeight(), 10.1f);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_FLOAT_EQ(heights().getHeight(), 9.9f);
    key(Qt::Key_PageUp);
    EXPECT_FLOAT_EQ(heights().getHeight(), 10.9f);
    key(Qt::Key_PageDown);
    EXPECT_FLOAT_EQ(heights().getHeight(), 9.9f);
    key(Qt::Key_End);
    EXPECT_EQ(heights().getHeight(), 30);
    key(Qt::Key_Up);
    EXPECT_EQ(heights().getHeight(), 30);
    key(Qt::Key_Home);
    EXPECT_EQ(heights().getHeight(), 0);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    key(Qt::Key_Up);
    EXPECT_FLOAT_EQ(heights().getHeight(), 0.254f);
}

TEST_F(HeightSliders, AreDraggedToRoundHeights)
{
    test.add(box(10, 10, 30), "box");
    settle();
    slider->show();
    settle();
    mouse(QEvent::MouseButtonPress, scale->placeOf(20), Qt::LeftButton);
    EXPECT_NEAR(heights().getHeight(), 20, 0.06);
    mouse(QEvent::MouseMove, scale->placeOf(12.34), Qt::LeftButton);
    float const height = heights().getHeight();
    EXPECT_NEAR(height, 12.34, 0.06);
    EXPECT_NEAR(height * 100, std::round(height * 100), 1e-3);
    mouse(QEvent::MouseMove, scale->height() + 100, Qt::LeftButton);
    EXPECT_EQ(heights().getHeight(), 0);
    mouse(QEvent::MouseMove, -100, Qt::LeftButton);
    EXPECT_EQ(heights().getHeight(), 30);
    mouse(QEvent::MouseButtonRelease, -100, {});
    mouse(QEvent::MouseMove, scale->placeOf(5), {});
    EXPECT_EQ(heights().getHeight(), 30);
}

TEST_F(HeightSliders, ShowTheLineWhileTheyAreSeenAndItIsWanted)
{
    test.add(box(10, 10, 30), "box");
    settle();
    EXPECT_FALSE(view.sectionHeight());
    slider->show();
    EXPECT_EQ(view.sectionHeight(), 15.0f);
    heights().setHeight(5);
    EXPECT_EQ(view.sectionHeight(), 5.0f);
    slider->findChild<QToolButton*>("line")->click();
    EXPECT_FALSE(view.sectionHeight());
    // Remembered.
    slider = std::make_unique<HeightSlider>();
    EXPECT_FALSE(slider->showsLine());
    slider->setView(&view);
    slider->setShowsLine(true);
    slider->show();
    EXPECT_EQ(view.sectionHeight(), 5.0f);
    slider->hide();
    EXPECT_FALSE(view.sectionHeight());
    slider->show();
    slider.reset();
    EXPECT_FALSE(view.sectionHeight());
}

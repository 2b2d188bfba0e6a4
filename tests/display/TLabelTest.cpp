// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/TLabel.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"
#include "tests/support/RecordingTool.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

struct Listener : sigslot::has_slots<sigslot::single_threaded>
{
    void changed() { ++count; }
    int count = 0;
};

void press(QWidget& widget)
{
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void turnWheel(QWidget& widget, int delta)
{
    QWheelEvent event(QPointF(1, 1), widget.mapToGlobal(QPoint(1, 1)), QPoint(), QPoint(0, delta),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

double viewHeight(Base::GLView const& view)
{
    double width = 0, height = 0;
    view.getCamera()->get_view_rect(width, height);
    return height;
}

}  // namespace

TEST(TLabel, IsCentredInTheFontOfTheView)
{
    QWidget parent;
    auto* const label = new Freecut::TLabel(&parent);
    EXPECT_EQ(int(label->alignment()), 0x84);
    EXPECT_EQ(label->font().family(), "Timers");
    EXPECT_EQ(label->font().pointSize(), 10);
    EXPECT_EQ(label->font().weight(), 75);
    EXPECT_FALSE(label->font().italic());
}

TEST(TLabel, HasTheTwoStyles)
{
    // Other code finds the selected point by comparing with these texts.
    EXPECT_STREQ(Freecut::TLabel::selectedStyle,
                 "background-color: rgb(199, 97, 20);border-width: 2px;border-style: "
                 "solid;border-color: rgb(255, 0, 0); color:rgb(255, 255, 255);");
    EXPECT_STREQ(Freecut::TLabel::unselectedStyle,
                 "background-color: rgb(199, 97, 20);border-width: 1px;border-style: "
                 "solid;border-color: rgb(255, 170, 0); color:rgb(255, 255, 255);");
}

TEST(TLabel, AClickSelectsItsPointOfAPolygon)
{
    QWidget view;
    Freecut::PolygonGraphicObject tool;
    Listener listener;
    tool.signalChanged.connect(&listener, &Listener::changed);
    for (int i = 0; i < 3; ++i) {
        auto* const label = new Freecut::TLabel(&view);
        label->setObject(&tool);
        tool.getPointLabels().push_back(label);
    }
    for (std::size_t const clicked : {1u, 2u}) {
        press(*tool.getPointLabels()[clicked]);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(
                tool.getPointLabels()[i]->styleSheet(),
                i == clicked ? Freecut::TLabel::selectedStyle : Freecut::TLabel::unselectedStyle);
    }
    EXPECT_EQ(listener.count, 2);
}

TEST(TLabel, AClickOnTheLabelOfAnotherToolDoesNothing)
{
    QWidget view;
    Freecut::CylinderGraphicObject tool;
    Listener listener;
    tool.signalChanged.connect(&listener, &Listener::changed);
    auto* const label = new Freecut::TLabel(&view);
    label->setObject(&tool);
    tool.setLabel(label);
    press(*label);
    EXPECT_EQ(label->styleSheet(), "");
    EXPECT_EQ(listener.count, 0);
}

TEST(TLabel, TheWheelZoomsTheViewInFront)
{
    Freecut::TLabel label;
    turnWheel(label, 120);
    MainWindow window;
    Base::GLView view;
    window.setActiveGLView(&view);
    double const before = viewHeight(view);
    turnWheel(label, 120);
    EXPECT_DOUBLE_EQ(viewHeight(view), before * 0.9);
    turnWheel(label, -120);
    EXPECT_DOUBLE_EQ(viewHeight(view), before * 0.9 * 1.1);
    window.setActiveGLView(nullptr);
}

TEST(TLabel, AClickStaysWithTheLabelAndTheWheelActsAsBesideIt)
{
    RecordingTool::enter();
    MainWindow window;
    Base::GLView view;
    view.resize(400, 300);
    window.setActiveGLView(&view);
    view.startSelection(RecordingTool::name);
    auto* const label = new Freecut::TLabel(&view);
    Freecut::CylinderGraphicObject tool;
    label->setObject(&tool);
    label->setGeometry(300, 40, 40, 20);
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(1, 1), Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    press(*label);
    EXPECT_TRUE(up.isAccepted());
    QApplication::sendEvent(label, &up);
    EXPECT_TRUE(up.isAccepted());
    EXPECT_TRUE(RecordingTool::log.empty());

    Base::GLView beside;
    beside.resize(400, 300);
    turnWheel(*label, 120);
    QWheelEvent there(QPointF(301, 41), beside.mapToGlobal(QPoint(301, 41)), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&beside, &there);
    EXPECT_DOUBLE_EQ(viewHeight(view), viewHeight(beside));
    EXPECT_NE(view.getViewRefPoint(), UPoint3<float>()) << "the zoom goes to the mouse";
    EXPECT_EQ(view.getViewRefPoint(), beside.getViewRefPoint());
    window.setActiveGLView(nullptr);
}

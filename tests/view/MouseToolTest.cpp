// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/MeshGLView.h"
#include "platform/view/NavigationStyle.h"
#include "platform/view/PointPickerMesh.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/ScratchSettings.h"
#include "tests/support/TestDocument.h"
#include "tests/support/ViewEvents.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLabel>

namespace {

using Names = std::vector<std::string>;

Names calls;

/// Notes what it is told.
class NotingTool : public Mesh::PointPickerMesh
{
public:
    static Base::Type classTypeId;
    static void init()
    {
        initSubclass(classTypeId, "Noting::Tool", "Mesh::PointPickerMesh", create);
    }
    static void* create() { return static_cast<BaseClass*>(new NotingTool); }
    ~NotingTool() override
    {
        calls.push_back("gone");
        m_view->unsetCursor();
    }

    std::string getClassName() const override { return "Noting::Tool"; }
    void initialize() override
    {
        calls.push_back("initialize");
        m_view->setCursor(Qt::CrossCursor);
    }
    void terminate() override { calls.push_back("terminate"); }
    int mousePressEvent(QMouseEvent* event) override { return note("press", event); }
    int mouseMoveEvent(QMouseEvent*) override
    {
        calls.push_back("move");
        return 0;
    }
    int mouseReleaseEvent(QMouseEvent* event) override
    {
        if (endsOnRelease)
            m_view->stopSelection();
        return note("release", event) + 1;
    }
    int keyPressEvent(QKeyEvent* event) override
    {
        calls.push_back("key " + event->text().toStdString());
        return 1;
    }
    int wheelEvent(QWheelEvent*) override
    {
        calls.push_back("wheel");
        return keepsWheel;
    }

    static inline bool endsOnRelease = false;
    static inline int keepsWheel = 0;

private:
    int note(char const* what, QMouseEvent const* event)
    {
        calls.push_back(std::string(what) + " " + std::to_string(event->button()));
        return 0;
    }
};

Base::Type NotingTool::classTypeId;

class MouseTools : public testing::Test
{
protected:
    MouseTools()
    {
        NotingTool::init();
        NotingTool::endsOnRelease = false;
        NotingTool::keepsWheel = 0;
        calls.clear();
        view.resize(800, 600);
        view.setDocument(test.document);
    }

    double viewHeight() const
    {
        double width = 0, height = 0;
        view.getCamera()->get_view_rect(width, height);
        return height;
    }
    QPoint positionOf(UPoint3<float> const& world) const
    {
        int x = 0, y = 0;
        view.getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }

    TestDocument test;
    Mesh::GLView view;
};

}  // namespace

TEST_F(MouseTools, AreMadeByNameAndEndedByTheView)
{
    int changes = 0;
    QObject::connect(&view, &Base::GLView::signalInteractModeChanged, [&] { ++changes; });
    EXPECT_EQ(view.navigationStyle()->mouseModel(), nullptr);
    EXPECT_EQ(view.getInteractModeName(), "");
    EXPECT_TRUE(view.startSelection("Noting::Tool"));
    EXPECT_EQ(view.getInteractModeName(), "Noting::Tool");
    EXPECT_EQ(view.navigationStyle()->mouseModel()->getGLViewer(), &view);
    EXPECT_EQ(view.cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(calls, Names{"initialize"});
    view.stopSelection();
    EXPECT_EQ(calls, (Names{"initialize", "terminate", "gone"}));
    EXPECT_EQ(view.navigationStyle()->mouseModel(), nullptr);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(changes, 2);
}

TEST_F(MouseTools, OneEndsBeforeTheNextBegins)
{
    view.startSelection("Noting::Tool");
    view.startSelection("Noting::Tool");
    EXPECT_EQ(calls, (Names{"initialize", "terminate", "gone", "initialize"}));
}

TEST_F(MouseTools, WhatIsNoToolIsRefusedAndLeavesTheRunningOne)
{
    view.startSelection("Noting::Tool");
    EXPECT_FALSE(view.startSelection("Mesh::DocumentObject"));
    EXPECT_FALSE(view.startSelection("No::Tool"));
    EXPECT_FALSE(view.startSelection(""));
    EXPECT_EQ(view.getInteractModeName(), "Noting::Tool");
}

TEST_F(MouseTools, EndWithTheirView)
{
    {
        Mesh::GLView shortLived;
        shortLived.startSelection("Noting::Tool");
    }
    EXPECT_EQ(calls, (Names{"initialize", "terminate", "gone"}));
}

TEST_F(MouseTools, MayEndThemselvesInAnEvent)
{
    view.startSelection("Noting::Tool");
    NotingTool::endsOnRelease = true;
    click(view, {5, 5});
    EXPECT_EQ(calls, (Names{"initialize", "press 1", "terminate", "release 1", "gone"}));
    EXPECT_EQ(view.navigationStyle()->mouseModel(), nullptr);
}

TEST_F(MouseTools, SeeClicksOfAllButtonsAndMovesWithoutOne)
{
    view.startSelection("Noting::Tool");
    calls.clear();
    move(view, {4, 4});
    click(view, {5, 5}, Qt::LeftButton);
    click(view, {5, 5}, Qt::RightButton);
    EXPECT_EQ(calls, (Names{"move", "press 1", "release 1", "press 2", "release 2"}));
}

TEST_F(MouseTools, HaveTheLeftButtonToThemselves)
{
    view.startSelection("Noting::Tool");
    calls.clear();
    UVector3<float> const direction = view.getViewDirection();
    for (auto const preset :
         {Base::NavigationStyle::Preset::TurnByRight, Base::NavigationStyle::Preset::TurnByMiddle,
          Base::NavigationStyle::Preset::MoveByRight}) {
        view.navigationStyle()->setPreset(preset);
        calls.clear();
        drag(view, {100, 100}, {200, 150}, Qt::LeftButton);
        EXPECT_EQ(calls, (Names{"press 1", "move", "move", "move", "move", "move", "release 1"}));
    }
    EXPECT_EQ(view.getViewDirection(), direction);
    EXPECT_EQ(view.getViewRefPoint(), UPoint3<float>());
}

TEST_F(MouseTools, SeeTheEndOfADragOfTheViewAsAReleaseOfNoButton)
{
    view.startSelection("Noting::Tool");
    calls.clear();
    UVector3<float> const direction = view.getViewDirection();
    drag(view, {100, 100}, {200, 150}, Qt::RightButton);
    EXPECT_EQ(calls, (Names{"press 2", "release 0"}));
    EXPECT_NE(view.getViewDirection(), direction);
}

TEST_F(MouseTools, MayKeepTheWheelAndKeys)
{
    view.startSelection("Noting::Tool");
    calls.clear();
    double const height = viewHeight();
    NotingTool::keepsWheel = 1;
    turnWheel(view, {10, 10}, 1);
    EXPECT_EQ(viewHeight(), height);
    NotingTool::keepsWheel = 0;
    turnWheel(view, {10, 10}, 1);
    EXPECT_DOUBLE_EQ(viewHeight(), height * 0.9);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, {}, "a");
    QCoreApplication::sendEvent(&view, &key);
    EXPECT_EQ(calls, (Names{"wheel", "wheel", "key a"}));
}

TEST_F(MouseTools, ASecondQuickPressIsAPressToo)
{
    view.startSelection("Noting::Tool");
    calls.clear();
    sendMouse(view, QEvent::MouseButtonDblClick, {5, 5}, Qt::LeftButton, Qt::LeftButton);
    release(view, {5, 5}, Qt::LeftButton);
    EXPECT_EQ(calls, (Names{"press 1", "release 1"}));
}

TEST_F(MouseTools, ThatDrawOnTheScreenMakeTheViewParallel)
{
    using Projection = GLCamera::Projection;
    view.setProjection(Projection::Perspective);
    view.startSelection("Mesh::PointPickerMesh");
    EXPECT_EQ(view.getCamera()->projection(), Projection::Perspective);
    view.startSelection("Noting::Tool");
    EXPECT_EQ(view.getCamera()->projection(), Projection::Parallel);
    view.stopSelection();
    EXPECT_EQ(view.getCamera()->projection(), Projection::Perspective);
}

TEST_F(MouseTools, ThePointPickerShowsCoordinatesOfAClickOnAPart)
{
    test.add(box(20, 20, 20), "box");
    view.OnViewType(2);
    view.fitAll();
    view.startSelection("Mesh::PointPickerMesh");
    auto const* const tool =
        static_cast<Mesh::PointPickerMesh*>(view.navigationStyle()->mouseModel());
    click(view, positionOf({10, 10, 20}));
    ASSERT_TRUE(tool->pickedPoint());
    EXPECT_NEAR(tool->pickedPoint()->X(), 10, 0.05);
    EXPECT_NEAR(tool->pickedPoint()->Z(), 20, 1e-4);
    auto* const label = view.findChild<QLabel*>("PickedPoint");
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->text().contains("Z: 20.000 mm")) << label->text().toStdString();
    EXPECT_TRUE(test.document->getSelectedObjects().empty());
    click(view, {2, 2});
    EXPECT_FALSE(tool->pickedPoint());
    EXPECT_EQ(view.findChild<QLabel*>("PickedPoint"), nullptr);
}

TEST_F(MouseTools, KeepTheViewFromSelectingByAClick)
{
    test.add(box(20, 20, 20), "box");
    view.OnViewType(2);
    view.fitAll();
    view.startSelection("Mesh::PointPickerMesh");
    // The picker has seen no press, so it makes nothing of the release.
    release(view, positionOf({10, 10, 20}), Qt::LeftButton);
    click(view, positionOf({10, 10, 20}), Qt::RightButton);
    EXPECT_TRUE(test.document->getSelectedObjects().empty());
    view.stopSelection();
    click(view, positionOf({10, 10, 20}));
    EXPECT_EQ(test.document->getSelectedObjects().size(), 1u);
}

TEST_F(MouseTools, ADragWithThePointPickerPicksNothing)
{
    test.add(box(20, 20, 20), "box");
    view.fitAll();
    view.startSelection("Mesh::PointPickerMesh");
    drag(view, positionOf({10, 10, 10}), positionOf({12, 10, 12}), Qt::RightButton);
    drag(view, positionOf({10, 10, 10}), positionOf({12, 10, 12}), Qt::LeftButton);
    EXPECT_EQ(view.findChild<QLabel*>("PickedPoint"), nullptr);
}

TEST_F(MouseTools, ARectangleTakesThePartsThatLieWithinIt)
{
    Mesh::DocumentObject* const a = test.add(box(10, 10, 10), "a");
    Mesh::DocumentObject* const b = test.add(box(10, 10, 10, {20, 0, 0}), "b");
    test.add(box(10, 10, 10, {40, 0, 0}), "c");
    view.OnViewType(2);
    view.fitAll();
    view.startSelection("Base::RectangleSelection");
    using Objects = std::vector<Base::DocumentObject*>;
    drag(view, positionOf({-2, -2, 0}), positionOf({45, 12, 0}), Qt::LeftButton);
    EXPECT_EQ(test.document->getSelectedObjects(), (Objects{a, b}));
    drag(view, positionOf({32, 12, 0}), positionOf({18, -2, 0}), Qt::LeftButton);
    EXPECT_EQ(test.document->getSelectedObjects(), Objects{b});
    click(view, positionOf({5, 5, 10}), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(test.document->getSelectedObjects(), (Objects{b, a}));
}

TEST_F(MouseTools, ARectangleGoesByThePartAndNotByItsBox)
{
    // Turned by half a right angle, so that the corners of its box stick out.
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "part");
    part->rotate({0, 0, 0}, float(M_PI) / 4, {0, 0, 1}, 0);
    view.OnViewType(0);
    view.setProjection(GLCamera::Projection::Perspective);
    view.fitAll();
    view.startSelection("Base::RectangleSelection");
    EXPECT_EQ(view.getCamera()->projection(), GLCamera::Projection::Perspective);
    float const reach = 5 * float(M_SQRT2);
    QPoint low = positionOf({0, reach, 5}), high = low;
    for (UPoint3<float> const& corner :
         {UPoint3<float>(-reach, reach, 0), UPoint3<float>(reach, reach, 10),
          UPoint3<float>(0, 0, 0), UPoint3<float>(0, 0, 10)}) {
        QPoint const seen = positionOf(corner);
        low = {qMin(low.x(), seen.x()), qMin(low.y(), seen.y())};
        high = {qMax(high.x(), seen.x()), qMax(high.y(), seen.y())};
    }
    drag(view, low - QPoint(2, 2), high + QPoint(2, 2), Qt::LeftButton);
    EXPECT_TRUE(part->isSelected());
    drag(view, low + QPoint(2, 2), high + QPoint(2, 2), Qt::LeftButton);
    EXPECT_FALSE(part->isSelected());
}

TEST_F(MouseTools, SelectAndUnselectThePartUnderAPosition)
{
    Mesh::DocumentObject* const a = test.add(box(10, 10, 10), "a");
    Mesh::DocumentObject* const b = test.add(box(10, 10, 10, {20, 0, 0}), "b");
    view.OnViewType(2);
    view.fitAll();
    view.startSelection("Mesh::PointPickerMesh");
    Base::AbstractMouseSelection& tool = *view.navigationStyle()->mouseModel();
    QPoint const onA = positionOf({5, 5, 10}), onB = positionOf({25, 5, 10});
    using Objects = std::vector<Base::DocumentObject*>;
    auto const select = [&](QPoint p, bool keepsOthers, bool toggles) {
        tool.selectModel(p.x(), p.y(), keepsOthers, toggles, true, false, false);
        return test.document->getSelectedObjects();
    };
    EXPECT_EQ(select(onA, false, false), Objects{a});
    EXPECT_EQ(select(onB, true, false), (Objects{a, b}));
    EXPECT_EQ(select(onA, true, true), Objects{b});
    EXPECT_EQ(select({1, 1}, true, false), Objects{b});
    tool.unSelectModel(onA.x(), onA.y());
    EXPECT_EQ(test.document->getSelectedObjects(), Objects{b});
    tool.unSelectModel(onB.x(), onB.y());
    EXPECT_TRUE(test.document->getSelectedObjects().empty());
    select(onA, false, false);
    EXPECT_TRUE(select({1, 1}, false, false).empty());
}

TEST_F(MouseTools, ThePointPickersCoordinatesAreInTheUnitOfTheUser)
{
    ScratchSettings const settings;
    test.add(box(25.4f, 25.4f, 25.4f), "box");
    view.OnViewType(2);
    view.fitAll();
    view.startSelection("Mesh::PointPickerMesh");
    click(view, positionOf({12.7f, 12.7f, 25.4f}));
    auto const* const label = view.findChild<QLabel*>("PickedPoint");
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->text().endsWith("Z: 25.400 mm")) << label->text().toStdString();
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_TRUE(label->text().endsWith("Z: 1.0000 in")) << label->text().toStdString();
    DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
    QLocale const before;
    QLocale::setDefault(QLocale::German);
    QEvent language(QEvent::LanguageChange);
    QCoreApplication::sendEvent(const_cast<QLabel*>(label), &language);
    QLocale::setDefault(before);
    EXPECT_TRUE(label->text().endsWith("Z: 25,400 mm")) << label->text().toStdString();
}

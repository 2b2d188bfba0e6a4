// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/MeshGLView.h"
#include "platform/view/NavigationStyle.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/RecordingTool.h"
#include "tests/support/TestDocument.h"
#include "tests/support/ViewEvents.h"

#include <gtest/gtest.h>

namespace {

using Preset = Base::NavigationStyle::Preset;
using Objects = std::vector<Base::DocumentObject*>;

/// Two boxes beside each other, seen from above, while no tool runs.
class FreeGround : public testing::Test
{
protected:
    FreeGround()
    {
        view.resize(800, 600);
        view.setDocument(test.document);
        a = test.add(box(10, 10, 10), "a");
        b = test.add(box(10, 10, 10, {20, 0, 0}), "b");
        view.OnViewType(2);
        view.fitAll();
        onA = positionOf({5, 5, 10});
        onB = positionOf({25, 5, 10});
        beside = positionOf({15, 5, 0});
    }

    QPoint positionOf(UPoint3<float> const& world) const
    {
        int x = 0, y = 0;
        view.getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    Objects selected() const { return test.document->getSelectedObjects(); }
    void dragAround(Qt::KeyboardModifiers modifiers = {})
    {
        drag(view, positionOf({15, 12, 10}), positionOf({32, -2, 10}), Qt::LeftButton, modifiers);
    }

    TestDocument test;
    Mesh::GLView view;
    Mesh::DocumentObject* a = nullptr;
    Mesh::DocumentObject* b = nullptr;
    QPoint onA, onB, beside;
};

}  // namespace

TEST_F(FreeGround, ADragSelectsWhatLiesWithinAndLeavesTheViewAlone)
{
    UVector3<float> const up = view.getViewUpDirection();
    test.document->select(a, true, true, true);
    dragAround();
    EXPECT_EQ(selected(), Objects{b});
    EXPECT_EQ(view.getViewUpDirection(), up);
    EXPECT_TRUE(view.getInteractModeName().empty());
    test.document->select(a, true, true, true);
    dragAround(Qt::ControlModifier);
    EXPECT_EQ(selected(), (Objects{a, b}));
}

TEST_F(FreeGround, ADragThatBeginsOnAPartSelectsNothing)
{
    drag(view, onA, positionOf({32, -2, 10}), Qt::LeftButton);
    EXPECT_TRUE(selected().empty());
}

TEST_F(FreeGround, AClickIsThatOfTheView)
{
    click(view, onB);
    EXPECT_EQ(selected(), Objects{b});
    click(view, beside, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(selected(), Objects{b});
    click(view, beside);
    EXPECT_TRUE(selected().empty());
}

TEST_F(FreeGround, WhatIsSpannedIsTakenBack)
{
    test.document->select(a, true, true, true);
    press(view, positionOf({15, 12, 10}), Qt::LeftButton);
    move(view, positionOf({32, -2, 10}), Qt::LeftButton);
    EXPECT_TRUE(view.navigationStyle()->cancelDrag());
    move(view, positionOf({33, -3, 10}), Qt::LeftButton);
    release(view, positionOf({33, -3, 10}), Qt::LeftButton);
    EXPECT_EQ(selected(), Objects{a});
}

TEST_F(FreeGround, AToolThatComesMeanwhileHasThePressForItself)
{
    RecordingTool::enter();
    test.document->select(a, true, true, true);
    press(view, positionOf({15, 12, 10}), Qt::LeftButton);
    move(view, positionOf({30, 0, 10}), Qt::LeftButton);
    ASSERT_TRUE(view.startSelection(RecordingTool::name));
    dragAround();
    EXPECT_EQ(selected(), Objects{a});
    view.stopSelection();
    move(view, positionOf({30, 0, 10}));
    release(view, positionOf({32, -2, 10}), Qt::LeftButton);
    EXPECT_EQ(selected(), Objects{a});
}

TEST_F(FreeGround, WhereTheLeftButtonTurnsControlSpans)
{
    view.navigationStyle()->setPreset(Preset::TurnByLeft);
    UVector3<float> const up = view.getViewUpDirection();
    dragAround(Qt::ControlModifier);
    EXPECT_EQ(selected(), Objects{b});
    EXPECT_EQ(view.getViewUpDirection(), up);
    click(view, onA);
    EXPECT_EQ(selected(), Objects{a});
    dragAround();
    EXPECT_EQ(selected(), Objects{a});
    EXPECT_NE(view.getViewUpDirection(), up);
}

TEST_F(FreeGround, WhereTheLeftButtonTurnsAToolHasItButForAlt)
{
    RecordingTool::enter();
    view.navigationStyle()->setPreset(Preset::TurnByLeft);
    ASSERT_TRUE(view.startSelection(RecordingTool::name));
    UVector3<float> const up = view.getViewUpDirection();
    drag(view, {400, 300}, {460, 330}, Qt::LeftButton);
    EXPECT_EQ(view.getViewUpDirection(), up);
    EXPECT_EQ(RecordingTool::log.front(), "press 1");
    EXPECT_EQ(RecordingTool::log.back(), "release 1");
    RecordingTool::log.clear();
    drag(view, {400, 300}, {460, 330}, Qt::LeftButton, Qt::AltModifier);
    EXPECT_NE(view.getViewUpDirection(), up);
    click(view, {400, 300}, Qt::LeftButton, Qt::AltModifier);
    EXPECT_EQ(RecordingTool::log, std::vector<std::string>{});
    click(view, {400, 300});
    EXPECT_EQ(RecordingTool::log, (std::vector<std::string>{"press 1", "release 1"}));
}

TEST_F(FreeGround, ThePartUnderTheMouseIsLitWhileNoToolRuns)
{
    // Each part is sorted by a move of its own.
    for (int i = 0; i < 3; ++i)
        move(view, onA);
    EXPECT_EQ(view.hoveredPart(), a);
    move(view, onB);
    EXPECT_EQ(view.hoveredPart(), b);
    move(view, beside);
    EXPECT_EQ(view.hoveredPart(), nullptr);
    move(view, onB);
    RecordingTool::enter();
    ASSERT_TRUE(view.startSelection(RecordingTool::name));
    EXPECT_EQ(view.hoveredPart(), nullptr);
    view.stopSelection();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&view, &leave);
    EXPECT_EQ(view.hoveredPart(), nullptr);
}

TEST_F(FreeGround, ARightClickAsksForAMenuAboutWhatIsUnderIt)
{
    std::vector<bool> asked;
    QObject::connect(&view, &Mesh::GLView::contextMenuRequested,
                     [&](QPoint, bool isOnPart) { asked.push_back(isOnPart); });
    click(view, onA, Qt::RightButton);
    EXPECT_EQ(selected(), Objects{a});
    test.document->select(b, true, true, false);
    click(view, onB, Qt::RightButton);
    EXPECT_EQ(selected(), (Objects{a, b}));
    click(view, beside, Qt::RightButton);
    EXPECT_EQ(selected(), (Objects{a, b}));
    EXPECT_EQ(asked, (std::vector<bool>{true, true, false}));
    drag(view, onA, onB, Qt::RightButton);
    EXPECT_EQ(asked.size(), 3u);
}

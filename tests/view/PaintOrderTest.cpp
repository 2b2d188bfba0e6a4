// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/document/GraphicObject.h"
#include "platform/view/GLGraphicsItem.h"
#include "platform/view/GraphicViewProvider.h"
#include "platform/view/PointPickerMesh.h"
#include "tests/support/ShownView.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace {

using Names = std::vector<std::string>;
using Point = UPoint3<float>;

Names calls;

/// Leaves OpenGL in the state in which nobody expects it.
void leaveADisorder()
{
    QOpenGLFunctions& gl = *QOpenGLContext::currentContext()->functions();
    gl.glDisable(GL_DEPTH_TEST);
    gl.glEnable(GL_BLEND);
    gl.glBlendFunc(GL_ZERO, GL_ONE);
    gl.glDepthMask(GL_FALSE);
    gl.glDisable(GL_MULTISAMPLE);
    gl.glEnable(GL_POLYGON_OFFSET_FILL);
}

/// Notes the state in which it was called.
std::string stateName()
{
    QOpenGLFunctions& gl = *QOpenGLContext::currentContext()->functions();
    GLboolean writesDepth = GL_FALSE;
    gl.glGetBooleanv(GL_DEPTH_WRITEMASK, &writesDepth);
    bool const isFresh = gl.glIsEnabled(GL_DEPTH_TEST) && !gl.glIsEnabled(GL_BLEND) && writesDepth;
    return isFresh ? "" : " in disorder";
}

/// A tool's provider that notes what is done with it and what it sees of the camera.
class NotingProvider : public Base::GraphicViewProvider
{
public:
    struct Seen
    {
        Point ref;
        UVector3<float> direction;
    };

    static Base::Type classTypeId;
    static void init()
    {
        initSubclass(classTypeId, "Noting::Provider", "Base::GraphicViewProvider", create);
    }
    static void* create() { return static_cast<BaseClass*>(new NotingProvider); }

    void initGL() override
    {
        calls.push_back(QOpenGLContext::currentContext() ? "init tool" : "init without a context");
    }
    void paintGL() override
    {
        calls.push_back("tool" + stateName());
        seen.push_back({m_view->getViewRefPoint(), m_view->getViewDirection()});
        leaveADisorder();
    }

    std::vector<Seen> seen;
};

Base::Type NotingProvider::classTypeId;

struct Tool : Base::GraphicObject
{
    std::string getViewProviderName() const override { return "Noting::Provider"; }
};

struct NotingItem : Base::GLGraphicsItem
{
    void initGL() override { calls.push_back("init item"); }
    void paintGL() override
    {
        calls.push_back("item" + stateName());
        leaveADisorder();
    }
};

struct NotingMouse : Mesh::PointPickerMesh
{
    static Base::Type classTypeId;
    static void init()
    {
        initSubclass(classTypeId, "Noting::Mouse", "Mesh::PointPickerMesh", create);
    }
    static void* create() { return static_cast<BaseClass*>(new NotingMouse); }
    void draw() override { calls.push_back("mouse"); }
};

Base::Type NotingMouse::classTypeId;

class PaintOrder : public ShownView
{
protected:
    void SetUp() override
    {
        NotingProvider::init();
        NotingMouse::init();
        ShownView::SetUp();
        calls.clear();
    }

    NotingProvider* addTool()
    {
        auto* const tool = new Tool;
        test.document->addObject(tool, "tool", true);
        return dynamic_cast<NotingProvider*>(test.document->getViewProvider(tool));
    }

    /// True if every change that the tool saw was a turn or a move, not both at once.
    static bool areTurnsAndMovesApart(NotingProvider const& tool)
    {
        for (std::size_t i = 1; i < tool.seen.size(); ++i)
            if (tool.seen[i].ref != tool.seen[i - 1].ref &&
                tool.seen[i].direction != tool.seen[i - 1].direction)
                return false;
        return true;
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, PaintOrder, bothPaths, pathName);

TEST_P(PaintOrder, ToolsThenTheMouseThenItemsAllInAFreshState)
{
    NotingItem first, second;
    view->addGraphicsItem(&first);
    addTool();
    addTool();
    view->addGraphicsItem(&second);
    view->startSelection("Noting::Mouse");
    view->grabFramebuffer();
    EXPECT_EQ(calls, (Names{"init item", "init tool", "init tool", "init item", "tool", "tool",
                            "mouse", "item", "item"}));
    calls.clear();
    view->removeGraphicsItem(&first);
    view->stopSelection();
    view->grabFramebuffer();
    EXPECT_EQ(calls, (Names{"tool", "tool", "item"}));
    view->removeGraphicsItem(&second);
}

TEST_P(PaintOrder, ADisorderLeftBehindDoesNotReachTheNextPicture)
{
    test.add(box(40, 30, 20), "box");
    view->OnViewType(6);
    view->fitAll();
    QImage const before = view->grabFramebuffer();
    NotingItem item;
    view->addGraphicsItem(&item);
    addTool();
    view->grabFramebuffer();
    EXPECT_EQ(view->grabFramebuffer(), before);
    view->removeGraphicsItem(&item);
}

TEST_P(PaintOrder, AHiddenToolIsNotPainted)
{
    NotingProvider* const tool = addTool();
    tool->getObject()->setVisible(false);
    calls.clear();
    view->grabFramebuffer();
    EXPECT_TRUE(calls.empty());
}

TEST_P(PaintOrder, WhatComesBeforeTheContextIsInitializedWithIt)
{
    Mesh::GLView later;
    NotingItem item;
    later.addGraphicsItem(&item);
    EXPECT_TRUE(calls.empty());
    later.grabFramebuffer();
    EXPECT_EQ(calls, (Names{"init item", "item"}));
    later.removeGraphicsItem(&item);
}

TEST_P(PaintOrder, ToolsSeeTurnsAndMovesOneByOne)
{
    test.add(box(40, 30, 20), "box");
    NotingProvider* const tool = addTool();
    view->OnViewType(0);
    view->fitAll();
    settle();
    for (int i = 0; i < 3; ++i) {
        drag(*view, {150 + 20 * i, 140}, {230, 180 + 10 * i}, Qt::RightButton);
        drag(*view, {150, 140}, {230, 180}, Qt::MiddleButton);
        turnWheel(*view, {100, 100}, 1);
        view->OnViewType(i);
    }
    settle();
    EXPECT_GT(tool->seen.size(), 15u);
    EXPECT_TRUE(areTurnsAndMovesApart(*tool));
}

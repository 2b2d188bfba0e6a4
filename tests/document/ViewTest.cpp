// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/GraphicObject.h"
#include "platform/document/MeshDocument.h"
#include "platform/view/GLView.h"
#include "platform/view/GraphicViewProvider.h"

#include <gtest/gtest.h>

namespace {

class MarkProvider : public Base::GraphicViewProvider
{
public:
    static Base::Type classTypeId;
    static void init()
    {
        initSubclass(classTypeId, "Mark::ViewProvider", "Base::GraphicViewProvider", create);
    }
    static void* create() { return new MarkProvider(); }

    MarkProvider() { ++alive; }
    ~MarkProvider() override { --alive; }

    void attach(Base::DocumentObject* shown) override { object = shown; }
    void hide() override { isShown = false; }
    void show() override { isShown = true; }
    bool isShow() const override { return isShown; }
    void attachGLViewer(Base::GLView* shownIn) override { view = shownIn; }
    void updateRenderData() override {}
    bool isTransparent() const override { return false; }
    void setObjectColor(unsigned) override {}
    void clearColor() override {}
    unsigned getObjectColor() const override { return 0; }
    void setRenderMode(int) override {}

    static inline int alive = 0;
    Base::DocumentObject* object = nullptr;
    Base::GLView* view = nullptr;
    bool isShown = false;
};

Base::Type MarkProvider::classTypeId;

struct Mark : Base::DocumentObject
{
    std::string getViewProviderName() const override { return "Mark::ViewProvider"; }
};

struct View : Base::GLView
{
    void redraw() override {}
};

}  // namespace

TEST(ViewProviders, ThereAreNoneWithoutAView)
{
    MarkProvider::init();
    Mesh::Document document;
    auto* const mark = new Mark;
    document.addObject(mark, "mark", true);
    EXPECT_EQ(document.getViewProvider(mark), nullptr);
    EXPECT_EQ(document.getViewProvider(nullptr), nullptr);
    EXPECT_EQ(document.getView(), nullptr);
}

TEST(ViewProviders, ComeAndGoWithTheirObjects)
{
    MarkProvider::init();
    Mesh::Document document;
    View view;
    auto* const early = new Mark;
    document.addObject(early, "early", true);
    document.setView(&view);
    auto* const late = new Mark;
    late->setVisible(false);
    document.addObject(late, "late", true);
    auto* const plain = new Base::GraphicObject;
    document.addObject(plain, "plain", true);

    auto* const provider = dynamic_cast<MarkProvider*>(document.getViewProvider(early));
    ASSERT_NE(provider, nullptr);
    EXPECT_EQ(provider->object, early);
    EXPECT_EQ(provider->view, &view);
    EXPECT_TRUE(provider->isShow());
    EXPECT_FALSE(document.getViewProvider(late)->isShow());
    EXPECT_EQ(document.getViewProvider(plain), nullptr);

    early->setVisible(false);
    EXPECT_FALSE(provider->isShow());
    document.openTransaction("Remove");
    document.removeObject(early);
    document.commitTransaction();
    EXPECT_EQ(MarkProvider::alive, 1);
    document.undo();
    EXPECT_EQ(MarkProvider::alive, 2);
    EXPECT_FALSE(document.getViewProvider(early)->isShow());
    document.setView(nullptr);
    EXPECT_EQ(MarkProvider::alive, 0);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ViewScene.h"
#include "platform/view/ViewProvider.h"
#include "tests/support/ShownView.h"

// Who outlives whom, and who tells whom.
namespace {

class ViewLife : public testing::Test
{
protected:
    ViewLife()
    {
        view.resize(400, 300);
        view.OnViewType(2);
    }

    float heightAt(Mesh::GLView const& seen, UPoint3<float> const& world) const
    {
        int x = 0, y = 0;
        seen.getWidgetcoordFromWCS(world, x, y);
        Mesh::GLView::Pick pick;
        return seen.pickPoint({x, y}, pick) ? pick.point.Z() : -1;
    }

    TestDocument test;
    Mesh::GLView view;
};

}  // namespace

TEST_F(ViewLife, ShowsPartsThatCameBeforeItAndAfterIt)
{
    test.add(box(10, 10, 10), "before");
    view.setDocument(test.document);
    test.add(box(10, 10, 10, {20, 0, 0}), "after");
    EXPECT_EQ(view.scene().providers().size(), 2u);
    EXPECT_EQ(view.getSceneBox(false).MaxX(), 30);
    EXPECT_EQ(view.getDocument(), test.document);
    EXPECT_EQ(test.document->getView(), &view);
}

TEST_F(ViewLife, OutlivesItsDocument)
{
    view.setDocument(test.document);
    test.add(box(10, 10, 10), "box");
    test.application.closeDocument(test.document);
    EXPECT_EQ(view.getDocument(), nullptr);
    EXPECT_TRUE(view.scene().providers().empty());
    EXPECT_TRUE(view.getSceneBox(false).Isnullptr());
}

TEST_F(ViewLife, TakesItselfOutOfItsDocument)
{
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "box");
    {
        Mesh::GLView shortLived;
        shortLived.setDocument(test.document);
        EXPECT_NE(test.document->getViewProvider(part), nullptr);
    }
    EXPECT_EQ(test.document->getView(), nullptr);
    EXPECT_EQ(test.document->getViewProvider(part), nullptr);
    part->setVisible(false);
}

TEST_F(ViewLife, TurnsFromOneDocumentToAnother)
{
    test.add(box(10, 10, 10), "box");
    view.setDocument(test.document);
    Mesh::Document* const other = test.application.newDocument("other");
    view.setDocument(other);
    EXPECT_EQ(test.document->getView(), nullptr);
    EXPECT_EQ(other->getView(), &view);
    EXPECT_TRUE(view.scene().providers().empty());
    view.setDocument(nullptr);
    EXPECT_EQ(other->getView(), nullptr);
}

TEST_F(ViewLife, FollowsUndo)
{
    view.setDocument(test.document);
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "box");
    test.document->openTransaction("Remove");
    test.document->removeObject(part);
    test.document->commitTransaction();
    EXPECT_EQ(heightAt(view, {5, 5, 0}), -1);
    test.document->undo();
    EXPECT_EQ(heightAt(view, {5, 5, 0}), 10);
}

TEST_F(ViewLife, SeesRecordsThatWereChangedInPlaceOnceItIsTold)
{
    view.setDocument(test.document);
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "box");
    part->meshProperty->getMesh()->getMesh();
    EXPECT_EQ(heightAt(view, {5, 5, 0}), 10);
    for (UVertex<float>* const vertex : part->meshProperty->getMesh()->getMesh()->vertices)
        vertex->P().Z() *= 3;
    part->setMeshModified(true);
    EXPECT_EQ(heightAt(view, {5, 5, 0}), 30);
}

TEST_F(ViewLife, APartWithoutAMeshIsNotSeen)
{
    view.setDocument(test.document);
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "box");
    part->meshProperty->setMesh(nullptr, true);
    EXPECT_EQ(heightAt(view, {5, 5, 0}), -1);
    view.fitAll();
}

TEST_F(ViewLife, AProviderHasTheObjectsColourUnlessItGotOne)
{
    view.setDocument(test.document);
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "box");
    Base::ViewProvider* const provider = test.document->getViewProvider(part);
    EXPECT_EQ(provider->getClassName(), "Mesh::ViewProvider");
    part->setColor(1, 2, 3, 255);
    EXPECT_EQ(provider->getObjectColor(), 0x010203ffu);
    EXPECT_FALSE(provider->isTransparent());
    provider->setObjectColor(0x10203040);
    EXPECT_EQ(provider->getObjectColor(), 0x10203040u);
    EXPECT_TRUE(provider->isTransparent());
    provider->clearColor();
    EXPECT_EQ(provider->getObjectColor(), 0x010203ffu);
}

TEST(ViewTypes, AreEntered)
{
    EXPECT_TRUE(Mesh::GLView::getClassTypeId().isDerivedFrom(Base::GLView::getClassTypeId()));
    Mesh::GLView const view;
    EXPECT_EQ(view.getTypeId(), Mesh::GLView::getClassTypeId());
    EXPECT_EQ(Base::Type::createInstance("Mesh::GLView"), nullptr);
    Base::Type const picker = Base::Type::fromName("Mesh::PointPickerMesh");
    for (char const* const parent : {"Base::RectangleSelection", "Base::RubberbandSelection",
                                     "Base::AbstractMouseSelection", "Base::BaseClass"})
        EXPECT_TRUE(picker.isDerivedFrom(Base::Type::fromName(parent))) << parent;
    EXPECT_FALSE(Base::Type::fromName("Base::GLGraphicsItem").isBad());
}

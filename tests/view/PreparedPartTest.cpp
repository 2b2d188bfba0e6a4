// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PreparedPart.h"
#include "host/view/ViewScene.h"
#include "platform/view/ViewProvider.h"
#include "tests/support/ShownView.h"

#include <optional>
#include <thread>

// What is made for the view on another thread.
namespace {

class PreparedParts : public ShownView
{
protected:
    void lookDown()
    {
        view->OnViewType(2);
        view->fitAll();
    }

    PreparedPart prepared(MeshKernel const& kernel) const
    {
        std::optional<PreparedPart> made;
        std::thread worker([&] { made.emplace(kernel); });
        worker.join();
        return std::move(*made);
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, PreparedParts, bothPaths, pathName);

TEST_P(PreparedParts, AreDrawnAndPickedLikeOthers)
{
    Mesh::DocumentObject* const plain = test.add(torus(20, 8, 60, 30), "plain");
    lookDown();
    QImage const expected = picture("unprepared");
    Mesh::GLView::Pick expectedPick, pick;
    QPoint const position = positionOf({20, 0, 8});
    ASSERT_TRUE(view->pickPoint(position, expectedPick));
    test.document->removeObject(plain);
    Mesh::DocumentObject* const part = test.add(torus(20, 8, 60, 30), "part");
    usePrepared(*part, prepared(*part->meshProperty->getMesh()));
    EXPECT_EQ(picture("prepared"), expected);
    ASSERT_TRUE(view->pickPoint(position, pick));
    EXPECT_EQ(pick.part, part);
    EXPECT_EQ(pick.point, expectedPick.point);
}

TEST_P(PreparedParts, AreDroppedIfThePartHasAnotherMesh)
{
    Mesh::DocumentObject* const part = test.add(box(40, 30, 20), "box");
    lookDown();
    QImage const expected = picture("own-mesh");
    // Of as many triangles, so that only the mesh itself tells.
    auto const other = kernelOf(box(1, 1, 1));
    usePrepared(*part, prepared(*other));
    EXPECT_EQ(picture("not-prepared"), expected);
    PreparedPart late = prepared(*part->meshProperty->getMesh());
    part->meshProperty->setMesh(kernelOf(box(10, 10, 10)).release(), true);
    QImage const replaced = picture("replaced-mesh");
    usePrepared(*part, std::move(late));
    EXPECT_EQ(picture("replaced-mesh-kept"), replaced);
    Mesh::GLView::Pick pick;
    EXPECT_FALSE(view->pickPoint(positionOf({35, 25, 20}), pick));
}

TEST_P(PreparedParts, ShineThroughEdgesThatWouldCoverThem)
{
    Mesh::DocumentObject* const part = test.add(sphere(20, 100, 200), "sphere");
    view->setPlateVisible(false);
    lookDown();
    view->getCamera()->zoom(3);
    UPoint3<float> const top(0, 5, 19);
    int const plain = colorAt(picture("dense-shaded"), top).lightness();
    test.document->getViewProvider(part)->setRenderMode(Base::ViewProvider::ShadedWithEdges);
    EXPECT_GT(colorAt(picture("dense-edges"), top).lightness(), plain * 6 / 10);
}

TEST_P(PreparedParts, OfManyTrianglesAreMadeWhileTheWindowGoesOn)
{
    lookDown();
    QImage const empty = picture("nothing-yet");
    Mesh::DocumentObject* const part = test.add(sphere(20, 330, 330), "sphere");
    auto const mesh = part->meshProperty->getMesh()->readMesh();
    ASSERT_GT(mesh->triangles.size(), 200000u);
    PartPreparer& preparer = view->scene().preparer();
    view->grabFramebuffer();
    EXPECT_TRUE(preparer.isWorking());
    preparer.finish();
    EXPECT_FALSE(preparer.isWorking());
    QImage const shown = view->grabFramebuffer();
    EXPECT_NE(shown.pixelColor(shown.rect().center()), empty.pixelColor(empty.rect().center()));
    Mesh::GLView::Pick pick;
    ASSERT_TRUE(view->pickPoint(view->rect().center(), pick));
    EXPECT_EQ(pick.part, part);
}

TEST_P(PreparedParts, WithOneMeshAreMadeOnce)
{
    Mesh::DocumentObject* const part = test.add(sphere(20, 330, 330), "sphere");
    lookDown();
    PartPreparer& preparer = view->scene().preparer();
    view->grabFramebuffer();
    preparer.finish();
    view->grabFramebuffer();
    test.document->addObject(part->shallowCopy(), "copy", true);
    view->grabFramebuffer();
    EXPECT_FALSE(preparer.isWorking());
}

TEST_P(PreparedParts, ArePickedBeforeTheyAreShown)
{
    Mesh::DocumentObject* const part = test.add(sphere(20, 330, 330), "sphere");
    lookDown();
    Mesh::GLView::Pick pick;
    ASSERT_TRUE(view->pickPoint(positionOf({0, 0, 20}), pick));
    EXPECT_EQ(pick.part, part);
}

TEST_P(PreparedParts, ReplaceWhatWasShownOnlyWhenTheyAreReady)
{
    Mesh::DocumentObject* const before = test.add(box(40, 40, 40), "box");
    view->setPlateVisible(false);
    lookDown();
    QImage const shown = view->grabFramebuffer();
    PartPreparer& preparer = view->scene().preparer();
    test.document->removeObject(before);
    Mesh::DocumentObject* const piece = test.add(sphere(2, 330, 330), "piece");
    EXPECT_EQ(view->grabFramebuffer(), shown);
    ASSERT_TRUE(preparer.isWorking());
    preparer.finish();
    EXPECT_NE(view->grabFramebuffer(), shown);
    test.document->removeObject(piece);
    QImage const empty = view->grabFramebuffer();
    EXPECT_EQ(empty.pixelColor(positionOf({1, 1, 0}) * int(view->devicePixelRatioF())),
              empty.pixelColor(2, positionOf({1, 1, 0}).y() * int(view->devicePixelRatioF())));
}

TEST_P(PreparedParts, OfVeryManyTrianglesComeToTheDeviceBetweenEvents)
{
    view->setPlateVisible(false);
    lookDown();
    QImage const empty = view->grabFramebuffer();
    Mesh::DocumentObject* const part = test.add(sphere(20, 560, 560), "sphere");
    lookDown();
    ViewScene& scene = view->scene();
    scene.standIns().setUse(StandIns::Use::Never);
    view->grabFramebuffer();
    scene.preparer().finish();
    view->grabFramebuffer();
    EXPECT_FALSE(scene.preparer().isWorking());
    EXPECT_TRUE(scene.isPreparing());
    EXPECT_EQ(view->grabFramebuffer(), empty);
    // A copy waits for the same.
    test.document->addObject(part->shallowCopy(), "copy", true);
    view->grabFramebuffer();
    EXPECT_FALSE(scene.preparer().isWorking());
    ASSERT_TRUE(waitUntil([&] { return !scene.isPreparing(); }));
    QImage const shown = view->grabFramebuffer();
    EXPECT_NE(shown.pixelColor(shown.rect().center()), empty.pixelColor(empty.rect().center()));
    EXPECT_FALSE(scene.isPreparing());
}

TEST_P(PreparedParts, ThatAreTakenAwayOnTheirWayAreForgotten)
{
    view->setPlateVisible(false);
    QImage const empty = view->grabFramebuffer();
    auto const begin = [&] {
        Mesh::DocumentObject* const part = test.add(sphere(20, 560, 560), "sphere");
        view->grabFramebuffer();
        view->scene().preparer().finish();
        view->grabFramebuffer();
        EXPECT_TRUE(view->scene().isPreparing());
        return part;
    };
    test.document->removeObject(begin());
    EXPECT_FALSE(view->scene().isPreparing());
    settle();
    EXPECT_EQ(view->grabFramebuffer(), empty);
    // Hidden and given another mesh.
    Mesh::DocumentObject* const part = begin();
    part->setVisible(false);
    part->meshProperty->setMesh(kernelOf(box(1, 1, 1)).release(), true);
    settle();
    EXPECT_FALSE(view->scene().isPreparing());
    EXPECT_EQ(view->grabFramebuffer(), empty);
    // With the view.
    begin();
    show(GetParam());
}

TEST_P(PreparedParts, ReplaceWhatWasShownAllTogether)
{
    Mesh::DocumentObject* const before = test.add(box(40, 40, 40), "box");
    view->setPlateVisible(false);
    lookDown();
    QImage const shown = view->grabFramebuffer();
    test.document->removeObject(before);
    test.add(sphere(2, 560, 560), "first");
    test.add(sphere(4, 330, 330), "second");
    EXPECT_EQ(view->grabFramebuffer(), shown);
    ViewScene& scene = view->scene();
    scene.preparer().finish();
    // The first one is on its way to the device, and the second has all that it needs.
    EXPECT_EQ(view->grabFramebuffer(), shown);
    ASSERT_TRUE(scene.isPreparing());
    EXPECT_EQ(view->grabFramebuffer(), shown);
    scene.finishPreparing();
    QImage const together = view->grabFramebuffer();
    EXPECT_NE(together, shown);
    EXPECT_EQ(view->grabFramebuffer(), together);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PreparedPart.h"
#include "platform/view/ViewProvider.h"
#include "tests/view/ShownView.h"

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

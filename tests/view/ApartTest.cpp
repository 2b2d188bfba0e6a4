// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MeshViewProvider.h"
#include "host/view/PartTints.h"
#include "host/view/ViewColors.h"
#include "platform/document/CutMemory.h"
#include "tests/support/ShownView.h"

#include <set>

// Parts that are drawn apart from each other, and told from each other by colours.
namespace {

class DrawnApart : public ShownView
{
protected:
    void SetUp() override
    {
        ShownView::SetUp();
        if (!view)
            return;
        view->setPlateVisible(false);
        low = test.add(box(20, 20, 20), "low");
        high = test.add(box(20, 20, 20, {0, 0, 20}), "high");
        view->OnViewType(0);
        view->fitAll();
        view->getCamera()->zoom(2);
        settle();
    }

    Mesh::DocumentObject* partAt(UPoint3<float> const& world) const
    {
        Mesh::GLView::Pick pick;
        return view->pickPoint(positionOf(world), pick) ? pick.part : nullptr;
    }

    Mesh::DocumentObject* low = nullptr;
    Mesh::DocumentObject* high = nullptr;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, DrawnApart, bothPaths, pathName);

TEST_P(DrawnApart, ThePictureAndThePicksFollowAndThePartsStay)
{
    QImage const together = picture("together");
    UMatrix4<float> const placed = high->getMatrix();
    EXPECT_EQ(partAt({10, 0, 30}), high);
    // The middles are 20 mm apart, so the gap is 20 mm too.
    view->setDrawnApart(1);
    QImage const apart = picture("apart");
    EXPECT_EQ(colorAt(apart, {10, 0, 30}), colorAt(together, {60, 0, 30}));
    EXPECT_EQ(colorAt(apart, {10, 0, 50}), colorAt(together, {10, 0, 30}));
    EXPECT_EQ(colorAt(apart, {10, 0, 10}), colorAt(together, {10, 0, 10}));
    EXPECT_EQ(partAt({10, 0, 30}), nullptr);
    EXPECT_EQ(partAt({10, 0, 50}), high);
    EXPECT_EQ(partAt({10, 0, 10}), low);
    EXPECT_EQ(high->getMatrix(), placed);
    EXPECT_FALSE(test.document->isModified());
    view->setDrawnApart(0);
    EXPECT_EQ(picture("together-again"), together);
}

TEST_P(DrawnApart, WhatIsPickedIsWhereThePartIs)
{
    view->setDrawnApart(1);
    view->setLiveCut(LiveCut{{0, 0, 30}, {0, 0, 1}, true});
    view->grabFramebuffer();
    Mesh::GLView::Pick pick;
    ASSERT_TRUE(view->pickPoint(positionOf({10, 0, 45}), pick));
    EXPECT_EQ(pick.part, high);
    EXPECT_NEAR(pick.point.Z(), 25, 0.5);
    EXPECT_NEAR(pick.point.Y(), 0, 1e-4);
    // The upper half of the upper part is cut away.
    EXPECT_EQ(partAt({10, 0, 55}), nullptr);
    // Hidden parts do not count, and are not moved.
    low->setVisible(false);
    view->grabFramebuffer();
    EXPECT_EQ(partAt({10, 0, 25}), high);
}

TEST_P(DrawnApart, TheSectionLineStaysOnThePart)
{
    view->setSectionHeight(30.0f);
    QImage const together = view->grabFramebuffer();
    view->setDrawnApart(1);
    QImage const apart = view->grabFramebuffer();
    EXPECT_EQ(colorAt(apart, {10, 0, 50}), colorAt(together, {10, 0, 30}));
    EXPECT_NE(colorAt(apart, {10, 0, 50}), colorAt(apart, {10, 0, 55}));
}

TEST_P(DrawnApart, APieceComesOutOfTheHoleThatAShapeHasMade)
{
    // Drawn from above; the middles of both lie in one place.
    low->setVisible(false);
    Mesh::DocumentObject* const plug = test.add(box(4, 4, 20, {8, 8, 20}), "plug");
    Mesh::rememberShapeCut(*low, {0, 0, 1}, *plug, *high);
    view->setDrawnApart(1);
    view->grabFramebuffer();
    auto const apartOf = [&](Mesh::DocumentObject const* part) {
        return dynamic_cast<Mesh::ViewProvider const&>(*test.document->getViewProvider(part))
            .apart();
    };
    // Clear of each other as soon as they are spread by their height, and no lower than they were.
    EXPECT_NEAR(apartOf(plug).Z() - apartOf(high).Z(), 20, 1e-4);
    EXPECT_NEAR(apartOf(high).Z(), 0, 1e-4);
    EXPECT_NEAR(apartOf(plug).X(), apartOf(high).X(), 1e-4);
    EXPECT_EQ(partAt({10, 0, 50}), plug);
}

TEST_P(DrawnApart, PartsInTurnHaveColoursThatStay)
{
    QColor const plain = colorAt(view->grabFramebuffer(), {10, 0, 30});
    EXPECT_EQ(colorAt(view->grabFramebuffer(), {10, 0, 10}), plain);
    view->setPartsTinted(true);
    QImage const tinted = picture("tinted");
    EXPECT_EQ(colorAt(tinted, {10, 0, 10}), plain);
    QColor const second = colorAt(tinted, {10, 0, 30});
    EXPECT_NE(second, plain);
    // Also when others go, and a colour of the part's own comes first.
    test.document->removeObject(low);
    EXPECT_EQ(colorAt(view->grabFramebuffer(), {10, 0, 30}), second);
    high->setColor(0x204060ff);
    EXPECT_NE(colorAt(view->grabFramebuffer(), {10, 0, 30}), second);
    high->setColor(0);
    view->setPartsTinted(false);
    EXPECT_EQ(colorAt(view->grabFramebuffer(), {10, 0, 30}), plain);
}

TEST(PartTints, GoRoundAndAreKept)
{
    PartTints tints;
    auto const part = [](std::size_t i) {
        return reinterpret_cast<Base::DocumentObject const*>(8 * (i + 1));
    };
    EXPECT_EQ(tints.colorOf(part(0)), viewColors().part);
    tints.setOn(true);
    std::vector<unsigned> given;
    for (std::size_t i = 0; i < 14; ++i)
        given.push_back(tints.colorOf(part(i)));
    EXPECT_EQ(given[0], viewColors().part);
    EXPECT_EQ(std::set<unsigned>(given.begin(), given.end()).size(), 7u);
    for (std::size_t i = 0; i < 14; ++i) {
        EXPECT_EQ(tints.colorOf(part(i)), given[i]);
        EXPECT_NE(given[i], viewColors().selected);
        EXPECT_EQ(given[i], given[i % 7]);
    }
}

TEST_P(DrawnApart, PiecesGoAlongTheNormalsOfTheirCutsAndInTheirOrder)
{
    // A bar along x, of which the halves of the middle lie side by side in y, cut from corner to
    // corner: by their boxes they could not be told from each other.
    Mesh::DocumentObject* const bar = test.add(box(60, 20, 20), "bar");
    Mesh::DocumentObject* const left = test.add(box(20, 20, 20), "left");
    Mesh::DocumentObject* const rest = test.add(box(40, 20, 20, {20, 0, 0}), "rest");
    Mesh::rememberCut(*bar, {{1, 0, 0}, 20}, *left, *rest);
    double const r = std::sqrt(0.5);
    Soup const wedge = [] {
        Soup soup = box(40, 20, 20, {20, 0, 0});
        for (auto& p : soup.points)
            if (p[0] > 30 && p[1] > 10)
                p[0] = 30, p[1] = 10;
        return soup;
    }();
    Mesh::DocumentObject* const near = test.add(wedge, "near");
    Mesh::DocumentObject* const far = test.add(box(40, 20, 20, {20, 0, 0}), "far");
    Mesh::rememberCut(*rest, {{r, r, 0}, 40 * r}, *far, *near);
    for (Mesh::DocumentObject* const hidden : {low, high, bar, rest})
        hidden->setVisible(false);
    view->setDrawnApart(1);
    picture("pieces-apart");
    auto const apartOf = [&](Mesh::DocumentObject const* part) {
        return dynamic_cast<Mesh::ViewProvider*>(test.document->getViewProvider(part))->apart();
    };
    // Each piece goes away from its neighbour, across the cut that parts them.
    EXPECT_LT(apartOf(left).X(), apartOf(near).X());
    EXPECT_GT((apartOf(far) - apartOf(near)) | UVector3<double>(r, r, 0), 1);
    for (Mesh::DocumentObject const* const piece : {left, near, far})
        EXPECT_EQ(apartOf(piece).Z(), 0);
}

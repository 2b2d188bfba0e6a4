// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MadeModels.h"
#include "tests/support/ShownView.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <cmath>

// Parts that the view cuts open, as the pixels tell it.
namespace {

using Point = UPoint3<float>;

class LiveCuts : public ShownView
{
protected:
    void cutBelow(float height, bool hasCaps = true)
    {
        view->setLiveCut(LiveCut{{0, 0, height}, {0, 0, 1}, hasCaps});
    }

    /// What is to be seen around a point of the plane, without the lines of the hatch.
    QColor lightestAt(QImage const& image, Point const& world) const
    {
        QPoint const middle = positionOf(world) * int(view->devicePixelRatioF());
        QColor best = image.pixelColor(middle);
        for (int d = -10; d <= 10; ++d)
            if (QColor const color = image.pixelColor(middle + QPoint(d, 0));
                color.lightness() > best.lightness())
                best = color;
        return best;
    }

    bool isCapAt(QImage const& image, Point const& world) const
    {
        QColor const color = lightestAt(image, world);
        return color.lightness() > 205 && color.blue() > color.red() && color.blue() < 236;
    }

    /// Nothing but the background, which is the same along a row.
    bool isBare(QImage const& image, Point const& world) const
    {
        int const row = positionOf(world).y() * int(view->devicePixelRatioF());
        return colorAt(image, world) == image.pixelColor(2, row);
    }

    void lookDown()
    {
        view->setPlateVisible(false);
        view->OnViewType(2);
        view->fitAll();
        view->getCamera()->zoom(1.5);
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, LiveCuts, bothPaths, pathName);

TEST_P(LiveCuts, TakeAwayWhatTheNormalPointsTo)
{
    test.add(box(40, 30, 20), "low");
    test.add(box(10, 10, 10, {0, 0, 20}), "high");
    lookDown();
    view->OnViewType(0);
    cutBelow(15);
    QImage const image = picture("cut-front");
    EXPECT_FALSE(isBare(image, {30, 0, 5}));
    EXPECT_TRUE(isBare(image, {30, 0, 18}));
    EXPECT_TRUE(isBare(image, {5, 0, 25}));
    view->setLiveCut(LiveCut{{0, 0, 15}, {0, 0, -1}, true});
    QImage const flipped = picture("cut-front-flipped");
    EXPECT_TRUE(isBare(flipped, {30, 0, 5}));
    EXPECT_FALSE(isBare(flipped, {30, 0, 18}));
    view->setLiveCut({});
    QImage const whole = picture("cut-front-off");
    EXPECT_FALSE(isBare(whole, {30, 0, 5}));
    EXPECT_FALSE(isBare(whole, {5, 0, 25}));
    EXPECT_EQ(view->context()->functions()->glGetError(), GLenum(GL_NO_ERROR));
}

TEST_P(LiveCuts, FillSolidsButNotTheirCavities)
{
    Mesh::DocumentObject* const part = test.add(nestedBoxes(), "nested");
    UBox3<float> const box = part->getBoundingBox();
    float const middle = (box.MinZ() + box.MaxZ()) / 2;
    lookDown();
    cutBelow(middle);
    QImage const image = picture("cut-nested");
    // From the left side to the middle: solid, cavity, solid.
    std::vector<bool> seen;
    for (float x = box.MinX() + 2; x < (box.MinX() + box.MaxX()) / 2; x += 0.3f) {
        bool const isCap = isCapAt(image, {x, (box.MinY() + box.MaxY()) / 2, middle});
        if (seen.empty() || seen.back() != isCap)
            seen.push_back(isCap);
    }
    EXPECT_EQ(seen, (std::vector{true, false, true}));
    cutBelow(middle, false);
    QImage const hollow = picture("cut-nested-hollow");
    EXPECT_FALSE(isCapAt(hollow, {box.MinX() + 2, 15, middle}));
}

TEST_P(LiveCuts, FillThePlaneInPerspectiveAndFromBelow)
{
    test.add(tube(20, 10, 30, 48), "tube");
    lookDown();
    view->setProjection(GLCamera::Projection::Perspective);
    view->OnViewType(6);
    view->fitAll();
    cutBelow(15);
    QImage const image = picture("cut-tube-perspective");
    EXPECT_TRUE(isCapAt(image, {0, -15, 15}));
    EXPECT_TRUE(isCapAt(image, {15, 0, 15}));
    EXPECT_FALSE(isCapAt(image, {0, 0, 15}));
    view->OnViewType(3);
    view->setLiveCut(LiveCut{{0, 0, 15}, {0, 0, -1}, true});
    QImage const below = picture("cut-tube-below");
    EXPECT_TRUE(isCapAt(below, {15, 0, 15}));
    EXPECT_FALSE(isCapAt(below, {0, 0, 15}));
}

TEST_P(LiveCuts, DoNotFloodThePictureOnOpenParts)
{
    test.add(openBox(40, 30, 20), "open");
    lookDown();
    view->OnViewType(0);
    // Along the height the line is open at the top: nothing to fill.
    view->setLiveCut(LiveCut{{0, 15, 0}, {0, -1, 0}, true});
    QImage const image = picture("cut-open");
    EXPECT_FALSE(isCapAt(image, {20, 15, 10}));
    EXPECT_TRUE(isBare(image, {20, 15, 25}));
    EXPECT_TRUE(isBare(image, {-5, 15, 10}));
    // Across it the line closes.
    view->OnViewType(2);
    cutBelow(10);
    QImage const across = picture("cut-open-across");
    EXPECT_TRUE(isCapAt(across, {20, 15, 10}));
    EXPECT_TRUE(isBare(across, {-5, 15, 10}));
}

TEST_P(LiveCuts, FollowPartsThatAreMovedAndMirrored)
{
    Mesh::DocumentObject* const part = test.add(tube(20, 10, 30, 48), "tube");
    part->mirror({0, 0, 0}, {1, 0, 0});
    part->translate({5, 0, 0}, 0);
    part->rotate({0, 0, 0}, float(M_PI / 2), {0, 1, 0}, true);
    lookDown();
    UBox3<float> const box = part->getBoundingBox();
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    view->setLiveCut(LiveCut{middle, {0, 0, 1}, true});
    QImage const image = picture("cut-turned");
    bool const isAlongX = box.MaxX() - box.MinX() < box.MaxY() - box.MinY();
    UVector3<float> const across = isAlongX ? UVector3<float>(0, 15, 0) : UVector3<float>(15, 0, 0);
    EXPECT_TRUE(isCapAt(image, middle + across));
    EXPECT_TRUE(isCapAt(image, middle - across));
    EXPECT_FALSE(isCapAt(image, middle));
}

TEST_P(LiveCuts, LetPicksThrough)
{
    Mesh::DocumentObject* const low = test.add(box(40, 30, 20), "low");
    Mesh::DocumentObject* const high = test.add(box(40, 30, 10, {0, 0, 30}), "high");
    lookDown();
    QPoint const position = positionOf({20, 15, 20});
    Mesh::GLView::Pick pick;
    ASSERT_TRUE(view->pickPoint(position, pick));
    EXPECT_EQ(pick.part, high);
    cutBelow(25);
    ASSERT_TRUE(view->pickPoint(position, pick));
    EXPECT_EQ(pick.part, low);
    EXPECT_NEAR(pick.point.Z(), 20, 1e-3);
    cutBelow(-1);
    EXPECT_FALSE(view->pickPoint(position, pick));
    click(*view, position);
    EXPECT_FALSE(low->isSelected());
}

TEST_P(LiveCuts, ShowTheSectionLineOfAHeightOverTheParts)
{
    test.add(box(40, 30, 20), "box");
    lookDown();
    view->OnViewType(6);
    view->fitAll();
    QImage const plain = picture("section-line-off");
    view->setSectionHeight(10.0f);
    QImage const image = picture("section-line");
    auto const isBlue = [&](Point const& world) {
        QColor const color = colorAt(image, world);
        return color.blue() > color.red() + 60;
    };
    EXPECT_TRUE(isBlue({20, 0, 10}));
    EXPECT_TRUE(isBlue({40, 15, 10}));
    EXPECT_FALSE(isBlue({20, 0, 5}));
    EXPECT_FALSE(isBlue({20, 15, 20}));
    // At the far side it is paler, but there.
    EXPECT_NE(colorAt(image, {20, 30, 10}), colorAt(plain, {20, 30, 10}));
    view->setSectionHeight(30.0f);
    EXPECT_EQ(picture("section-line-above"), plain);
    view->setSectionHeight({});
    EXPECT_EQ(picture("section-line-none"), plain);
}

TEST_P(LiveCuts, LeaveTheLineOfAHeightPaleWhileAPlaneStands)
{
    test.add(box(40, 30, 20), "box");
    lookDown();
    view->OnViewType(6);
    view->fitAll();
    Point const onHeight(20, 0, 10), onPlane(10, 0, 5);
    auto const blueness = [&](QImage const& image, Point const& world) {
        QColor const color = colorAt(image, world);
        return color.blue() - color.red();
    };
    view->setSectionHeight(10.0f);
    int const alone = blueness(picture("section-height-alone"), onHeight);
    view->setSectionPlane(SectionPlane{{10, 0, 0}, {1, 0, 0}});
    QImage const both = picture("section-height-and-plane");
    EXPECT_GT(blueness(both, onPlane), 60);
    EXPECT_LT(blueness(both, onHeight), alone - 30);
    EXPECT_GT(blueness(both, onHeight), blueness(both, {20, 0, 3}) + 10);
    view->setSectionPlane({});
    EXPECT_EQ(blueness(picture("section-height-again"), onHeight), alone);
}

TEST_P(LiveCuts, AskForAPictureOnlyIfTheyChange)
{
    test.add(box(40, 30, 20), "box");
    lookDown();
    settle();
    PictureCount pictures(*view);
    auto const picturesFor = [&](auto const& change) {
        pictures.count = 0;
        change();
        settle();
        return pictures.count;
    };
    EXPECT_EQ(picturesFor([&] { cutBelow(10); }), 1);
    EXPECT_EQ(picturesFor([&] { cutBelow(10); }), 0);
    EXPECT_EQ(picturesFor([&] { view->setSectionHeight(5.0f); }), 1);
    EXPECT_EQ(picturesFor([&] { view->setSectionHeight(5.0f); }), 0);
    EXPECT_EQ(picturesFor([&] {
                  for (float height = 5; height < 10; ++height)
                      view->setSectionHeight(height);
              }),
              1);
}

TEST_P(LiveCuts, OfAModel)
{
    Mesh::DocumentObject* const part = test.add(branchedFigure(), "part");
    view->resize(800, 600);
    settle();
    view->OnViewType(6);
    view->fitAll();
    UBox3<float> const box = part->getBoundingBox();
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    view->setLiveCut(LiveCut{middle, {0, -1, 0}, true});
    view->setSectionHeight(middle.Z());
    QImage const image = picture("cut-model");
    part->setSelected(true, true, true);
    EXPECT_NE(picture("cut-model-selected"), image);
}

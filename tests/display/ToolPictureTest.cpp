// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/ContourItem.h"
#include "display/PlaneViewProvider.h"
#include "display/RubberLine.h"
#include "display/RubberRect.h"
#include "tests/support/ShownView.h"
#include "tests/view/PictureDifference.h"
#include "tools/PlaneGraphicObject.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

// What tools and marks look like, as the pixels tell it.
namespace {

using Point = UPoint3<float>;

class ToolPictures : public ShownView
{
protected:
    /// Looks along y at the origin; the picture is 100 mm high.
    void SetUp() override
    {
        ShownView::SetUp();
        if (view)
            lookFromTheFront();
    }
    void lookFromTheFront()
    {
        view->setPlateVisible(false);
        view->OnViewType(0);
        view->getCamera()->set_ref(0, 0, 0, true);
        view->getCamera()->set_view_height(100);
    }

    /// A plane in y = 0 around the origin.
    Freecut::PlaneGraphicObject* addPlane(float width, float height)
    {
        Freecut::GraphicViewProvider::init();
        Freecut::PlaneViewProvider::init();
        auto* const plane = new Freecut::PlaneGraphicObject;
        test.document->addObject(plane, "plane", true);
        float const x = width / 2, z = height / 2;
        plane->getProperty().setCorners({-x, 0, -z}, {x, 0, -z}, {x, 0, z}, true);
        plane->getViewProvider()->updateGeometry();
        return plane;
    }

    GLenum error() const { return view->context()->functions()->glGetError(); }

    /// How many pixels in the row through a point are darker than halfway to its own grey.
    int darkRun(QImage const& image, Point const& point, QColor const& ground) const
    {
        int const ratio = int(view->devicePixelRatioF());
        QPoint const place = positionOf(point) * ratio;
        int const limit = (qGray(image.pixel(place)) + qGray(ground.rgb())) / 2;
        int count = 0;
        for (int x = place.x() - 20 * ratio; x < place.x() + 20 * ratio; ++x)
            count += qGray(image.pixel(x, place.y())) < limit;
        return count;
    }
};

/// Red mixed with what lies beside it.
bool isReddish(QColor const& color)
{
    return color.red() > color.blue() + 60;
}

/// A mark that is in the view while it lives.
template <typename Item>
struct Shown
{
    explicit Shown(Mesh::GLView& view) : item(&view), m_view(view)
    {
        item.setWorking(true);
        view.addGraphicsItem(&item);
    }
    ~Shown() { m_view.removeGraphicsItem(&item); }
    Item item;

private:
    Mesh::GLView& m_view;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, ToolPictures, bothPaths, pathName);

TEST_P(ToolPictures, ThePlaneIsATranslucentGridWithHandles)
{
    addPlane(80, 60);
    QImage const image = picture("plane");
    QColor const ground = colorAt(image, {55, 0, 0});
    // Cells of 13.3 by 12 mm.
    QColor const cell = colorAt(image, {7, 0, 18});
    QColor const handle = colorAt(image, {0, 0, 0});
    EXPECT_LT(qGray(cell.rgb()), qGray(ground.rgb()) - 10);
    EXPECT_GT(cell.blue(), cell.red() + 5);
    EXPECT_LT(qGray(handle.rgb()), qGray(cell.rgb()) - 40);
    for (Point const& key : {Point(-40, 0, -30), Point(40, 0, -30), Point(0, 0, 30)})
        EXPECT_LT(qGray(colorAt(image, key).rgb()), 110);
    EXPECT_EQ(error(), GLenum(GL_NO_ERROR));
}

TEST_P(ToolPictures, ThePlaneShowsThePartsBehindIt)
{
    Mesh::DocumentObject* const part = test.add(box(40, 10, 30), "box");
    part->translate({-20, 5, -15}, 0);
    QColor const bare = colorAt(picture("plane-none"), {7, 0, 7});
    addPlane(80, 60);
    QColor const covered = colorAt(picture("plane-before-box"), {7, 0, 7});
    EXPECT_LT(qGray(covered.rgb()), qGray(bare.rgb()));
    part->translate({0, -30, 0}, 0);
    EXPECT_EQ(colorAt(picture("plane-behind-box"), {7, 0, 7}), bare);
}

TEST_P(ToolPictures, ThePlaneFollowsItsRecord)
{
    Freecut::PlaneGraphicObject* const plane = addPlane(80, 60);
    QImage const before = picture("plane-large");
    plane->getProperty().setCorners({-5, 0, -5}, {5, 0, -5}, {5, 0, 5}, true);
    plane->getViewProvider()->updateGeometry();
    view->redraw();
    QImage const after = picture("plane-small");
    // The background is the same along a row.
    EXPECT_EQ(colorAt(after, {20, 0, 18}), colorAt(after, {55, 0, 18}));
    EXPECT_NE(colorAt(before, {20, 0, 18}), colorAt(before, {55, 0, 18}));
    test.document->removeObject(plane);
    EXPECT_EQ(colorAt(picture("plane-gone"), {0, 0, 0}), colorAt(after, {55, 0, 0}));
}

TEST_P(ToolPictures, HandlesAreTwelvePixelsWideAtAnyZoom)
{
    int const ratio = int(view->devicePixelRatioF());
    Shown<Freecut::RubberRect> rect(*view);
    rect.item.setColor(52, 52, 52, 204);
    for (double const zoom : {1.0, 0.3, 8.0}) {
        view->getCamera()->zoom(zoom);
        view->redraw();
        QImage const image = picture("marker");
        QColor const ground = image.pixelColor(image.width() * 7 / 8, image.height() / 2);
        EXPECT_NEAR(darkRun(image, {0, 0, 0}, ground), 12 * ratio, 2);
    }
    EXPECT_EQ(error(), GLenum(GL_NO_ERROR));
}

TEST_P(ToolPictures, AMarkWithoutAlphaShowsItsOutlineOnly)
{
    Shown<Freecut::RubberRect> rect(*view);
    QImage const image = picture("marker-outline");
    QPoint const middle = positionOf({0, 0, 0}) * int(view->devicePixelRatioF());
    EXPECT_EQ(image.pixelColor(middle), colorAt(image, {40, 0, 0}));
    int red = 0;
    for (int x = middle.x() - 20; x < middle.x() + 20; ++x)
        red += isReddish(image.pixelColor(x, middle.y()));
    EXPECT_GE(red, 2);
}

TEST_P(ToolPictures, LinesLieOverTheParts)
{
    test.add(box(40, 10, 30), "box")->translate({-20, -20, -15}, 0);
    Shown<Freecut::RubberLine> line(*view);
    line.item.setColor(255, 0, 0, 255);
    line.item.setParameter({{-30, 0, -20}, {0, 0, 0}, {30, 0, -20}});
    QImage const image = picture("line");
    auto const isRed = [&](Point const& point) {
        QPoint const place = positionOf(point) * int(view->devicePixelRatioF());
        for (int y = place.y() - 2; y <= place.y() + 2; ++y)
            if (isReddish(image.pixelColor(place.x(), y)))
                return true;
        return false;
    };
    EXPECT_TRUE(isRed({-15, 0, -10}));
    EXPECT_TRUE(isRed({15, 0, -10}));
    EXPECT_FALSE(isRed({0, 0, -20}));
    line.item.setWorking(false);
    view->redraw();
    EXPECT_NE(picture("line-off"), image);
}

// OpenGL draws lines by pixels of the device, of which a pixel of the window holds four at ratio 2.
TEST_P(ToolPictures, LinesAreAPixelOfTheWindowWideAtAnyRatio)
{
    Shown<Freecut::RubberLine> line(*view);
    line.item.setColor(255, 0, 0, 255);
    line.item.setParameter({{-30, 0, 0}, {30, 0, 0}});
    QImage const image = picture("line-width");
    int const ratio = qRound(view->devicePixelRatioF());
    QPoint const middle = positionOf({0, 0, 0}) * ratio;
    int red = 0;
    for (int y = middle.y() - 6 * ratio; y <= middle.y() + 6 * ratio; ++y)
        red += isReddish(image.pixelColor(middle.x(), y));
    // Smoothing may touch one pixel more.
    EXPECT_GE(red, ratio);
    EXPECT_LE(red, ratio + 1);
}

TEST_P(ToolPictures, ContoursAreFaintBehindPartsAndPlainInFrontOfThem)
{
    test.add(box(40, 10, 30), "box")->translate({-20, -20, -15}, 0);
    Shown<Freecut::ContourItem> contours(*view);
    // One line behind the box, one before it, both wider than it is.
    ContourLines const lines = {{Point(-35, 0, 5), Point(35, 0, 5)},
                                {Point(-35, -30, -5), Point(35, -30, -5)}};
    contours.item.setLines(lines, {0, 0, 7});
    QImage const image = picture("contours");
    auto const greenAt = [&](Point const& point) {
        QPoint const place = positionOf(point) * int(view->devicePixelRatioF());
        int most = -255;
        for (int y = place.y() - 2; y <= place.y() + 2; ++y) {
            QColor const color = image.pixelColor(place.x(), y);
            most = std::max(most, color.green() - color.red());
        }
        return most;
    };
    int const nothing = greenAt({0, 0, 0}), hidden = greenAt({0, 0, 5});
    EXPECT_GT(hidden, nothing + 20);
    for (Point const& point : {Point(30, 0, 5), Point(30, -30, -5), Point(0, -30, -5)})
        EXPECT_GT(greenAt(point), hidden + 20);
    EXPECT_EQ(error(), GLenum(GL_NO_ERROR));
    contours.item.setLines({}, {0, 0, 7});
    EXPECT_FALSE(contours.item.isWorking());
    view->redraw();
    QImage const empty = picture("contours-off");
    EXPECT_NE(empty, image);
    // Along the tool they would cover its outline.
    contours.item.setLines(lines, {0, 7, 0});
    view->redraw();
    EXPECT_EQ(picture("contours-off"), empty);
}

TEST_P(ToolPictures, ALineOfOnePointOrNoneDrawsNothing)
{
    QImage const empty = picture("no-line");
    Shown<Freecut::RubberLine> line(*view);
    EXPECT_EQ(picture("no-line"), empty);
    line.item.setParameter({{0, 0, 0}});
    view->redraw();
    EXPECT_EQ(picture("no-line"), empty);
    EXPECT_EQ(error(), GLenum(GL_NO_ERROR));
}

TEST_P(ToolPictures, OnlyAMarkDrawnBy21LeavesTheDepthTestOff)
{
    Shown<Freecut::RubberRect> rect(*view);
    Shown<Freecut::RubberLine> line(*view);
    line.item.setParameter({{0, 0, 0}, {9, 0, 9}});
    static_cast<void>(picture("depth-test"));
    QOpenGLFunctions& gl = *view->context()->functions();
    view->makeCurrent();
    gl.glEnable(GL_DEPTH_TEST);
    line.item.paintGL();
    EXPECT_TRUE(gl.glIsEnabled(GL_DEPTH_TEST));
    rect.item.paintGL();
    EXPECT_EQ(gl.glIsEnabled(GL_DEPTH_TEST), g_OPENGL_3_3);
    EXPECT_FALSE(gl.glIsEnabled(GL_BLEND));
    view->doneCurrent();
}

TEST_P(ToolPictures, BothVersionsDrawTheSame)
{
    auto const draw = [&](Base::OpenGLPath path) {
        show(path);
        lookFromTheFront();
        Shown<Freecut::RubberRect> rect(*view);
        rect.item.setColor(52, 52, 52, 204);
        rect.item.setParameter({20, 0, 7});
        Shown<Freecut::RubberLine> line(*view);
        line.item.setParameter({{-30, 0, -20}, {0, 0, 5}, {30, 0, -20}});
        Shown<Freecut::ContourItem> contours(*view);
        contours.item.setLines({{Point(-30, -5, 12), Point(30, 5, 14)}}, {1, 0, 0});
        view->redraw();
        return picture("plane-marker-line");
    };
    if (GetParam() == Base::OpenGLPath::Version33)
        GTEST_SKIP() << "One comparison is enough.";
    addPlane(80, 60);
    QImage const by21 = draw(Base::OpenGLPath::Version21);
    QImage const by33 = draw(Base::OpenGLPath::Version33);
    Difference const difference(by21, by33);
    EXPECT_LT(difference.mean, 0.5);
    EXPECT_LT(difference.shareApart, 0.01);
}

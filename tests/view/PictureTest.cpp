// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MeshViewProvider.h"
#include "tests/support/MadeModels.h"
#include "tests/support/ShownView.h"
#include "tests/support/SkipReasons.h"
#include "tests/view/PictureDifference.h"

#include <QLabel>
#include <QOpenGLContext>
#include <QScreen>
#include <QVBoxLayout>

#include <cmath>

// What is to be seen, as the pixels tell it.
namespace {

using Point = UPoint3<float>;

bool isReddish(QColor const& color)
{
    return color.red() > color.blue() + 40;
}

class Pictures : public ShownView
{
protected:
    Mesh::ViewProvider* providerOf(Base::DocumentObject const* object) const
    {
        return dynamic_cast<Mesh::ViewProvider*>(test.document->getViewProvider(object));
    }

    double pixelsPerMm() const
    {
        double width = 0, height = 0;
        view->getCamera()->get_view_rect(width, height);
        return view->height() / height;
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, Pictures, bothPaths, pathName);

TEST_P(Pictures, AreDrawnByTheVersionAskedFor)
{
    QSurfaceFormat const format = view->context()->format();
    bool const isCore = format.profile() == QSurfaceFormat::CoreProfile;
    EXPECT_EQ(isCore, GetParam() == Base::OpenGLPath::Version33);
    EXPECT_EQ(view->context()->functions()->glGetError(), GLenum(GL_NO_ERROR));
}

TEST_P(Pictures, ShowPartsAndTheirSelection)
{
    Mesh::DocumentObject* const part = test.add(box(40, 30, 20), "box");
    view->OnViewType(6);
    view->fitAll();
    QImage const plain = picture("box");
    QColor const top = colorAt(plain, {20, 15, 20});
    QColor const front = colorAt(plain, {20, 0, 10});
    QColor const side = colorAt(plain, {40, 15, 10});
    // One light: every face has another brightness.
    EXPECT_GT(top.lightness(), side.lightness() + 5);
    EXPECT_GT(side.lightness(), front.lightness() + 5);
    EXPECT_FALSE(isReddish(top));
    part->setSelected(true, true, true);
    EXPECT_TRUE(isReddish(colorAt(picture("box-selected"), {20, 15, 20})));
    part->setSelected(false, true, false);
    part->setColor(20, 20, 200, 255);
    EXPECT_GT(colorAt(picture("box-coloured"), {20, 15, 20}).blue(), top.blue() / 2);
    EXPECT_LT(colorAt(picture("box-coloured"), {20, 15, 20}).red(), top.red() / 2);
    part->setVisible(false);
    EXPECT_NE(colorAt(picture("box-hidden"), {20, 15, 20}), top);
    EXPECT_EQ(view->context()->functions()->glGetError(), GLenum(GL_NO_ERROR));
}

TEST_P(Pictures, ShowBackFacesInAnotherColour)
{
    Mesh::DocumentObject* const part = test.add(openBox(40, 30, 20), "open");
    view->OnViewType(2);
    view->fitAll();
    QColor const inside = colorAt(picture("open-box-above"), {20, 15, 0});
    view->OnViewType(3);
    QColor const outside = colorAt(picture("open-box-below"), {20, 15, 0});
    EXPECT_TRUE(isReddish(inside));
    EXPECT_FALSE(isReddish(outside));
    Soup turned = openBox(40, 30, 20);
    turned.flip();
    part->meshProperty->setMesh(kernelOf(turned).release(), true);
    EXPECT_TRUE(isReddish(colorAt(picture("open-box-turned"), {20, 15, 0})));
    // A reflected part still faces outward.
    part->mirror({20, 15, 0}, {1, 0, 0});
    EXPECT_TRUE(isReddish(colorAt(picture("open-box-mirrored"), {20, 15, 0})));
}

TEST_P(Pictures, ShowNothingOfTheBackOfAClosedPart)
{
    view->setPlateVisible(false);
    for (NamedSoup const& named : closedMeshes()) {
        if (named.name.find("crossing") != std::string::npos || named.soup.triangles.empty())
            continue;
        Mesh::DocumentObject* const part = test.add(named.soup, named.name);
        view->OnViewType(6);
        view->fitAll();
        for (int const mode : {0, 1}) {
            test.document->getViewProvider(part)->setRenderMode(mode);
            QImage const image = picture("closed-" + named.name + "-" + std::to_string(mode));
            int reddish = 0;
            // The axes stand in the lower left corner.
            for (int y = 0; y < image.height() * 2 / 3; ++y)
                for (int x = 0; x < image.width(); ++x)
                    reddish += isReddish(image.pixelColor(x, y));
            EXPECT_EQ(reddish, 0) << named.name << ", mode " << mode;
        }
        test.document->removeObject(part);
    }
}

TEST_P(Pictures, ShowThePickedPointWithItsCoordinatesBesideIt)
{
    test.add(box(40, 30, 20), "box");
    view->OnViewType(6);
    view->fitAll();
    view->startSelection("Mesh::PointPickerMesh");
    QPoint const position = positionOf({5, 15, 20});
    click(*view, position);
    settle();
    auto const* const label = view->findChild<QLabel*>("PickedPoint");
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(label->pos(), position + QPoint(10, 10));
    QImage const image = picture("picked-point");
    EXPECT_TRUE(
        isReddish(image.pixelColor((position + QPoint(3, 0)) * int(view->devicePixelRatioF()))));
    // The mark stays on its point, and the text in the view.
    drag(*view, {100, 100}, {110, 120}, Qt::MiddleButton);
    settle();
    EXPECT_EQ(label->pos(), position + QPoint(10, 20) + QPoint(10, 10));
    drag(*view, {100, 100}, {300, 100}, Qt::MiddleButton);
    settle();
    EXPECT_TRUE(view->rect().contains(label->geometry()));
    EXPECT_LT(label->geometry().right(), position.x() + 210);
}

TEST_P(Pictures, ReachTheScreenAsTheyWerePainted)
{
    test.add(box(40, 30, 20), "box");
    view->OnViewType(6);
    view->fitAll();
    view->startSelection("Mesh::PointPickerMesh");
    settle();
    QImage const painted = picture("screen-painted");
    QImage screen =
        view->screen()->grabWindow(view->winId()).toImage().convertToFormat(QImage::Format_RGB32);
    screen.save(MELL_BINARY_DIR "/../pictures/screen.png");
    ASSERT_EQ(screen.size(), painted.size());
    EXPECT_LT(Difference(screen, painted).mean, 0.1);
    // Nothing of what was blended shines through.
    EXPECT_EQ(view->grabFramebuffer().pixelColor(5, 5).alpha(), 255);
    EXPECT_LT(
        Difference(view->grab().toImage().convertToFormat(QImage::Format_RGB32), painted).mean,
        0.1);
}

TEST_P(Pictures, ShowEdgesOverPartsAndAlone)
{
    Mesh::DocumentObject* const part = test.add(box(40, 40, 20), "box");
    view->setPlateVisible(false);
    view->OnViewType(2);
    view->fitAll();
    QImage const plain = picture("render-shaded");
    // In the middle of the box's diagonal, and beside it.
    Point const onEdge(20, 20, 20), onFace(30, 12, 20);
    test.document->getViewProvider(part)->setRenderMode(Base::ViewProvider::ShadedWithEdges);
    QImage const edged = picture("render-edges");
    auto const darkest = [&](QImage const& image, Point const& world) {
        int least = 255;
        for (int dx = -2; dx <= 2; ++dx)
            for (int dy = -2; dy <= 2; ++dy)
                least = std::min(
                    least, qGray(image.pixel(positionOf(world) * int(view->devicePixelRatioF()) +
                                             QPoint(dx, dy))));
        return least;
    };
    EXPECT_LT(darkest(edged, onEdge), darkest(plain, onEdge) - 30);
    EXPECT_EQ(colorAt(edged, onFace), colorAt(plain, onFace));
    test.document->getViewProvider(part)->setRenderMode(Base::ViewProvider::Edges);
    EXPECT_NE(colorAt(picture("render-wires"), onFace), colorAt(plain, onFace));
}

TEST_P(Pictures, ShowGhostsThroughWhichOthersAreSeen)
{
    Mesh::DocumentObject* const inner = test.add(box(10, 10, 10, {10, 10, 5}), "inner");
    inner->setColor(0, 160, 0, 255);
    Mesh::DocumentObject* const outer = test.add(box(30, 30, 20), "outer");
    view->OnViewType(2);
    view->fitAll();
    QColor const hidden = colorAt(picture("ghost-before"), {15, 15, 20});
    outer->setVisible(false);
    outer->setSemiVisible(true);
    QColor const seen = colorAt(picture("ghost"), {15, 15, 20});
    EXPECT_GT(seen.green(), seen.red() + 30);
    EXPECT_LT(std::abs(hidden.green() - hidden.red()), 30);
}

TEST_P(Pictures, FollowAPartThatIsMovedAndOneThatGetsAnotherMesh)
{
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "box");
    view->OnViewType(2);
    view->getCamera()->set_view_height(100);
    QColor const before = colorAt(picture("moved-before"), {5, 5, 10});
    part->translate({-30, 0, 0}, 0);
    QImage const after = picture("moved-after");
    EXPECT_EQ(colorAt(after, {-25, 5, 10}), before);
    EXPECT_NE(colorAt(after, {5, 5, 10}), before);
    part->meshProperty->setMesh(kernelOf(box(10, 10, 10)).release(), true);
    EXPECT_EQ(colorAt(picture("moved-replaced"), {5, 5, 10}), before);
}

TEST_P(Pictures, ShowThePlateWithALinePerMillimetreWhereThereIsRoom)
{
    view->OnViewType(2);
    view->getCamera()->set_view_height(300);
    QImage const far = picture("plate");
    QColor const beside = colorAt(far, {140, 33, 0});
    EXPECT_NE(colorAt(far, {33, 33, 0}), beside);
    view->getCamera()->set_view_height(20);
    QImage const near = picture("plate-near");
    // Along a millimetre beside the lines across: one line, and clear spaces.
    int least = 255, most = 0;
    double const step = 1 / pixelsPerMm() / view->devicePixelRatioF();
    for (double x = 2.5; x < 3.5; x += step) {
        int const level = qGray(colorAt(near, {float(x), 2.5f, 0}).rgb());
        least = std::min(least, level);
        most = std::max(most, level);
    }
    EXPECT_GT(most - least, 10);
    view->setPlateVisible(false);
    // The background is the same along a row.
    QImage const bare = picture("no-plate");
    int const row = positionOf({3, 3, 0}).y() * int(view->devicePixelRatioF());
    EXPECT_EQ(colorAt(bare, {3, 3, 0}), bare.pixelColor(2, row));
}

TEST_P(Pictures, TakeAtMostFortyBytesPerTriangleOnTheDevice)
{
    Mesh::DocumentObject* const part = test.add(sphere(20, 100, 200), "sphere");
    view->fitAll();
    picture("sphere");
    std::size_t const triangles = part->meshProperty->getMesh()->readMesh()->triangles.size();
    ASSERT_NE(providerOf(part)->deviceBytes(), 0u);
    EXPECT_LE(providerOf(part)->deviceBytes(), 40 * triangles);
}

TEST_P(Pictures, AreNotDrawnUnlessSomethingHasChanged)
{
    Mesh::DocumentObject* const part = test.add(box(10, 10, 10), "box");
    view->fitAll();
    settle();
    PictureCount pictures(*view);
    settle();
    EXPECT_EQ(pictures.count, 0);
    auto const picturesFor = [&](auto const& change) {
        pictures.count = 0;
        change();
        settle();
        return pictures.count;
    };
    EXPECT_EQ(picturesFor([&] { part->setColor(1, 2, 3, 255); }), 1);
    EXPECT_EQ(picturesFor([&] { part->setSelected(true, true, true); }), 1);
    EXPECT_EQ(picturesFor([&] { part->translate({1, 0, 0}, 0); }), 1);
    EXPECT_EQ(picturesFor([&] { part->setVisible(false); }), 1);
    EXPECT_EQ(picturesFor([&] { turnWheel(*view, {50, 50}, 1); }), 1);
    EXPECT_EQ(picturesFor([&] { move(*view, {60, 60}); }), 0);
    EXPECT_EQ(picturesFor([&] { test.add(box(1, 1, 1), "other"); }), 1);
    EXPECT_EQ(picturesFor([&] {
                  view->redraw();
                  view->redraw();
              }),
              1);
}

TEST_P(Pictures, SurviveAMoveToAnotherWindow)
{
    test.add(box(40, 30, 20), "box");
    view->OnViewType(6);
    view->fitAll();
    QImage const before = picture("window-first");
    QWidget window;
    window.resize(view->size());
    QVBoxLayout layout(&window);
    layout.setContentsMargins(0, 0, 0, 0);
    layout.addWidget(view.get());
    window.show();
    ASSERT_TRUE(waitUntil([&] { return window.windowHandle()->isExposed(); }));
    settle();
    EXPECT_LT(Difference(before, picture("window-second")).mean, 0.1);
    view->setParent(nullptr);
}

TEST_P(Pictures, OfAModel)
{
    test.add(branchedFigure(), "part");
    view->resize(800, 600);
    settle();
    view->OnViewType(6);
    view->fitAll();
    QImage const image = picture("model");
    EXPECT_NE(image.pixelColor(image.rect().center()), image.pixelColor(2, 2));
    view->setProjection(GLCamera::Projection::Perspective);
    view->fitAll();
    EXPECT_GT(Difference(image, picture("model-perspective")).mean, 0.5);
}

/// The same scene in both versions.
class VersionsOfOpenGL : public Pictures
{
protected:
    void SetUp() override
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
    }

    QImage drawn(Base::OpenGLPath path, char const* name, int mode)
    {
        show(path);
        view->OnViewType(6);
        view->fitAll();
        for (Base::DocumentObject const* const object : test.document->getObjectArray())
            test.document->getViewProvider(object)->setRenderMode(mode);
        return picture(name);
    }
};

INSTANTIATE_TEST_SUITE_P(Path, VersionsOfOpenGL, testing::Values(Base::OpenGLPath::Automatic));

TEST_P(VersionsOfOpenGL, DrawTheSame)
{
    test.add(branchedFigure(), "part")->setSelected(true, false, false);
    test.add(openBox(1, 1, 1), "open");
    for (int const mode : {0, 1, 2}) {
        std::string const name = "both-" + std::to_string(mode);
        QImage const a = drawn(Base::OpenGLPath::Version21, name.c_str(), mode);
        QImage const b = drawn(Base::OpenGLPath::Version33, name.c_str(), mode);
        ASSERT_EQ(a.size(), b.size());
        Difference const difference(a, b);
        EXPECT_LT(difference.mean, 0.3) << mode;
        EXPECT_LT(difference.shareApart, 0.005) << mode;
    }
}

TEST_P(VersionsOfOpenGL, TheBestIsTakenUnlessToldOtherwise)
{
    Base::setOpenGLPath(Base::OpenGLPath::Automatic);
    qputenv("ORBE_OPENGL", "2.1");
    view = std::make_unique<Mesh::GLView>();
    view->show();
    EXPECT_FALSE(g_OPENGL_3_3);
    qunsetenv("ORBE_OPENGL");
    view = std::make_unique<Mesh::GLView>();
    view->show();
    EXPECT_TRUE(g_OPENGL_3_3);
}

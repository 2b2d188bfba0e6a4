// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MeshViewProvider.h"
#include "host/view/StandInShape.h"
#include "host/view/ViewScene.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/GLGraphicsItem.h"
#include "platform/view/ViewProvider.h"
#include "tests/support/MadeModels.h"
#include "tests/support/ShownView.h"
#include "tests/view/PictureDifference.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <functional>

// Pictures while the mouse moves, and those when it rests.
namespace {

/// Pixels of a picture, row by row.
using Silhouette = std::vector<bool>;

/// Which pixels show something else than the empty picture.
Silhouette silhouette(QImage const& image, QImage const& empty)
{
    Silhouette result;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            result.push_back(image.pixel(x, y) != empty.pixel(x, y));
    return result;
}

/// How many pixels of one silhouette lie farther from the other than `reach` pixels.
int beyond(Silhouette const& a, Silhouette const& b, QSize size, int reach)
{
    int count = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            auto const at = [&](auto const& mask, int u, int v) {
                return mask[std::size_t(v) * std::size_t(size.width()) + std::size_t(u)];
            };
            bool isNear = !at(a, x, y);
            for (int v = std::max(0, y - reach);
                 !isNear && v <= std::min(size.height() - 1, y + reach); ++v)
                for (int u = std::max(0, x - reach);
                     !isNear && u <= std::min(size.width() - 1, x + reach); ++u)
                    isNear = at(b, u, v);
            count += !isNear;
        }
    return count;
}

/// Tells how many samples a pixel has in the picture that is painted.
class SampleCount : public Base::GLGraphicsItem
{
public:
    void paintGL() override
    {
        QOpenGLContext::currentContext()->functions()->glGetIntegerv(GL_SAMPLES, &count);
    }
    void initGL() override {}

    GLint count = -1;
};

class StandInPictures : public ShownView
{
protected:
    ~StandInPictures() override { ThemeSwitch::setTheme(ThemeSwitch::Choice::Light); }

    void SetUp() override
    {
        ShownView::SetUp();
        if (!view)
            return;
        view->resize(900, 700);
        settle();
        standIns().setUse(StandIns::Use::Never);
    }

    StandIns& standIns() const { return view->scene().standIns(); }

    /// A part with sharp edges, bends and holes, of a quarter of a million triangles.
    Mesh::DocumentObject* addPart()
    {
        Soup soup = torus(30, 8, 500, 250);
        for (auto& p : soup.points)
            p[2] += 0.4f * std::sin(p[0]) * std::cos(1.3f * p[1]);
        Mesh::DocumentObject* const part = test.add(soup, "part");
        lookAtIt();
        return part;
    }
    void lookAtIt()
    {
        view->OnViewType(6);
        view->fitAll();
        settle();
        makeShapes();
    }
    /// Waits for what other threads make.
    void makeShapes()
    {
        view->grabFramebuffer();
        view->scene().preparer().finish();
        view->grabFramebuffer();
    }
    void makeStandIns()
    {
        standIns().setUse(StandIns::Use::Always);
        view->grabFramebuffer();
        ASSERT_TRUE(waitUntil([&] { return !standIns().isWorking(); }));
    }

    /// Out of the view in the end: where exact pictures are fast, it lights the part under it.
    void moveMouse()
    {
        ::move(*view, {5, 5});
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(view.get(), &leave);
    }
    QImage whileMoving()
    {
        moveMouse();
        return view->grabFramebuffer();
    }
    QImage atRest()
    {
        standIns().rest();
        return view->grabFramebuffer();
    }
    QImage exact()
    {
        standIns().setUse(StandIns::Use::Never);
        QImage const image = view->grabFramebuffer();
        standIns().setUse(StandIns::Use::Always);
        return image;
    }
    /// Where the part shows in an exact picture and in one while the mouse moves.
    std::pair<Silhouette, Silhouette> silhouettes(QImage const& expected, QImage const& moving)
    {
        showParts(false);
        // The first picture without parts still counts what was in the one before.
        QImage const movingGround = whileMoving(), ground = exact();
        showParts(true);
        return {silhouette(expected, ground), silhouette(moving, movingGround)};
    }
    void showParts(bool isShown)
    {
        for (Mesh::DocumentObject* const part : test.document->getMeshObjects())
            part->setVisible(isShown);
    }
    void setMode(int mode)
    {
        for (Mesh::DocumentObject const* const part : test.document->getMeshObjects())
            test.document->getViewProvider(part)->setRenderMode(mode);
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, StandInPictures, bothPaths, pathName);

TEST_P(StandInPictures, AreExactToTheByteWhenTheMouseRests)
{
    Mesh::DocumentObject* const part = addPart();
    makeStandIns();
    std::pair<char const*, std::function<void()>> const changes[] = {
        {"plain", [] {}},
        {"dark", [] { ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark); }},
        {"edges", [&] { setMode(Base::ViewProvider::ShadedWithEdges); }},
        {"edges alone", [&] { setMode(Base::ViewProvider::Edges); }},
        {"shaded",
         [&] {
             setMode(Base::ViewProvider::Shaded);
             ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
         }},
        {"height", [&] { view->setSectionHeight(1.7f); }},
        {"plane",
         [&] {
             view->setSectionPlane(SectionPlane{{0, 0, 0}, {1, 2, 3}});
         }},
        {"cut",
         [&] {
             view->setLiveCut(LiveCut{{0, 0, 2}, {0, 0, 1}, true});
         }},
        {"cut without caps",
         [&] {
             view->setLiveCut(LiveCut{{0, 0, 2}, {0, 0.6f, 0.8f}, false});
         }},
        {"selected", [&] { part->setSelected(true, true, true); }},
        {"perspective", [&] { view->setProjection(GLCamera::Projection::Perspective); }},
        {"ghost",
         [&] {
             view->setLiveCut({});
             test.document->getViewProvider(part)->setObjectColor(0x80a0c060);
         }},
    };
    for (auto const& [name, change] : changes) {
        change();
        QImage const expected = exact();
        EXPECT_NE(whileMoving(), expected) << name;
        EXPECT_EQ(atRest(), expected) << name;
        EXPECT_EQ(view->grabFramebuffer(), expected) << name;
    }
}

TEST_P(StandInPictures, StayCloseToTheExactOnesWhileTheMouseMoves)
{
    view->setPlateVisible(false);
    addPart();
    makeStandIns();
    for (double const nearer : {1.0, 0.35, 0.1}) {
        view->fitAll();
        view->getCamera()->set_ref(20, -22, 8, true);
        view->getCamera()->zoom(nearer);
        QImage const expected = exact(), moving = whileMoving();
        auto const [a, b] = silhouettes(expected, moving);
        ASSERT_GT(std::count(a.begin(), a.end(), true), 50000) << nearer;
        EXPECT_EQ(beyond(a, b, expected.size(), 2), 0) << nearer;
        EXPECT_EQ(beyond(b, a, expected.size(), 2), 0) << nearer;
        EXPECT_LT(Difference(expected, moving).mean, 2.5) << nearer;
        standIns().rest();
    }
    // So near that few triangles are in sight, these are drawn themselves.
    view->getCamera()->zoom(0.3);
    QRect const middle(200, 200, 500, 300);
    QImage const moving = whileMoving().copy(middle), expected = exact().copy(middle);
    EXPECT_LT(Difference(expected, moving).shareApart, 0.001);
}

TEST_P(StandInPictures, OfScannedAndMechanicalPartsStayClose)
{
    view->setPlateVisible(false);
    view->OnViewType(6);
    std::vector<NamedSoup> models = withReal({"head", scannedHead(60)}, "igea-269k.stl");
    for (NamedSoup& model : withReal({"flange", turnedFlange()}, "fandisk-13k.stl"))
        models.push_back(std::move(model));
    for (auto& [name, soup] : models) {
        while (soup.triangles.size() < 200000)
            soup = subdivided(soup);
        Mesh::DocumentObject* const part = test.add(soup, name);
        lookAtIt();
        makeStandIns();
        QImage const expected = exact(), moving = whileMoving();
        EXPECT_NE(expected, moving) << name;
        auto const [a, b] = silhouettes(expected, moving);
        EXPECT_EQ(beyond(a, b, expected.size(), 3), 0) << name;
        EXPECT_EQ(beyond(b, a, expected.size(), 3), 0) << name;
        EXPECT_LT(Difference(expected, moving).mean, 3) << name;
        expected.save(QString::fromStdString(picturePath("stand-in-exact-" + name + ".png")));
        moving.save(QString::fromStdString(picturePath("stand-in-moving-" + name + ".png")));
        standIns().rest();
        test.document->removeObject(part);
    }
}

TEST_P(StandInPictures, OfSmallPartsAreAlwaysExact)
{
    test.add(torus(30, 8, 300, 200), "small");
    lookAtIt();
    makeStandIns();
    QImage const expected = exact();
    EXPECT_EQ(whileMoving(), expected);
    EXPECT_FALSE(standIns().isWorking());
}

TEST_P(StandInPictures, LeaveEdgesOutWhileTheMouseMoves)
{
    addPart();
    makeStandIns();
    QImage const plain = whileMoving();
    setMode(Base::ViewProvider::ShadedWithEdges);
    EXPECT_EQ(whileMoving(), plain);
    standIns().rest();
}

TEST_P(StandInPictures, ChangeNothingAboutWhatIsPicked)
{
    Mesh::DocumentObject* const part = addPart();
    makeStandIns();
    std::vector<QPoint> places;
    for (int x = 100; x < 800; x += 70)
        for (int y = 100; y < 600; y += 50)
            places.emplace_back(x, y);
    std::vector<Mesh::GLView::Pick> expected(places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        view->pickPoint(places[i], expected[i]);
    whileMoving();
    int hits = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        Mesh::GLView::Pick pick;
        view->pickPoint(places[i], pick);
        EXPECT_EQ(pick.part, expected[i].part);
        EXPECT_EQ(pick.triangle, expected[i].triangle);
        EXPECT_EQ(pick.point, expected[i].point);
        hits += pick.part == part;
    }
    EXPECT_GT(hits, 20);
}

TEST_P(StandInPictures, AreFollowedByOneExactPicture)
{
    addPart();
    makeStandIns();
    QImage const expected = atRest();
    settle();
    PictureCount pictures(*view);
    moveMouse();
    view->redraw();
    // One while the mouse moves, one with which the exact one is begun when it rests, and that one.
    ASSERT_TRUE(waitUntil([&] { return pictures.count >= 3; }));
    settle();
    EXPECT_EQ(pictures.count, 3);
    EXPECT_EQ(view->grabFramebuffer(), expected);
    // So is one that nobody has moved the mouse for, as soon as the exact one is drawn.
    pictures.count = 0;
    view->setSectionHeight(2.0f);
    ASSERT_TRUE(waitUntil([&] { return pictures.count >= 2; }));
    settle();
    EXPECT_EQ(pictures.count, 2);
}

TEST_P(StandInPictures, OfTheTurningViewFollowTheMouse)
{
    view->setPlateVisible(false);
    addPart();
    makeStandIns();
    PictureCount pictures(*view);
    ::press(*view, {300, 300}, Qt::RightButton);
    for (int i = 1; i <= 4; ++i) {
        ::move(*view, {300 + 30 * i, 300}, Qt::RightButton);
        int const before = pictures.count;
        ASSERT_TRUE(waitUntil([&] { return pictures.count > before; }));
        QImage const shown = view->grabFramebuffer();
        EXPECT_LT(Difference(shown, exact()).mean, 3);
    }
    ::release(*view, {420, 300}, Qt::RightButton);
    atRest();
}

TEST_P(StandInPictures, AreSharedByCopiesAndDroppedWithThePart)
{
    Mesh::DocumentObject* const part = addPart();
    makeStandIns();
    auto const shapeOf = [&](Mesh::DocumentObject const* object) {
        return dynamic_cast<Mesh::ViewProvider*>(test.document->getViewProvider(object))->shape();
    };
    std::weak_ptr<PartShape const> const shape = shapeOf(part);
    ASSERT_TRUE(shape.lock()->standIn);
    EXPECT_LE(shape.lock()->standIn->bytes(), 26 * shape.lock()->triangles());
    auto* const copy = static_cast<Mesh::DocumentObject*>(part->shallowCopy());
    test.document->addObject(copy, "copy", true);
    view->grabFramebuffer();
    EXPECT_EQ(shapeOf(copy), shape.lock());
    EXPECT_FALSE(standIns().isWorking());
    test.document->removeObject(part);
    view->grabFramebuffer();
    EXPECT_FALSE(shape.expired());
    test.document->removeObject(copy);
    view->grabFramebuffer();
    EXPECT_TRUE(shape.expired());
}

TEST_P(StandInPictures, AreNotThoseOfAFormerMesh)
{
    view->setPlateVisible(false);
    Mesh::DocumentObject* const part = addPart();
    makeStandIns();
    part->meshProperty->setMesh(kernelOf(sphere(20, 400, 400)).release(), true);
    test.document->getViewProvider(part)->updateRenderData();
    makeShapes();
    QImage const expected = exact();
    EXPECT_LT(Difference(whileMoving(), expected).mean, 3);
    ASSERT_TRUE(waitUntil([&] { return !standIns().isWorking(); }));
    QImage const moving = whileMoving();
    EXPECT_NE(moving, expected);
    EXPECT_LT(Difference(moving, expected).mean, 3);
    standIns().rest();
}

TEST_P(StandInPictures, AreGivenUpWithTheViewAtAnyTime)
{
    addPart();
    standIns().setUse(StandIns::Use::Always);
    view->grabFramebuffer();
    EXPECT_TRUE(standIns().isWorking());
    // While the stand-in is made, and then while it is brought to the device.
    show(GetParam());
    addPart();
    standIns().setUse(StandIns::Use::Always);
    view->grabFramebuffer();
    test.document->removeObject(test.document->getMeshObjects()[0]);
    ASSERT_TRUE(waitUntil([&] { return !standIns().isWorking(); }));
    view->grabFramebuffer();
}

TEST_P(StandInPictures, HaveOneSampleForEachPixel)
{
    addPart();
    makeStandIns();
    SampleCount samples;
    view->addGraphicsItem(&samples);
    atRest();
    EXPECT_EQ(samples.count, 4);
    whileMoving();
    EXPECT_EQ(samples.count, 0);
    // The buffer of the samples follows the view's size.
    view->resize(640, 480);
    settle();
    EXPECT_EQ(atRest().size(), QSize(640, 480) * view->devicePixelRatioF());
    EXPECT_EQ(samples.count, 4);
    view->removeGraphicsItem(&samples);
}

TEST_P(StandInPictures, AreDrawnWhileOtherPartsAreOnTheirWay)
{
    addPart();
    makeStandIns();
    SampleCount samples;
    view->addGraphicsItem(&samples);
    test.add(sphere(20, 400, 400), "coming");
    atRest();
    EXPECT_TRUE(view->scene().isPreparing());
    EXPECT_EQ(samples.count, 0);
    makeShapes();
    EXPECT_FALSE(view->scene().isPreparing());
    EXPECT_EQ(samples.count, 4);
    view->removeGraphicsItem(&samples);
}

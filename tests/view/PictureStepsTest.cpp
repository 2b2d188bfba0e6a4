// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DrawTrace.h"
#include "host/view/ViewScene.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/GLGraphicsItem.h"
#include "platform/view/ViewProvider.h"
#include "tests/support/ShownView.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QTimer>

#include <functional>

// Exact pictures of large parts, which reach the screen in steps.
namespace {

class PicturesInSteps : public ShownView
{
protected:
    ~PicturesInSteps() override { ThemeSwitch::setTheme(ThemeSwitch::Choice::Light); }

    void SetUp() override
    {
        ShownView::SetUp();
        if (!view)
            return;
        view->resize(700, 500);
        settle();
        standIns().setUse(StandIns::Use::Never);
    }

    ViewScene& scene() const { return view->scene(); }
    StandIns& standIns() const { return scene().standIns(); }

    Mesh::DocumentObject* addPart()
    {
        Mesh::DocumentObject* const part = test.add(torus(30, 8, 500, 250), "part");
        view->OnViewType(6);
        view->fitAll();
        view->grabFramebuffer();
        scene().preparer().finish();
        view->grabFramebuffer();
        settle();
        return part;
    }

    /// What the screen gets, without painting anything.
    QImage shown() const
    {
        view->makeCurrent();
        QImage image(view->size() * view->devicePixelRatioF(), QImage::Format_RGBA8888);
        view->context()->functions()->glReadPixels(0, 0, image.width(), image.height(), GL_RGBA,
                                                   GL_UNSIGNED_BYTE, image.bits());
        view->doneCurrent();
        return image.mirrored().convertToFormat(QImage::Format_RGB32);
    }
    QImage exact()
    {
        standIns().setUse(StandIns::Use::Never);
        QImage const image = view->grabFramebuffer().convertToFormat(QImage::Format_RGB32);
        standIns().setUse(StandIns::Use::Always);
        return image;
    }
    /// Until nothing is to come.
    void finishSteps()
    {
        view->update();
        settle();
        ASSERT_TRUE(waitUntil([&] { return !scene().isDrawingInSteps(); }));
        settle();
    }
    void setMode(int mode)
    {
        for (Mesh::DocumentObject const* const part : test.document->getMeshObjects())
            test.document->getViewProvider(part)->setRenderMode(mode);
    }
    /// Goes on until steps have begun.
    void beginSteps()
    {
        standIns().setUse(StandIns::Use::Always);
        view->update();
        ASSERT_TRUE(waitUntil([&] { return scene().isDrawingInSteps(); }));
    }
};

/// How often the view has been painted.
class PaintingCount : public Base::GLGraphicsItem
{
public:
    void paintGL() override { ++count; }
    void initGL() override {}
    int count = 0;
};

constexpr IndexRange ranges[] = {{0, 300}, {600, 30}};

std::uint64_t fingerprintOf(SurfaceLook const& look)
{
    DrawTrace trace(0, 0);
    trace.beginSurface(1, look, {}, {});
    trace.passFaces(ranges);
    return trace.fingerprint();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, PicturesInSteps, bothPaths, pathName);

TEST_P(PicturesInSteps, AreExactToTheByte)
{
    Mesh::DocumentObject* const part = addPart();
    std::pair<char const*, std::function<void()>> const changes[] = {
        {"plain", [] {}},
        {"dark", [] { ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark); }},
        {"edges", [&] { setMode(Base::ViewProvider::ShadedWithEdges); }},
        {"edges alone", [&] { setMode(Base::ViewProvider::Edges); }},
        {"shaded", [&] { setMode(Base::ViewProvider::Shaded); }},
        {"height", [&] { view->setSectionHeight(1.7f); }},
        {"cut",
         [&] {
             view->setLiveCut(LiveCut{{0, 0, 2}, {0, 0, 1}, true});
         }},
        {"selected", [&] { part->setSelected(true, true, true); }},
        {"perspective", [&] { view->setProjection(GLCamera::Projection::Perspective); }},
        {"ghost", [&] { test.document->getViewProvider(part)->setObjectColor(0x80a0c060); }},
    };
    for (auto const& [name, change] : changes) {
        change();
        QImage const expected = exact();
        beginSteps();
        finishSteps();
        EXPECT_EQ(shown(), expected) << name;
    }
}

TEST_P(PicturesInSteps, LeaveTimeForEventsAndWhatWasShown)
{
    addPart();
    QImage const expected = exact();
    // As it was before the part came.
    test.document->getMeshObjects()[0]->setVisible(false);
    standIns().setUse(StandIns::Use::Never);
    settle();
    QImage const empty = shown();
    EXPECT_NE(empty, expected);
    test.document->getMeshObjects()[0]->setVisible(true);
    beginSteps();
    int turns = 0, looks = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] {
        ++turns;
        // Until the stand-in is there.
        if (!scene().isDrawingInSteps() || !standIns().isWorking())
            return;
        ++looks;
        EXPECT_EQ(shown(), empty);
    });
    turn.start(0);
    ASSERT_TRUE(waitUntil([&] { return !scene().isDrawingInSteps(); }));
    turn.stop();
    // 20,000 triangles first, and then at most twice as many each time.
    EXPECT_GE(turns, 3);
    EXPECT_GE(looks, 1);
    settle();
    EXPECT_EQ(shown(), expected);
}

TEST_P(PicturesInSteps, BeginAnewIfSomethingChanges)
{
    addPart();
    std::pair<char const*, std::function<void()>> const changes[] = {
        {"view", [&] { view->OnViewType(0); }},
        {"size", [&] { view->resize(620, 480); }},
        {"another picture", [&] { view->grabFramebuffer(); }},
        {"plate", [&] { view->setPlateSize(150, 100); }},
        {"part", [&] { test.add(box(10, 10, 40), "box"); }},
    };
    for (auto const& [name, change] : changes) {
        exact();
        beginSteps();
        QCoreApplication::processEvents();
        change();
        finishSteps();
        QImage const result = shown();
        EXPECT_EQ(result, exact()) << name;
        view->OnViewType(6);
    }
}

// Qt asks for a picture within the change of size, and for the same one afterwards.
TEST_P(PicturesInSteps, AChangeOfSizeDoesNotPaintTwice)
{
    addPart();
    PaintingCount item;
    view->addGraphicsItem(&item);
    exact();
    standIns().setUse(StandIns::Use::Never);
    settle();
    item.count = 0;
    view->resize(640, 470);
    EXPECT_EQ(item.count, 0);
    settle();
    EXPECT_GT(item.count, 0);
    QImage const result = shown();
    EXPECT_EQ(result.size(), view->size() * view->devicePixelRatioF());
    EXPECT_EQ(result, view->grabFramebuffer().convertToFormat(QImage::Format_RGB32));
    view->removeGraphicsItem(&item);
}

TEST_P(PicturesInSteps, ShowStandInsMeanwhileIfThereAreSome)
{
    addPart();
    standIns().setUse(StandIns::Use::Always);
    view->grabFramebuffer();
    ASSERT_TRUE(waitUntil([&] { return !standIns().isWorking(); }));
    finishSteps();
    view->OnViewType(0);
    QImage const expected = exact();
    PictureCount pictures(*view);
    view->update();
    ASSERT_TRUE(waitUntil([&] { return pictures.count == 1; }));
    QImage const first = shown();
    EXPECT_NE(first, expected);
    EXPECT_TRUE(scene().isDrawingInSteps());
    finishSteps();
    EXPECT_EQ(shown(), expected);
}

// They have no stand-ins: a picture meanwhile would be the whole one, at once.
TEST_P(PicturesInSteps, ManySmallPartsAreNotPaintedMeanwhile)
{
    for (int i = 0; i < 40; ++i)
        test.add(torus(30, 1 + 0.1 * i, 90, 50), "part " + std::to_string(i));
    PaintingCount item;
    view->addGraphicsItem(&item);
    view->OnViewType(6);
    view->fitAll();
    exact();
    ASSERT_TRUE(waitUntil([&] { return !scene().isPreparing(); }));
    finishSteps();
    view->OnViewType(0);
    exact();
    item.count = 0;
    PictureCount pictures(*view);
    view->update();
    ASSERT_TRUE(waitUntil([&] { return pictures.count == 1; }));
    EXPECT_EQ(item.count, 0);
    EXPECT_TRUE(scene().isDrawingInSteps());
    finishSteps();
    EXPECT_GT(item.count, 0);
    EXPECT_EQ(shown(), exact());
    view->removeGraphicsItem(&item);
}

TEST_P(PicturesInSteps, AreNotNeededForSmallParts)
{
    test.add(torus(30, 8, 300, 200), "small");
    view->fitAll();
    view->grabFramebuffer();
    scene().preparer().finish();
    standIns().setUse(StandIns::Use::Always);
    PictureCount pictures(*view);
    view->update();
    ASSERT_TRUE(waitUntil([&] { return pictures.count > 0; }));
    EXPECT_FALSE(scene().isDrawingInSteps());
    EXPECT_EQ(shown(), exact());
}

TEST(DrawTrace, LetsEachTriangleThroughOnce)
{
    for (std::size_t const step : {1u, 7u, 100u, 100000u}) {
        std::vector<int> faces(700), edges(700);
        std::size_t cost = 1;
        for (std::size_t from = 0; from < cost; from += step) {
            DrawTrace trace(from, from + step);
            trace.beginSurface(1, {}, {}, {});
            for (IndexRange const& range : trace.passFaces(ranges))
                for (std::size_t i = 0; i < range.count; ++i)
                    ++faces[range.first + i];
            for (IndexRange const& range : trace.passEdges(ranges))
                for (std::size_t i = 0; i < range.count; ++i)
                    ++edges[range.first + i];
            cost = trace.cost();
        }
        EXPECT_EQ(cost, 110 * (1 + DrawTrace::edgesCost));
        for (std::size_t i = 0; i < faces.size(); ++i) {
            int const expected = i < 300 || (i >= 600 && i < 630);
            EXPECT_EQ(faces[i], expected) << step << " " << i;
            EXPECT_EQ(edges[i], expected) << step << " " << i;
        }
    }
}

TEST(DrawTrace, TellsPicturesApart)
{
    SurfaceLook const plain;
    std::vector<SurfaceLook> looks(8);
    looks[0].front = 1;
    looks[1].back = 1;
    looks[2].edges = 1;
    looks[3].isMirrored = true;
    looks[4].isSolid = true;
    looks[5].isMarked = true;
    looks[6].cut = ViewPlane{{0, 0, 1}, 2};
    looks[7].cut = ViewPlane{{0, 0, 1}, 3};
    std::vector<std::uint64_t> all = {fingerprintOf(plain)};
    EXPECT_EQ(fingerprintOf(plain), all[0]);
    for (SurfaceLook const& look : looks)
        all.push_back(fingerprintOf(look));
    QMatrix4x4 moved;
    moved.translate(1, 0, 0);
    DrawTrace clip(0, 0), eye(0, 0), points(0, 0), cap(0, 0);
    clip.beginSurface(1, plain, moved, {});
    eye.beginSurface(1, plain, {}, moved);
    points.passPoints(1, {}, {});
    cap.passCap(1, {}, {});
    for (DrawTrace const* const trace : {&clip, &eye, &points, &cap})
        all.push_back(trace->fingerprint());
    std::sort(all.begin(), all.end());
    EXPECT_EQ(std::unique(all.begin(), all.end()), all.end());
}

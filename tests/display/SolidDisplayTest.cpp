// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PolygonViewProvider.h"
#include "display/RegisterViewProviders.h"
#include "display/TLabel.h"
#include "display/ToolLabels.h"
#include "platform/ui/Theme.h"
#include "tests/support/ShownView.h"
#include "tests/view/PictureDifference.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <functional>

// How solid tools look and how they follow the camera, in a view on the screen.
namespace {

using Point = UPoint3<float>;

class SolidDisplay : public ShownView
{
protected:
    ~SolidDisplay() override { view.reset(); }

    /// From above at a box of 60 by 60 by 20 mm; the picture is 100 mm high.
    void SetUp() override
    {
        ShownView::SetUp();
        if (!view)
            return;
        test.add(box(60, 60, 20, {-30, -30, 0}), "part");
        lookFromAbove();
    }
    void lookFromAbove()
    {
        Freecut::registerViewProviders();
        view->setPlateVisible(false);
        view->OnViewType(2);
        view->getCamera()->set_ref(0, 0, 0, true);
        view->getCamera()->set_view_height(100);
    }

    /// Adds a tool with points on the screen, as the mouse tools do.
    template <typename Tool>
    Tool* draw(std::vector<UPoint2<float>> const& points)
    {
        auto* const tool = new Tool;
        auto& record = tool->getProperty();
        record.updateDepth();
        record.rememberView();
        for (UPoint2<float> const& p : points) {
            Point point(p.X(), p.Y(), record.getSketchDepth());
            view->getWCSPointFromEyePoint(point);
            record.getKeyPoints().push_back(point);
        }
        test.document->addObject(tool, "tool", true);
        return tool;
    }
    Freecut::PolygonGraphicObject* drawPolygon()
    {
        auto* const tool = draw<Freecut::PolygonGraphicObject>({{-20, -20}, {20, -20}, {0, 20}});
        tool->getProperty().setEdgeRecords(std::vector<Freecut::TeethEdge>(3));
        tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 1, true, 2);
        finish(tool);
        return tool;
    }
    template <typename Tool>
    void finish(Tool* tool)
    {
        tool->getProperty().storeEyePoints();
        tool->getViewProvider()->updateGeometry();
        view->redraw();
        static_cast<void>(picture("solid-settled"));
    }

    /// Where a world point appears, in millimetres of the screen.
    UPoint2<float> seenAt(Point point) const
    {
        view->getEyePointFromWCSPoint(point);
        return {point.X(), point.Y()};
    }
    void turn()
    {
        view->getCamera()->turn({0, 0, 1}, 0.5);
        view->getCamera()->turn({1, 0, 0}, 0.4);
        view->redraw();
        static_cast<void>(picture("solid-turned"));
    }
    void pan()
    {
        view->getCamera()->pan(7, -4);
        view->redraw();
        static_cast<void>(picture("solid-panned"));
    }
    GLenum error() const { return view->context()->functions()->glGetError(); }
};

void expectNear(UPoint2<float> const& p, UPoint2<float> const& q)
{
    EXPECT_NEAR(p.X(), q.X(), 1e-3);
    EXPECT_NEAR(p.Y(), q.Y(), 1e-3);
}

bool isReddish(QColor const& color)
{
    return color.red() > color.blue() + 60 && color.red() > color.green() + 60;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, SolidDisplay, bothPaths, pathName);

TEST_P(SolidDisplay, StaysOnTheModelInAPanAndOnTheScreenInATurn)
{
    Freecut::PolygonGraphicObject* const tool = drawPolygon();
    std::vector<Point> const drawn = tool->getPoints();
    pan();
    EXPECT_EQ(tool->getPoints(), drawn);

    std::vector<UPoint2<float>> seen;
    for (Point const& p : tool->getPoints())
        seen.push_back(seenAt(p));
    turn();
    for (std::size_t i = 0; i < 3; ++i)
        expectNear(seenAt(tool->getPoints()[i]), seen[i]);
    EXPECT_NE(tool->getPoints(), drawn);

    // Another pan afterwards takes the world over once more.
    std::vector<Point> const turned = tool->getPoints();
    pan();
    EXPECT_EQ(tool->getPoints(), turned);
    turn();
    EXPECT_NE(tool->getPoints(), turned);
}

TEST_P(SolidDisplay, ATurnStaysNotedUntilTheNextPicture)
{
    Freecut::PolygonGraphicObject* const tool = drawPolygon();
    auto* const provider = static_cast<Freecut::VolumeViewProvider*>(tool->getViewProvider());
    view->getCamera()->turn({0, 0, 1}, 0.5);
    provider->paintGL();
    EXPECT_TRUE(provider->getViewChanged());
    provider->paintGL();
    provider->paintGL();
    EXPECT_FALSE(provider->getViewChanged());
}

TEST_P(SolidDisplay, AZoomChangesNothingOfTheTool)
{
    Freecut::PolygonGraphicObject* const tool = drawPolygon();
    std::vector<Point> const drawn = tool->getPoints();
    Point const eye = tool->getProperty().getLastEye();
    view->getCamera()->zoom(0.5);
    view->redraw();
    static_cast<void>(picture("solid-zoomed"));
    EXPECT_EQ(tool->getPoints(), drawn);
    EXPECT_EQ(tool->getProperty().getLastEye(), eye);
}

TEST_P(SolidDisplay, InAPreviewTheCameraMayGoAnywhere)
{
    Freecut::PolygonGraphicObject* const tool = drawPolygon();
    tool->getProperty().setPreviewing(true);
    tool->getViewProvider()->updateGeometry();
    std::vector<Point> const drawn = tool->getPoints();
    turn();
    pan();
    EXPECT_EQ(tool->getPoints(), drawn);
    EXPECT_EQ(error(), GLenum(GL_NO_ERROR));
}

TEST_P(SolidDisplay, ShowsLinesAndHandlesAndInAPreviewFaces)
{
    QColor const bare = colorAt(picture("solid-none"), {0, -10, 20});
    Freecut::PolygonGraphicObject* const tool = drawPolygon();
    QImage const image = picture("solid-polygon");
    EXPECT_EQ(colorAt(image, {0, -10, 20}), bare);
    EXPECT_LT(qGray(colorAt(image, tool->getPoints()[0]).rgb()), 110) << "a handle";
    bool isRed = false;
    QPoint const side = positionOf({-10, -20, 20}) * int(view->devicePixelRatioF());
    for (int y = -2; y <= 2; ++y)
        isRed = isRed || isReddish(image.pixelColor(side.x(), side.y() + y));
    EXPECT_TRUE(isRed);

    tool->getProperty().setPreviewing(true);
    tool->getViewProvider()->updateGeometry();
    view->redraw();
    QImage const preview = picture("solid-polygon-preview");
    QColor const face = colorAt(preview, {0, -10, 20});
    EXPECT_GT(face.red(), face.blue() + 60) << "yellow";
    EXPECT_GT(face.green(), face.blue() + 60);
    EXPECT_FALSE(qGray(colorAt(preview, tool->getPoints()[0]).rgb()) < 80) << "no handle";
    EXPECT_EQ(error(), GLenum(GL_NO_ERROR));
}

TEST_P(SolidDisplay, ShowsLabelsInStandardViewsAlone)
{
    Freecut::PolygonGraphicObject* const tool = drawPolygon();
    Freecut::PolygonProperty& record = tool->getProperty();
    for (int i = 0; i < 3; ++i)
        tool->getPointLabels().push_back(new Freecut::TLabel(view.get()));
    auto const labelsShown = [&] {
        view->redraw();
        static_cast<void>(picture("solid-labels"));
        int shown = 0;
        for (Freecut::TLabel const* const label : tool->getPointLabels())
            shown += label->isVisible();
        return shown;
    };
    EXPECT_EQ(labelsShown(), 3);
    Freecut::TLabel const& first = *tool->getPointLabels()[0];
    EXPECT_EQ(first.pos(), positionOf(tool->getPoints()[0]));
    EXPECT_EQ(first.height(), 2 * g_pixelSize);
    EXPECT_EQ(first.width(), int(first.text().length() * 0.7) * g_pixelSize);
    record.setPreviewing(true);
    EXPECT_EQ(labelsShown(), 0);
    record.setPreviewing(false);
    record.setViewIndex(-1);
    EXPECT_EQ(labelsShown(), 0);
    record.setViewIndex(2);
    record.setShowCoordinate(false);
    EXPECT_EQ(labelsShown(), 0);
    record.setShowCoordinate(true);
    EXPECT_EQ(labelsShown(), 3);
    // The labels are in the view, which ends before the document here.
    test.document->detachObject(tool).reset();
}

namespace {

/// A tool with one label, at its first key point.
template <typename Tool>
void expectLabelAtTheCentre(Mesh::GLView& view, Tool* tool, std::function<void()> const& paint)
{
    auto& record = tool->getProperty();
    auto* const label = new Freecut::TLabel(&view);
    tool->setLabel(label);
    auto const isShown = [&] {
        view.redraw();
        paint();
        return label->isVisible();
    };
    for (int const index : {0, 1, 2, 3, 4, 5}) {
        record.setViewIndex(index);
        EXPECT_TRUE(isShown()) << index;
        EXPECT_EQ(label->text(), Freecut::coordinateText(record.getKeyPoints()[0], index));
    }
    int x = 0, y = 0;
    view.getWidgetcoordFromWCS(record.getKeyPoints()[0], x, y);
    EXPECT_EQ(label->pos(), QPoint(x, y));
    EXPECT_EQ(label->size(),
              QSize(int(label->text().length() * 0.7) * g_pixelSize, 2 * g_pixelSize));
    record.setViewIndex(-1);
    EXPECT_FALSE(isShown());
    record.setViewIndex(2);
    record.setShowCoordinate(false);
    EXPECT_FALSE(isShown());
    record.setShowCoordinate(true);
    EXPECT_TRUE(isShown());
    record.setPreviewing(true);
    EXPECT_FALSE(isShown());
}

}  // namespace

TEST_P(SolidDisplay, ShowsTheLabelOfACuboidAndOfACylinderAtItsCentre)
{
    auto const paint = [&] { static_cast<void>(picture("solid-label")); };
    auto* const cuboid = draw<Freecut::CuboidGraphicObject>({{5, -7}});
    cuboid->getProperty().setCuboidParameters(false, 0, 0, false, 0, 178, false, 1, true, 2, 20, 30,
                                              0.3f);
    finish(cuboid);
    expectLabelAtTheCentre(*view, cuboid, paint);
    test.document->detachObject(cuboid).reset();

    auto* const cylinder = draw<Freecut::CylinderGraphicObject>({{-3, 8}, {7, 8}});
    cylinder->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, true, 2, 10, false, 2, 2,
                                               0, 0.025f);
    finish(cylinder);
    expectLabelAtTheCentre(*view, cylinder, paint);
    test.document->detachObject(cylinder).reset();
}

namespace {

/// The same tools by both versions of OpenGL.
class SolidPaths : public SolidDisplay
{
protected:
    template <typename Draw>
    void compare(std::string const& name, Draw const& drawTool)
    {
        std::vector<QImage> images;
        for (auto const path : {Base::OpenGLPath::Version21, Base::OpenGLPath::Version33}) {
            show(path);
            lookFromAbove();
            view->getCamera()->turn({1, 0, 0}, 0.6);
            auto* const tool = drawTool();
            view->redraw();
            images.push_back(picture(name));
            test.document->removeObject(tool);
        }
        ASSERT_EQ(images[0].size(), images[1].size());
        Difference const difference(images[0], images[1]);
        EXPECT_LT(difference.mean, 0.6) << name;
        EXPECT_LT(difference.shareApart, 0.02) << name;
        EXPECT_GT(Difference(images[0], bare).shareApart, 0.005) << name << " shows nothing";
    }
    QImage bare;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Once, SolidPaths, testing::Values(Base::OpenGLPath::Version33), pathName);

TEST_P(SolidPaths, DrawTheSamePictures)
{
    view->getCamera()->turn({1, 0, 0}, 0.6);
    view->redraw();
    bare = picture("paths-none");
    for (bool const isPreview : {false, true}) {
        std::string const suffix = isPreview ? "-preview" : "";
        auto const show = [&](auto* tool) {
            tool->getProperty().setPreviewing(isPreview);
            tool->getViewProvider()->updateGeometry();
            return tool;
        };
        compare("paths-cuboid" + suffix, [&] {
            auto* const tool = draw<Freecut::CuboidGraphicObject>({{0, 0}});
            tool->getProperty().setCuboidParameters(true, 2, 2, false, 0, 178, true, 4, false, -1,
                                                    30, 40, 0.3f);
            return show(tool);
        });
        compare("paths-cylinder" + suffix, [&] {
            auto* const tool = draw<Freecut::CylinderGraphicObject>({{0, 0}, {0, 9}});
            tool->getProperty().setShapeParameters(true, 1, 2, false, 0, 178, false, -1, 15, true,
                                                   6, 8, 30, 0.025f);
            return show(tool);
        });
        compare("paths-polygon" + suffix, [&] {
            auto* const tool = draw<Freecut::PolygonGraphicObject>(
                {{-25, -25}, {25, -25}, {-5, 10}, {25, 30}, {-25, 30}, {15, 0}});
            tool->getProperty().setEdgeRecords(std::vector<Freecut::TeethEdge>(6));
            tool->getProperty().setShapeParameters(true, 2, 1, false, 0, 178, true, 2, false, -1);
            return show(tool);
        });
    }
}

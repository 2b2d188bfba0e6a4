// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PlaneViewProvider.h"
#include "display/PolygonViewProvider.h"
#include "tests/display/DrawnTool.h"
#include "tests/display/ScreenPlaces.h"
#include "tests/support/ShownView.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <numbers>

namespace {

using Point = UPoint3<float>;

/// The middles of the handles.
std::vector<Point> handlesOf(Freecut::GraphicObject* tool)
{
    Freecut::GraphicViewProvider* const provider = tool->getViewProvider();
    provider->buildMarkers();
    std::vector<float> const& quads = provider->getMarkerVertices();
    std::vector<Point> middles;
    for (std::size_t i = 0; i < quads.size(); i += 12)
        middles.push_back({(quads[i] + quads[i + 6]) / 2, (quads[i + 1] + quads[i + 7]) / 2,
                           (quads[i + 2] + quads[i + 8]) / 2});
    return middles;
}

void expectPoints(std::vector<Point> const& found, std::vector<Point> const& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_LT((found[i] - expected[i]).GetLength(), 1e-3f) << i;
}

/// The corners of each handle, 6 pixels from its middle.
void expectHandlesOfTwelvePixels(Base::GLView const& view, Freecut::GraphicObject* tool,
                                 std::size_t count)
{
    std::vector<Point> const middles = handlesOf(tool);
    ASSERT_EQ(middles.size(), count);
    std::vector<float> const& quads = tool->getViewProvider()->getMarkerVertices();
    constexpr double expected[4][2] = {{-6, -6}, {-6, 6}, {6, 6}, {6, -6}};
    for (std::size_t handle = 0; handle < count; ++handle)
        for (std::size_t corner = 0; corner < 4; ++corner) {
            float const* const p = &quads[12 * handle + 3 * corner];
            UPoint2<double> const place = screenOffset(view, middles[handle], {p[0], p[1], p[2]});
            EXPECT_NEAR(place.X(), expected[corner][0], 0.02);
            EXPECT_NEAR(place.Y(), expected[corner][1], 0.02);
        }
}

/// An edge with teeth at two points, each with a handle above it.
Freecut::TeethEdge toothed(float x, bool isEdited)
{
    Freecut::TeethEdge edge;
    edge.hasTeeth = true;
    edge.editing = isEdited;
    edge.basePoints = {{x, 0, 0}, {x + 1, 0, 0}};
    edge.handlePoints = {{x, 5, 0}, {x + 1, 5, 0}};
    return edge;
}

}  // namespace

TEST(SolidHandles, OfACuboidStandOnItsCentreACornerAndTheSidesBesideIt)
{
    DrawnDocument test;
    test.add(box(100, 100, 20), "part");
    auto* const tool = test.draw<Freecut::CuboidGraphicObject>({{10, 20}});
    Freecut::CuboidProperty& record = tool->getProperty();
    Point const centre = record.getKeyPoints()[0];
    record.setCuboidParameters(false, 0, 0, false, 0, 178, false, 1, false, 2, 30, 40, 0);
    expectPoints(handlesOf(tool), {centre, centre + Point(20, 0, 0), centre + Point(20, 15, 0),
                                   centre + Point(0, 15, 0)});
    record.setCuboidParameters(false, 0, 0, false, 0, 178, false, 1, false, 2, 30, 40,
                               float(std::numbers::pi / 2));
    expectPoints(handlesOf(tool), {centre, centre + Point(0, 20, 0), centre + Point(-15, 20, 0),
                                   centre + Point(-15, 0, 0)});
}

TEST(SolidHandles, OfACylinderStandOnItsCentreAndOnANotch)
{
    DrawnDocument test;
    auto* const tool = test.draw<Freecut::CylinderGraphicObject>({{3, 4}, {13, 4}});
    std::vector<Point> const& points = tool->getProperty().getKeyPoints();
    expectPoints(handlesOf(tool), {points[0]});
    tool->getProperty().setUseNotch(true);
    expectPoints(handlesOf(tool), {points[0], points[1]});
}

TEST(SolidHandles, OfAPolygonStandOnItsVerticesThenOnTeethUnderEdit)
{
    DrawnDocument test;
    auto* const tool = test.draw<Freecut::PolygonGraphicObject>({{0, 0}, {30, 0}, {0, 30}});
    std::vector<Point> expected = tool->getProperty().getKeyPoints();
    expectPoints(handlesOf(tool), expected);
    tool->getProperty().setEdgeRecords({toothed(5, true), toothed(50, false), toothed(9, true)});
    expected.insert(expected.end(), {{5, 0, 0}, {6, 0, 0}, {9, 0, 0}, {10, 0, 0}});
    expected.insert(expected.end(), {{5, 5, 0}, {6, 5, 0}, {9, 5, 0}, {10, 5, 0}});
    expectPoints(handlesOf(tool), expected);
}

TEST(SolidHandles, OfManyVerticesThoseAreShownThatDoNotHideEachOther)
{
    DrawnDocument test;
    test.add(box(100, 100, 20, {-50, -50, 0}), "part");
    std::vector<UPoint2<float>> corners;
    for (int i = 0; i < 400; ++i) {
        double const angle = 2 * std::numbers::pi * i / 400;
        corners.emplace_back(float(40 * std::cos(angle)), float(40 * std::sin(angle)));
    }
    auto* const tool = test.draw<Freecut::PolygonGraphicObject>(corners);
    std::vector<Point> const shown = handlesOf(tool);
    EXPECT_GT(shown.size(), 12u);
    EXPECT_LT(shown.size(), 100u);
    auto const seenAt = [&](Point const& p) {
        int x, y;
        test.view.getWidgetcoordFromWCS(p, x, y);
        return QPoint(x, y);
    };
    for (std::size_t i = 1; i < shown.size(); ++i)
        EXPECT_GE((seenAt(shown[i]) - seenAt(shown[i - 1])).manhattanLength(), 22);
    // A hundred all have theirs.
    corners.resize(100);
    test.document->detachObject(tool).reset();
    EXPECT_EQ(handlesOf(test.draw<Freecut::PolygonGraphicObject>(corners)).size(), 100u);
}

TEST(SolidHandles, OfEachToolHaveTwelvePixelsAtAnyZoom)
{
    DrawnDocument test;
    test.add(box(100, 100, 20), "part");
    Freecut::PlaneViewProvider::init();
    auto* const plane = new Freecut::PlaneGraphicObject;
    test.document->addObject(plane, "plane", true);
    plane->getProperty().setCorners({0, 0, 10}, {50, 0, 10}, {50, 40, 10}, true);
    plane->getViewProvider()->updateGeometry();
    auto* const cuboid = test.draw<Freecut::CuboidGraphicObject>({{10, 20}});
    cuboid->getProperty().setCuboidParameters(false, 0, 0, false, 0, 178, false, 1, false, 2, 30,
                                              40, 0.3f);
    auto* const cylinder = test.draw<Freecut::CylinderGraphicObject>({{3, 4}, {13, 4}});
    cylinder->getProperty().setUseNotch(true);
    auto* const polygon = test.draw<Freecut::PolygonGraphicObject>({{0, 0}, {30, 0}, {0, 30}});
    polygon->getProperty().setEdgeRecords({toothed(5, true)});
    std::vector<std::pair<Freecut::GraphicObject*, std::size_t>> const tools{
        {plane, 9}, {cuboid, 4}, {cylinder, 2}, {polygon, 7}};
    for (int const standardView : {0, 2, 5, 6})
        for (double const zoom : {1.0, 0.1, 20.0}) {
            test.view.OnViewType(standardView);
            test.view.getCamera()->zoom(zoom);
            for (auto const& [tool, count] : tools) {
                SCOPED_TRACE(tool->getClassName());
                expectHandlesOfTwelvePixels(test.view, tool, count);
            }
        }
}

TEST(SolidHandles, AreNotThereOnAToolWithoutAShape)
{
    DrawnDocument test;
    Freecut::VolumeViewProvider provider;
    provider.attachGLViewer(&test.view);
    provider.buildMarkers();
    EXPECT_TRUE(provider.getMarkerVertices().empty());
}

namespace {

/// Solid tools in a view on the screen.
class SolidResources : public ShownView
{
protected:
    ~SolidResources() override { view.reset(); }
};

/// Paints the handles alone.
template <typename Provider>
class HandlesOnly : public Provider
{
public:
    void paintGL() override
    {
        this->buildMarkers();
        this->drawMarkers();
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, SolidResources, bothPaths, pathName);

TEST_P(SolidResources, AreMadeWithTheContextAndFreedWithTheTool)
{
    view->setPlateVisible(false);
    view->OnViewType(2);
    Freecut::PolygonGraphicObject tool;
    tool.getProperty().setKeyPoints({{-20, -20, 0}, {20, -20, 0}, {0, 20, 0}});
    tool.getProperty().setEdgeRecords({toothed(0, true)});
    view->getCamera()->set_ref(0, 0, 0, true);
    view->getCamera()->set_view_height(100);
    QImage const empty = picture("solid-handles-none");
    {
        HandlesOnly<Freecut::PolygonViewProvider> provider;
        provider.attach(&tool);
        provider.attachGLViewer(view.get());
        QImage const image = picture("solid-handles");
        // On vertices grey, on teeth purple.
        EXPECT_LT(qGray(colorAt(image, {-20, -20, 0}).rgb()), 110);
        EXPECT_GT(colorAt(image, {0, 5, 0}).red(), colorAt(image, {0, 5, 0}).green() + 20);
        EXPECT_EQ(view->context()->functions()->glGetError(), GLenum(GL_NO_ERROR));
    }
    EXPECT_EQ(picture("solid-handles-gone"), empty);
    EXPECT_EQ(view->context()->functions()->glGetError(), GLenum(GL_NO_ERROR));
}

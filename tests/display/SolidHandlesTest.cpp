// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PolygonViewProvider.h"
#include "tests/display/DrawnTool.h"
#include "tests/support/ShownView.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

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

TEST(SolidHandles, OfACuboidStandOnItsCorners)
{
    DrawnDocument test;
    auto* const tool =
        test.draw<Freecut::CuboidGraphicObject>({{-20, -10}, {20, -10}, {20, 10}, {-20, 10}});
    expectPoints(handlesOf(tool), tool->getProperty().getKeyPoints());
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

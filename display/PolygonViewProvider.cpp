// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PolygonViewProvider.h"

#include "platform/view/GLView.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/PolygonOutline.h"

#include <QPoint>

#include <algorithm>

namespace Freecut {

namespace {

/// Outlines of more corners, as drawings give them, would be hidden by a square on each.
constexpr std::size_t mostCrowded = 100;
/// Pixels from one square to the next that is shown then.
constexpr int roomOfMarker = 24;

}  // namespace

void PolygonViewProvider::initGL()
{
    initSolidGL();
}

void PolygonViewProvider::paintGL()
{
    paintSolid();
}

void PolygonViewProvider::buildMarkers()
{
    if (!tool())
        return;
    PolygonProperty const& record = tool()->getProperty();
    std::vector<UPoint3<float>> points = shownVertices();
    m_vertexMarkers = int(points.size());
    for (auto const list : {&TeethEdge::basePoints, &TeethEdge::handlePoints})
        for (TeethEdge const& edge : record.getEdgeRecords())
            if (edge.hasTeeth && edge.editing)
                points.insert(points.end(), (edge.*list).begin(), (edge.*list).end());
    buildMarkersAt(points);
}

std::vector<UPoint3<float>> PolygonViewProvider::shownVertices() const
{
    std::vector<UPoint3<float>> const& vertices = tool()->getProperty().getKeyPoints();
    if (vertices.size() <= mostCrowded)
        return vertices;
    std::vector<UPoint3<float>> shown;
    QPoint last;
    for (UPoint3<float> const& vertex : vertices) {
        int x, y;
        m_view->getWidgetcoordFromWCS(vertex, x, y);
        if (!shown.empty() && (QPoint(x, y) - last).manhattanLength() < roomOfMarker)
            continue;
        last = {x, y};
        shown.push_back(vertex);
    }
    return shown;
}

PolygonGraphicObject* PolygonViewProvider::tool() const
{
    return static_cast<PolygonGraphicObject*>(m_object);
}

int PolygonViewProvider::vertexMarkers() const
{
    return std::min(markerCount(), m_vertexMarkers);
}

void PolygonViewProvider::drawMarkersGL21()
{
    int const vertices = vertexMarkers();
    uploadMarkers();
    drawMarkersOf21(markerColor, 0, vertices);
    drawMarkersOf21(ToolColors::translucentPurple, vertices, markerCount() - vertices);
}

void PolygonViewProvider::drawMarkersGL33()
{
    int const vertices = vertexMarkers();
    uploadMarkers();
    drawMarkersOf33(markerColor, 0, vertices);
    drawMarkersOf33(ToolColors::translucentPurple, vertices, markerCount() - vertices);
}

std::unique_ptr<VolumeOutline> PolygonViewProvider::makeOutline() const
{
    return std::make_unique<PolygonOutline>(tool()->getProperty());
}

LinePicture PolygonViewProvider::linePicture() const
{
    PolygonProperty const& record = tool()->getProperty();
    return pictureOfPolygon(shownOutlines(), record.getRoundCorners(),
                            record.getKeyPoints().size());
}

std::vector<LabelledPoint> PolygonViewProvider::labels() const
{
    std::vector<UPoint3<float>> const& points = tool()->getProperty().getKeyPoints();
    std::vector<TLabel*> const& pointLabels = tool()->getPointLabels();
    std::vector<LabelledPoint> labelled;
    for (std::size_t i = 0; i < std::min(points.size(), pointLabels.size()); ++i)
        labelled.push_back({pointLabels[i], points[i]});
    return labelled;
}

void PolygonViewProvider::storeEyeSpace()
{
    VolumeViewProvider::storeEyeSpace();
    tool()->getProperty().storeEyeTeeth();
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PolygonViewProvider.h"

#include "tools/PolygonGraphicObject.h"
#include "tools/PolygonOutline.h"

#include <algorithm>

namespace Freecut {

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
    std::vector<UPoint3<float>> points = record.getKeyPoints();
    for (auto const list : {&TeethEdge::basePoints, &TeethEdge::handlePoints})
        for (TeethEdge const& edge : record.getEdgeRecords())
            if (edge.hasTeeth && edge.editing)
                points.insert(points.end(), (edge.*list).begin(), (edge.*list).end());
    buildMarkersAt(points);
}

PolygonGraphicObject* PolygonViewProvider::tool() const
{
    return static_cast<PolygonGraphicObject*>(m_object);
}

int PolygonViewProvider::vertexMarkers() const
{
    return tool() ? std::min(markerCount(), int(tool()->getPoints().size())) : 0;
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
    return pictureOfPolygon(outlines(), record.getRoundCorners(), record.getKeyPoints().size());
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

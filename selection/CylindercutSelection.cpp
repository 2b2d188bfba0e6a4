// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CylindercutSelection.h"

#include "display/VolumeViewProvider.h"
#include "platform/view/GLView.h"
#include "selection/CylinderDrag.h"
#include "selection/HandleHit.h"
#include "selection/ToolEdit.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/VolumeOutline.h"

#include <QMouseEvent>

#include <cmath>

namespace Freecut {

CylindercutSelection::CylindercutSelection()
{
    keepPointTool<CylinderGraphicObject>();
}

char const* CylindercutSelection::ownCursor() const
{
    return "cursor_cylindercut";
}

CylinderGraphicObject* CylindercutSelection::getCylinder() const
{
    return static_cast<CylinderGraphicObject*>(graphicObject);
}

bool CylindercutSelection::addPointOfCylinderCut(UPoint3<float> eyePoint)
{
    constexpr std::size_t keyPoints = 2;
    placeCentre<CylinderGraphicObject>(eyePoint, keyPoints);
    return true;
}

bool CylindercutSelection::addPoint(UPoint3<float> const& eyePoint)
{
    return addPointOfCylinderCut(eyePoint);
}

void CylindercutSelection::dragMoveMouseLeft(UVector3<float>, QMouseEvent const* event)
{
    CylinderProperty& record = getCylinder()->getProperty();
    SketchPlane const plane(*m_view->getCamera(), record.getSketchDepth());
    double const angle = record.getNotchAngle() * M_PI / 180;
    UVector3<float> const notchAxis = plane.direction(
        record.getKeyPoints()[CYLINDER_CENTRE], float(std::sin(angle)), float(std::cos(angle)));
    if (dragCylinder(record, selectedIndex, sketchPoint(event->pos(), record.getSketchDepth()),
                     notchAxis))
        finishEdit(*graphicObject);
}

bool CylindercutSelection::isCircleUnder(QPoint position) const
{
    constexpr float reach = 8;
    auto const* const provider =
        dynamic_cast<VolumeViewProvider const*>(graphicObject->getViewProvider());
    if (!provider || !provider->getOutline())
        return false;
    std::vector<UPoint2<float>> ring;
    for (UPoint3<float> const& point : provider->getOutline()->outlines().baseRing()) {
        int x, y;
        m_view->getWidgetcoordFromWCS(point, x, y);
        ring.emplace_back(float(x), float(y));
    }
    return isNearRing(ring, circleSides(getCylinder()->getProperty(), ring.size()),
                      {float(position.x()), float(position.y())}, reach);
}

std::optional<int> CylindercutSelection::partUnder(QPoint position) const
{
    CylinderProperty const& record = getCylinder()->getProperty();
    std::vector<UPoint3<float>> handles = record.getKeyPoints();
    // Without a notch its handle is not shown, and its place means nothing.
    if (!record.getUseNotch())
        handles.resize(1);
    if (auto const handle = handleAt(*m_view, position, handles))
        return handle;
    if (isCircleUnder(position))
        return CYLINDER_CIRCLE;
    return {};
}

std::function<void()> CylindercutSelection::putBack()
{
    CylinderProperty const& now = getCylinder()->getProperty();
    return [this, points = now.getKeyPoints(), radius = now.getRadius(),
            width = now.getNotchWidth(), length = now.getNotchLength()] {
        CylinderProperty& record = getCylinder()->getProperty();
        record.setKeyPoints(points);
        record.setRadius(radius);
        record.setNotchWidth(width);
        record.setNotchLength(length);
    };
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CuboidcutSelection.h"

#include "platform/view/GLView.h"
#include "selection/CuboidDrag.h"
#include "selection/HandleHit.h"
#include "selection/ToolEdit.h"
#include "tools/CuboidGraphicObject.h"

#include <QMouseEvent>

namespace Freecut {

CuboidcutSelection::CuboidcutSelection()
{
    keepPointTool<CuboidGraphicObject>();
}

char const* CuboidcutSelection::ownCursor() const
{
    return "cursor_cuboidcut";
}

CuboidGraphicObject* CuboidcutSelection::getCuboid() const
{
    return static_cast<CuboidGraphicObject*>(graphicObject);
}

bool CuboidcutSelection::addPointOfCuboidCut(UPoint3<float> eyePoint)
{
    constexpr std::size_t keyPoints = 4;
    placeCentre<CuboidGraphicObject>(eyePoint, keyPoints);
    return true;
}

bool CuboidcutSelection::addPoint(UPoint3<float> const& eyePoint)
{
    return addPointOfCuboidCut(eyePoint);
}

void CuboidcutSelection::dragMoveMouseLeft(UVector3<float> delta, QMouseEvent const* event)
{
    CuboidProperty& record = getCuboid()->getProperty();
    CornerDrag corner{eyePointUnder(event->pos()), record.getKeyPoints()[CUBOID_CENTRE]};
    m_view->getEyePointFromWCSPoint(corner.centre);
    dragCuboid(record, selectedIndex, delta, corner);
    finishEdit(*graphicObject);
}

std::function<void()> CuboidcutSelection::putBack()
{
    CuboidProperty const& now = getCuboid()->getProperty();
    return [this, points = now.getKeyPoints(), length = now.getCuboidLength(),
            width = now.getCuboidWidth(), angle = now.getCuboidAngle()] {
        CuboidProperty& record = getCuboid()->getProperty();
        record.setKeyPoints(points);
        record.setCuboidLength(length);
        record.setCuboidWidth(width);
        record.setCuboidAngle(angle);
    };
}

std::optional<int> CuboidcutSelection::partUnder(QPoint position) const
{
    return handleAt(*m_view, position, getCuboid()->getProperty().getKeyPoints());
}

char const* CuboidcutSelection::cursorOver(int part) const
{
    return part == CUBOID_CORNER ? "cursor_2drotate" : CentredSelection::cursorOver(part);
}

}  // namespace Freecut

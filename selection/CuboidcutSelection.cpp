// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CuboidcutSelection.h"

#include "platform/view/GLView.h"
#include "selection/CuboidDrag.h"
#include "selection/HandleHit.h"
#include "selection/ToolEdit.h"
#include "tools/CuboidGraphicObject.h"

#include <QMouseEvent>

namespace Freecut {

Base::Type CuboidcutSelection::classTypeId = Base::Type::badType();

void CuboidcutSelection::init()
{
    initSubclass(classTypeId, toolName, "Freecut::VolumeSelection", create);
}

void* CuboidcutSelection::create()
{
    return static_cast<BaseClass*>(new CuboidcutSelection);
}

CuboidcutSelection::CuboidcutSelection()
{
    keepPointTool<CuboidGraphicObject>();
}

Base::Type CuboidcutSelection::getTypeId() const
{
    return classTypeId;
}

std::string CuboidcutSelection::getClassName() const
{
    return toolName;
}

void CuboidcutSelection::initialize()
{
    showCursor("cursor_cuboidcut");
    PointPickerMesh::initialize();
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

void CuboidcutSelection::setSelectedPointInfo(float x, float y, float z)
{
    moveCentreToTyped({x, y, z});
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

int CuboidcutSelection::mousePressEvent(QMouseEvent* event)
{
    if (!graphicObject)
        return 0;
    lastPos = event->pos();
    if (isFrozen() || event->button() != Qt::LeftButton)
        return 0;
    if (auto const handle =
            handleAt(*m_view, event->pos(), getCuboid()->getProperty().getKeyPoints()))
        beginDrag(*handle, putBack());
    return 0;
}

int CuboidcutSelection::mouseMoveEvent(QMouseEvent* event)
{
    if (isDragging && !isFrozen())
        dragMoveMouseLeft(worldDelta(event->pos()), event);
    lastPos = event->pos();
    if (isFrozen())
        return 0;
    auto const handle = handleAt(*m_view, event->pos(), getCuboid()->getProperty().getKeyPoints());
    if (handle)
        showCursor(*handle == CUBOID_CORNER ? "cursor_2drotate" : "cursor_freecutmove");
    else if (!isDragging)
        showCursor("cursor_cuboidcut");
    return 0;
}

int CuboidcutSelection::mouseReleaseEvent(QMouseEvent* event)
{
    lastPos = event->pos();
    if (isDragging) {
        isDragging = false;
        edits()->edited();
        return 1;
    }
    selectedIndex = 0;
    if (event->button() == Qt::LeftButton && !isInPreview())
        addPointOfCuboidCut(eyePointUnder(event->pos()));
    return 1;
}

}  // namespace Freecut

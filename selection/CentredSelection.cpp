// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/CentredSelection.h"

#include "selection/EditHistory.h"

#include <QMouseEvent>

namespace Freecut {

void CentredSelection::initialize()
{
    showCursor(ownCursor());
    PointPickerMesh::initialize();
}

char const* CentredSelection::cursorOver(int) const
{
    return "cursor_freecutmove";
}

void CentredSelection::setSelectedPointInfo(float x, float y, float z)
{
    moveCentreToTyped({x, y, z});
}

int CentredSelection::mousePressEvent(QMouseEvent* event)
{
    lastPos = event->pos();
    if (isFrozen() || event->button() != Qt::LeftButton)
        return 0;
    if (auto const part = partUnder(event->pos()))
        beginDrag(*part, putBack());
    return 0;
}

int CentredSelection::mouseMoveEvent(QMouseEvent* event)
{
    if (isDragging && !isFrozen())
        dragMoveMouseLeft(worldDelta(event->pos()), event);
    lastPos = event->pos();
    if (isFrozen())
        return 0;
    if (auto const part = partUnder(event->pos()))
        showCursor(cursorOver(*part));
    else if (!isDragging)
        showCursor(ownCursor());
    return 0;
}

int CentredSelection::mouseReleaseEvent(QMouseEvent* event)
{
    lastPos = event->pos();
    if (isDragging) {
        isDragging = false;
        edits()->edited();
        return 1;
    }
    selectedIndex = 0;
    if (event->button() == Qt::LeftButton && !isInPreview())
        addPoint(eyePointUnder(event->pos()));
    return 1;
}

}  // namespace Freecut

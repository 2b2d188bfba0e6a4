// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/MovedPoint.h"

#include "dialogs/PlaneFields.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "tools/ViewAxes.h"

#include <utility>

namespace Freecut {

void MovedPoint::show(std::optional<Point> const& point) const
{
    if (!point)
        return;
    for (int axis = 0; axis < 3; ++axis) {
        MellQuantitySpinBox* const field = m_fields[std::size_t(axis)];
        field->setValue(field->isEnabledTo(&m_dialog) ? double((*point)[axis]) : 0.0);
    }
}

void MovedPoint::takeTyped(std::function<std::optional<Point>()> const& shown, int viewIndex,
                           std::function<void(Point const&)> const& move)
{
    // A message that tells of a refusal takes the focus, which ends the editing once more.
    if (m_isMoving)
        return;
    std::optional<Point> const point = shown();
    Point const typed = PlaneFields::pointIn(m_fields);
    // The focus alone, which also ends an editing, moves nothing.
    if (!point || movedAcrossView(*point, typed, viewIndex) == *point)
        return;
    m_isMoving = true;
    move(typed);
    m_isMoving = false;
    show(shown());
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>
#include <functional>
#include <optional>

class MellQuantitySpinBox;
class QWidget;

namespace Freecut {

/// The fields for the coordinates of the selected point of a tool, through which it is moved too.
class MovedPoint
{
public:
    using Point = UPoint3<float>;
    using Fields = std::array<MellQuantitySpinBox*, 3>;

    /// dialog  whose fields they are, borrowed like them
    /// fields  for x, y and z; those that are disabled within the dialog show 0
    MovedPoint(QWidget const& dialog, Fields const& fields) : m_dialog(dialog), m_fields(fields) {}

    /// Without a point the fields stay as they are.
    void show(std::optional<Point> const& point) const;
    /// A field has been left: moves the point to what is typed if this is elsewhere. Fields whose
    /// point was not moved, which the user has been told, show it where it is.
    ///
    /// shown      asked for the point, before and after
    /// viewIndex  of which two coordinates count
    void takeTyped(std::function<std::optional<Point>()> const& shown, int viewIndex,
                   std::function<void(Point const&)> const& move);

private:
    QWidget const& m_dialog;
    Fields m_fields;
    bool m_isMoving = false;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "platform/geometry/UVector3.h"

#include <QPoint>

#include <optional>
#include <vector>

namespace Base {
class GLView;
}

/// Three arrows along the axes and three rings about them, by which something is moved and turned
/// with the mouse. They have the same size on the screen however near the view is.
///
/// thread  the user interface thread; nothing here needs a context
class HandleShape
{
public:
    /// 0, 1, 2 the arrows along x, y and z; 3, 4, 5 the rings about them.
    static constexpr int count = 6;
    static bool isRing(int handle) { return handle >= 3; }
    static int axisOf(int handle) { return handle % 3; }

    /// pivot  where the axes meet, in world millimetres
    HandleShape(Base::GLView const& view, UPoint3<float> const& pivot);

    /// Pairs of ends; none for an arrow that is seen from its end, and for a ring from its edge.
    std::vector<UPoint3<float>> lines(int handle) const;
    /// The handle under a widget position; -1 beside them.
    int at(QPoint position) const;

    /// The place under a widget position by a handle: millimetres along the axis from the pivot, or
    /// degrees by the right-hand rule. None where the handle does not tell it.
    std::optional<double> valueAt(int handle, QPoint position) const;

private:
    bool isUsable(int handle) const;

    Base::GLView const& m_view;
    UPoint3<double> m_pivot;
    double m_reach;
    UVector3<double> m_sight;
};

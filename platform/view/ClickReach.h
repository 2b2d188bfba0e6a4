// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>

/// Whether the mouse has gone so far from its press, in pixels independent of the device pixel
/// ratio, that it drags: more than three in either direction.
inline bool isBeyondClick(QPoint way)
{
    constexpr int clickReach = 3;
    return qAbs(way.x()) > clickReach || qAbs(way.y()) > clickReach;
}

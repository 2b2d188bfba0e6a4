// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UVector3.h"

#include <cmath>

/// From where a standard view looks, and what is up in it; unit vectors.
struct StandardView
{
    UVector3<double> direction;
    UVector3<double> up;

    UVector3<double> right() const { return up * direction; }
};

/// By the numbers of Base::GLView::OnViewType: the six faces of a cube, and isometric.
inline StandardView const standardViews[] = {
    {{0, -1, 0}, {0, 0, 1}},
    {{0, 1, 0}, {0, 0, 1}},
    {{0, 0, 1}, {0, 1, 0}},
    {{0, 0, -1}, {0, -1, 0}},
    {{-1, 0, 0}, {0, 0, 1}},
    {{1, 0, 0}, {0, 0, 1}},
    {{std::sqrt(1.0 / 3), -std::sqrt(1.0 / 3), std::sqrt(1.0 / 3)}, {0, 0, 1}}};

inline constexpr int faceViews = 6;
inline constexpr int isometricView = 6;

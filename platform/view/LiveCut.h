// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

/// A plane whose lines on the parts a view shows.
struct SectionPlane
{
    /// World millimetres.
    UPoint3<float> point;
    /// Of any length; without one there are no lines.
    UVector3<float> normal;

    bool operator==(SectionPlane const&) const = default;
};

/// A plane by which a view cuts the parts open, for the eye alone: their meshes stay whole.
struct LiveCut
{
    /// World millimetres.
    UPoint3<float> point;
    /// Unit vector; the side that it points to is not shown.
    UVector3<float> normal = {0, 0, 1};
    /// The parts are shown solid: what is open at the plane is filled.
    bool hasCaps = true;

    bool operator==(LiveCut const&) const = default;
};

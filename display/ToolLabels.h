// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QString>

#include <vector>

namespace Base {
class GLView;
}

namespace Freecut {

class CentredGraphicObject;
class TLabel;

/// A label and the world point beside which it stands. The label is borrowed, and may be null.
struct LabelledPoint
{
    TLabel* label;
    UPoint3<float> point;
};

/// The two coordinates that a standard view leaves free, in the unit of the interface, such as
/// "[X:1.500,Y:2.000]".
///
/// viewIndex  0 to 5
QString coordinateText(UPoint3<float> const& point, int viewIndex);

/// None while the tool has no centre.
std::vector<LabelledPoint> labelAtCentre(CentredGraphicObject& tool);

/// Puts the labels beside their points, with the coordinates.
void showLabels(std::vector<LabelledPoint> const& points, Base::GLView const& view, int viewIndex);
void hideLabels(std::vector<LabelledPoint> const& points);

}  // namespace Freecut

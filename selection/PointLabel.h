// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

class QWidget;

namespace Freecut {

class PolygonGraphicObject;
class TLabel;
class VolumeGraphicObject;

/// The labels of a tool's points. The style of a label is the record of whether its point is
/// selected.
namespace PointLabel {

/// A label of the tool in the view, with the selected style; the caller hands it to the tool.
TLabel* make(VolumeGraphicObject& tool, QWidget* view);

/// The vertex whose label has the selected style, the first one if there are several.
std::optional<std::size_t> selectedVertex(PolygonGraphicObject const& polygon);

/// Gives all labels of a polygon the other style.
void unselectAll(PolygonGraphicObject& polygon);

}  // namespace PointLabel

}  // namespace Freecut

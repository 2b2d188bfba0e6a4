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

// Each vertex has a number that grows from one to the next as they are drawn. Its label bears it.

std::vector<int> numbersOf(PolygonGraphicObject const& polygon);
/// Numbers a label after all others of the polygon.
void numberAsNewest(TLabel& label, PolygonGraphicObject const& polygon);
/// The vertex that was drawn last.
std::optional<std::size_t> newestVertex(PolygonGraphicObject const& polygon);

/// Gives each vertex a label with its number, and selects one of them.
void renew(PolygonGraphicObject& polygon, QWidget* view, std::vector<int> const& numbers,
           std::size_t selected);

}  // namespace PointLabel

}  // namespace Freecut

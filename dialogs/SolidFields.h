// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MellQuantitySpinBox;
class QCheckBox;
class QWidget;

/// The number fields of the dialogs of drawn tools.
namespace Freecut::SolidFields {

constexpr double farthest = 1e7;

/// A length that may not vanish.
MellQuantitySpinBox* makeLength(QWidget* parent, double initial);
/// A length from zero on.
MellQuantitySpinBox* makeWay(QWidget* parent, double initial);
/// A coordinate in the world.
MellQuantitySpinBox* makeCoordinate(QWidget* parent);
/// Degrees, once around in both directions.
MellQuantitySpinBox* makeAngle(QWidget* parent);

/// The field is enabled while the box is checked and enabled.
void followCheck(QCheckBox* box, QWidget* field);

}  // namespace Freecut::SolidFields

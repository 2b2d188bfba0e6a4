// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorLimits.h"

class MellQuantitySpinBox;
class QPixmap;
class QString;
class QWidget;

/// The fields that the pages of connector parameters are made of.
namespace Freecut::ConnectorFields {

/// A right aligned field for a length, with that length's initial value, limits and step.
MellQuantitySpinBox* make(ConnectorLimits::Length const& length, QWidget* parent);

/// Shows the stored value of a length, or its initial one.
void load(MellQuantitySpinBox& field, ConnectorLimits::Length const& length);
void store(MellQuantitySpinBox const& field, ConnectorLimits::Length const& length);

/// A picture of the resources, scaled to a share of the interface's size with its proportions kept.
///
/// file           such as ":/icons/icons/cut_pin.png"
/// width, height  factors of g_pixelSize; the products are truncated
QPixmap picture(QString const& file, double width, double height);

}  // namespace Freecut::ConnectorFields

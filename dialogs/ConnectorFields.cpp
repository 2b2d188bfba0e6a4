// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ConnectorFields.h"

#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

#include <QPixmap>

namespace Freecut::ConnectorFields {

MellQuantitySpinBox* make(ConnectorLimits::Length const& length, QWidget* parent)
{
    auto* const field = new MellQuantitySpinBox(parent);
    field->setUnit(Base::Unit(Base::Unit::length));
    field->setAlignment(Qt::AlignRight);
    field->setRange(length.least, length.largest);
    field->setSingleStep(length.step);
    field->setValue(length.initial);
    return field;
}

void load(MellQuantitySpinBox& field, ConnectorLimits::Length const& length)
{
    float const value = storedValue(length.key, length.initial).toFloat();
    field.setValue(double(value));
}

void store(MellQuantitySpinBox const& field, ConnectorLimits::Length const& length)
{
    storeValue(length.key, field.value());
}

QPixmap picture(QString const& file, double width, double height)
{
    return QPixmap(file).scaled(int(g_pixelSize * width), int(g_pixelSize * height),
                                Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace Freecut::ConnectorFields

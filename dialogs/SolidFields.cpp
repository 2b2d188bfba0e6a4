// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SolidFields.h"

#include "dialogs/NumberPattern.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "tools/ToolLimits.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRegExpValidator>

namespace Freecut::SolidFields {

namespace {

MellQuantitySpinBox* makeField(QWidget* parent, Base::Unit const& unit, double least, double most)
{
    auto* const field = new MellQuantitySpinBox(parent);
    field->setUnit(unit);
    field->setAlignment(Qt::AlignRight);
    field->setRange(least, most);
    // As many as may be typed; a text with more would be refused.
    field->setDecimals(3);
    return field;
}

}  // namespace

MellQuantitySpinBox* makeLength(QWidget* parent, double initial)
{
    MellQuantitySpinBox* const field =
        makeField(parent, Base::Unit::length, ToolLimits::leastLength, farthest);
    field->lineEdit()->setValidator(NumberPattern::makeUnsigned(field));
    field->setValue(initial);
    return field;
}

MellQuantitySpinBox* makeWay(QWidget* parent, double initial)
{
    MellQuantitySpinBox* const field = makeLength(parent, initial);
    field->setMinimum(0);
    field->setValue(initial);
    return field;
}

MellQuantitySpinBox* makeCoordinate(QWidget* parent)
{
    MellQuantitySpinBox* const field = makeField(parent, Base::Unit::length, -farthest, farthest);
    field->lineEdit()->setValidator(NumberPattern::makeSigned(field));
    return field;
}

MellQuantitySpinBox* makeAngle(QWidget* parent)
{
    return makeField(parent, Base::Unit::none, -ToolLimits::largestAngle, ToolLimits::largestAngle);
}

void followCheck(QCheckBox* box, QWidget* field)
{
    field->setEnabled(box->isChecked() && box->isEnabled());
}

}  // namespace Freecut::SolidFields

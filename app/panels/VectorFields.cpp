// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/VectorFields.h"

#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"

#include <QLabel>
#include <QSignalBlocker>

VectorFields::VectorFields(Base::Unit const& unit, double range, QWidget* parent) : QWidget(parent)
{
    auto* const layout = new MellGridLayout(this);
    for (int axis = 0; axis < 3; ++axis) {
        auto* const field = new MellQuantitySpinBox(this);
        field->setUnit(unit);
        field->setRange(-range, range);
        QString const name(QChar('X' + axis));
        field->setAccessibleName(name);
        auto* const label = new QLabel(name, this);
        label->setBuddy(field);
        layout->addWidget(label, axis, 0);
        layout->addWidget(field, axis, 1);
        connect(field, &MellQuantitySpinBox::valueChanged, this, &VectorFields::edited);
        m_fields[std::size_t(axis)] = field;
    }
    layout->setColumnStretch(1, 1);
}

UVector3<double> VectorFields::values() const
{
    return {m_fields[0]->value(), m_fields[1]->value(), m_fields[2]->value()};
}

void VectorFields::setValues(UVector3<double> const& values)
{
    for (int axis = 0; axis < 3; ++axis) {
        QSignalBlocker const blocker(m_fields[std::size_t(axis)]);
        m_fields[std::size_t(axis)]->setValue(values[axis]);
    }
}

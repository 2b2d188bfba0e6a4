// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/ScaleFields.h"

#include "app/panels/VectorFields.h"
#include "app/parts/PartPlacement.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"

#include <QCheckBox>
#include <QLabel>

namespace {

constexpr double largestSizeMm = 1e7;

}  // namespace

ScaleFields::ScaleFields(QWidget* parent)
    : QWidget(parent),
      m_size(new VectorFields(Base::Unit::length, largestSizeMm, this)),
      m_proportions(new QCheckBox(this)),
      m_percentLabel(new QLabel(this)),
      m_percent(new MellQuantitySpinBox(this)),
      m_scale(new PushButtonAnimate({}, this))
{
    m_proportions->setChecked(true);
    m_percent->setUnit(Base::Unit::none);
    m_percent->setRange(100 * PartPlacement::smallestFactor, 100 * PartPlacement::largestFactor);
    m_percent->setSingleStep(10);
    m_percent->setDecimals(2);
    m_percent->setValue(100);
    m_percentLabel->setBuddy(m_percent);
    auto* const percentRow = new MellHBoxLayout;
    percentRow->addWidget(m_percentLabel);
    percentRow->addWidget(m_percent, 1);
    auto* const layout = new MellVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_size);
    layout->addWidget(m_proportions);
    layout->addLayout(percentRow);
    layout->addWidget(m_scale);
    for (int axis = 0; axis < 3; ++axis) {
        m_size->field(axis).setMinimum(0);
        connect(&m_size->field(axis), &MellQuantitySpinBox::valueChanged, this,
                [this, axis] { sizeEdited(axis); });
    }
    connect(m_scale, &QPushButton::clicked, this, [this] {
        double const factor = m_percent->value() / 100;
        emit wanted({factor, factor, factor});
    });
}

void ScaleFields::showSize(UVector3<double> const& size)
{
    m_shown = size;
    m_size->setValues(size);
}

// A size that parts cannot have, as that of a flat part across its plane, is shown no longer.
void ScaleFields::sizeEdited(int axis)
{
    double const factor = m_size->field(axis).value() / m_shown[axis];
    UVector3<double> factors(1, 1, 1);
    for (int i = 0; i < 3; ++i)
        if (i == axis || m_proportions->isChecked())
            factors[i] = factor;
    emit wanted(factors);
}

void ScaleFields::retranslate()
{
    m_proportions->setText(tr("Keep proportions"));
    m_proportions->setToolTip(tr("A size along one axis scales the others by the same factor."));
    m_percentLabel->setText(tr("Percent"));
    m_percent->setAccessibleName(tr("Percent of the present size"));
    m_scale->setText(tr("Scale"));
    m_scale->setToolTip(tr("Scale to this share of the present size, along all axes."));
}

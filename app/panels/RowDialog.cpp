// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/RowDialog.h"

#include "app/panels/QuestionForm.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/StoredSettings.h"

#include <QComboBox>
#include <QFormLayout>

#include <algorithm>

namespace {

constexpr char copiesKey[] = "/Row/copies";
constexpr char axisKey[] = "/Row/axis";
constexpr char gapKey[] = "/Row/gapMm";
constexpr double largestGapMm = 1e6;

}  // namespace

RowDialog::RowDialog(QWidget* parent)
    : QDialog(parent),
      m_copies(new MellSpinBox(this)),
      m_axis(new QComboBox(this)),
      m_gap(new MellQuantitySpinBox(this))
{
    setWindowTitle(tr("Duplicate in a Row"));
    m_copies->setObjectName(QStringLiteral("Copies"));
    m_copies->setRange(1, PartRow::mostCopies);
    for (char const axis : {'X', 'Y', 'Z'})
        m_axis->addItem(QString(QLatin1Char(axis)));
    m_gap->setUnit(Base::Unit::length);
    m_gap->setRange(-largestGapMm, largestGapMm);
    m_gap->setToolTip(tr("Between one and the next; below zero they overlap."));
    auto* const form = new QFormLayout;
    form->addRow(tr("Copies"), m_copies);
    form->addRow(tr("Along"), m_axis);
    form->addRow(tr("Gap"), m_gap);
    layOutQuestion(*this, form, tr("Duplicate"), tr("Cancel"));
    restore();
}

void RowDialog::restore()
{
    PartRow::Row const usual;
    m_copies->setValue(storedValue(QLatin1String(copiesKey), usual.copies).toInt());
    m_axis->setCurrentIndex(std::clamp(storedValue(QLatin1String(axisKey), 0).toInt(), 0, 2));
    m_gap->setValue(storedValue(QLatin1String(gapKey), usual.gapMm).toDouble());
}

PartRow::Row RowDialog::row() const
{
    return {m_copies->value(), m_axis->currentIndex(), m_gap->value()};
}

void RowDialog::accept()
{
    PartRow::Row const chosen = row();
    storeValue(QLatin1String(copiesKey), chosen.copies);
    storeValue(QLatin1String(axisKey), chosen.axis);
    storeValue(QLatin1String(gapKey), chosen.gapMm);
    QDialog::accept();
}

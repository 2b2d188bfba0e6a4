// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/HeightCutDialog.h"

#include "platform/services/HeightSlices.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MellLineEdit.h"
#include "platform/ui/MellQuantitySpinBox.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <cmath>

HeightCutDialog::HeightCutDialog(UBox3<float> const& box, double height, QWidget* parent)
    : QDialog(parent),
      m_box(box),
      m_atHeights(new QRadioButton(tr("At these heights"), this)),
      m_every(new QRadioButton(tr("From the bottom, every"), this)),
      m_heights(new MellLineEdit(this)),
      m_distance(new MellQuantitySpinBox(this)),
      m_keep(new QComboBox(this)),
      m_summary(new QLabel(this))
{
    setObjectName(QStringLiteral("HeightCutDialog"));
    setWindowTitle(tr("Cut at Heights"));
    build();
    constexpr int decimals = 3;
    m_heights->setText(QLocale().toString(
        std::round(height * 1e3 / DisplayUnit::instance().millimetres()) / 1e3, 'g', 10));
    m_distance->setUnit(Base::Unit::length);
    m_distance->setDecimals(decimals);
    // As thirds, for a start.
    m_distance->setValue(std::round((double(box.MaxZ()) - double(box.MinZ())) / 3 * 10) / 10);
    m_atHeights->setChecked(true);
    m_heights->selectAll();
    m_heights->setFocus();
    connect(m_heights, &QLineEdit::textChanged, this, &HeightCutDialog::refresh);
    connect(m_distance, &MellQuantitySpinBox::valueChanged, this, &HeightCutDialog::refresh);
    connect(m_every, &QAbstractButton::toggled, this, &HeightCutDialog::refresh);
    connect(m_keep, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &HeightCutDialog::refresh);
    refresh();
}

void HeightCutDialog::build()
{
    m_heights->setToolTip(tr("Numbers with blanks or semicolons between them."));
    m_keep->addItem(tr("All pieces"));
    m_keep->addItem(tr("The uppermost piece alone"));
    m_keep->addItem(tr("The lowest piece alone"));
    m_summary->setWordWrap(true);
    m_summary->setObjectName(QStringLiteral("HeightSummary"));
    auto* const form = new QFormLayout;
    form->addRow(m_atHeights, m_heights);
    form->addRow(m_every, m_distance);
    form->addRow(tr("Keep"), m_keep);
    auto* const buttons = new QDialogButtonBox(this);
    m_cut = buttons->addButton(tr("Cut"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(m_summary);
    column->addWidget(buttons);
    setMinimumWidth(fontMetrics().height() * 26);
}

std::vector<double> HeightCutDialog::heightsIn(QString const& text, QString& wrong)
{
    std::vector<double> heights;
    wrong.clear();
    static QRegularExpression const gaps(QStringLiteral("[\\s;]+"));
    for (QString const& word : text.split(gaps, Qt::SkipEmptyParts)) {
        bool isNumber = false;
        double value = word.toDouble(&isNumber);
        if (!isNumber)
            value = QLocale().toDouble(word, &isNumber);
        if (!isNumber || !std::isfinite(value)) {
            wrong = word;
            return {};
        }
        heights.push_back(value * DisplayUnit::instance().millimetres());
    }
    return heights;
}

std::vector<double> HeightCutDialog::heights(QString& wrong) const
{
    wrong.clear();
    return HeightSlices::within(m_box, m_every->isChecked()
                                           ? HeightSlices::everyDistance(m_box, m_distance->value())
                                           : heightsIn(m_heights->text(), wrong));
}

HeightCut::Plan HeightCutDialog::plan() const
{
    QString wrong;
    return {heights(wrong), HeightCut::Keep(m_keep->currentIndex())};
}

void HeightCutDialog::refresh()
{
    m_heights->setEnabled(m_atHeights->isChecked());
    m_distance->setEnabled(m_every->isChecked());
    QString wrong;
    std::size_t const count = heights(wrong).size();
    bool const isTooMany = count >= HeightSlices::mostHeights;
    m_cut->setEnabled(count > 0 && !isTooMany);
    if (!wrong.isEmpty())
        m_summary->setText(tr("\"%1\" is no number.").arg(wrong));
    else if (isTooMany)
        m_summary->setText(tr("These are too many cuts at once. Take a larger distance."));
    else if (count == 0)
        m_summary->setText(tr("No height goes through the parts."));
    else
        m_summary->setText(tr("%n heights go through the parts.", nullptr, int(count)));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartRow.h"

#include <QDialog>

class MellQuantitySpinBox;
class MellSpinBox;
class QComboBox;

/// Asks how many copies are to stand in a row, along which axis and how far apart. The answers are
/// remembered.
class RowDialog : public QDialog
{
    Q_OBJECT

public:
    explicit RowDialog(QWidget* parent);

    PartRow::Row row() const;

    void accept() override;

private:
    void restore();

    MellSpinBox* m_copies;
    QComboBox* m_axis;
    MellQuantitySpinBox* m_gap;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

/// A spin box for whole numbers. The wheel changes it only while it has the focus.
class MellSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit MellSpinBox(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

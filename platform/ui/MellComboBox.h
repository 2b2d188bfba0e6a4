// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>

/// A choice from a list. The wheel changes it only while it has the focus, and scrolls what it
/// stands on otherwise.
class MellComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit MellComboBox(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

/// A thin horizontal line between groups.
class SeparateLine : public QFrame
{
    Q_OBJECT

public:
    explicit SeparateLine(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

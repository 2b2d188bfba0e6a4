// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

/// A line of text that takes the width it is given: what has no room ends in dots, and all of it is
/// told in a tip. Rich text is not shortened.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool isCut() const;
};

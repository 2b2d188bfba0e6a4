// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

/// A frame over a widget that says what a drop there would do, while files hover over the window.
class DropHighlight : public QWidget
{
    Q_OBJECT

public:
    explicit DropHighlight(QWidget& over);

    /// Files that a drop would open, or else, with 0, none.
    void setFiles(int count);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_count = 0;
};

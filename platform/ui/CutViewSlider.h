// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollBar>

/// The slider for the position of a plane, horizontal at first. It takes the focus and the
/// keyboard: arrows move by a single step, page keys by a tenth of the range.
class CutViewSlider : public QScrollBar
{
    Q_OBJECT

public:
    explicit CutViewSlider(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void sliderChange(SliderChange change) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    double share() const;
    int valueAt(QPoint const& place) const;
    QRectF knob() const;

    bool m_isDragged = false;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

/// An upright scale in the display unit, with a handle at the height of Base::MellViewSlider. The
/// handle is dragged, and moved by the wheel, by Up and Down, by the page keys ten times as far,
/// and by Home and End. It stays within the slider's range; a height outside it is shown at the
/// end.
class HeightScale : public QWidget
{
    Q_OBJECT

public:
    explicit HeightScale(QWidget* parent = nullptr);

    /// Millimetres that Up and Down move by.
    static double step();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The place of a height along the widget, in pixels from above.
    double placeOf(double height) const;

signals:
    /// The user is dragging the handle, or has let it go.
    void dragged(bool isDragging);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double heightAt(int place) const;
    void moveTo(double height);
    /// The ticks of the scale, in the display unit.
    struct Ticks
    {
        double low;
        double high;
        /// Between labels.
        double major;
        /// Short ticks to a label.
        int parts;
        int decimals;
    };
    Ticks ticks() const;
    int widthForLabels() const;
    void paintTicks(QPainter& painter) const;
    void paintHandle(QPainter& painter) const;

    bool m_isDragging = false;
};

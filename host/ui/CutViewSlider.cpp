// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/CutViewSlider.h"

#include "platform/ui/Theme.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr double knobSize = 1.2;
constexpr double grooveSize = 0.3;

}  // namespace

CutViewSlider::CutViewSlider(QWidget* parent) : QScrollBar(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    // Up is more, as for a height; a scroll bar's Up goes back.
    setInvertedControls(false);
}

QSize CutViewSlider::sizeHint() const
{
    int const across = themePixels("controlHeight");
    QSize const size(across * 4, across);
    return orientation() == Qt::Horizontal ? size : size.transposed();
}

void CutViewSlider::sliderChange(SliderChange change)
{
    QScrollBar::sliderChange(change);
    if (change == SliderRangeChange)
        setPageStep(std::max(1, (maximum() - minimum()) / 10));
    update();
}

double CutViewSlider::share() const
{
    double const range = double(maximum()) - minimum();
    double const part = range > 0 ? (sliderPosition() - minimum()) / range : 0;
    return orientation() == Qt::Horizontal ? part : 1 - part;
}

QRectF CutViewSlider::knob() const
{
    double const size = knobSize * g_pixelSize;
    bool const isFlat = orientation() == Qt::Horizontal;
    double const along = share() * ((isFlat ? width() : height()) - size);
    double const across = ((isFlat ? height() : width()) - size) / 2;
    return isFlat ? QRectF(along, across, size, size) : QRectF(across, along, size, size);
}

int CutViewSlider::valueAt(QPoint const& place) const
{
    double const size = knobSize * g_pixelSize;
    bool const isFlat = orientation() == Qt::Horizontal;
    double const room = std::max(1.0, (isFlat ? width() : height()) - size);
    double const part = std::clamp(((isFlat ? place.x() : place.y()) - size / 2) / room, 0.0, 1.0);
    double const range = double(maximum()) - minimum();
    return qRound(minimum() + (isFlat ? part : 1 - part) * range);
}

void CutViewSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    double const thick = grooveSize * g_pixelSize;
    bool const isFlat = orientation() == Qt::Horizontal;
    QRectF const room(rect());
    QRectF const groove = isFlat ? QRectF(0, (room.height() - thick) / 2, room.width(), thick)
                                 : QRectF((room.width() - thick) / 2, 0, thick, room.height());
    QRectF filled = groove;
    QRectF const handle = knob();
    isFlat ? filled.setRight(handle.center().x()) : filled.setTop(handle.center().y());
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor("border"));
    painter.drawRoundedRect(groove, thick / 2, thick / 2);
    QColor const accent = themeColor(!isEnabled()   ? "disabledText"
                                     : m_isDragged  ? "accentPressed"
                                     : underMouse() ? "accentHover"
                                                    : "accent");
    painter.setBrush(accent);
    painter.drawRoundedRect(filled, thick / 2, thick / 2);
    painter.drawEllipse(handle.adjusted(1, 1, -1, -1));
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(themeColor("surface"), 2));
        painter.drawEllipse(handle.adjusted(3.5, 3.5, -3.5, -3.5));
    }
}

void CutViewSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_isDragged = true;
    setSliderDown(true);
    setSliderPosition(valueAt(event->pos()));
}

void CutViewSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isDragged)
        setSliderPosition(valueAt(event->pos()));
}

void CutViewSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_isDragged)
        return event->ignore();
    m_isDragged = false;
    setSliderDown(false);
    update();
}

void CutViewSlider::wheelEvent(QWheelEvent* event)
{
    // The wheel scrolls the page unless the user works with this very slider.
    if (hasFocus())
        QScrollBar::wheelEvent(event);
    else
        event->ignore();
}

void CutViewSlider::contextMenuEvent(QContextMenuEvent* event)
{
    // The menu of a scroll bar speaks of scrolling.
    event->accept();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/HeightScale.h"

#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/ui/Theme.h"

#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

/// In base sizes of the interface.
constexpr double labelDistance = 3;
constexpr double margin = 0.9;
constexpr double longTick = 0.6;
constexpr double shortTick = 0.3;
constexpr double widgetWidth = 5;
constexpr double gap = 0.3;
/// Pixels between short ticks, at least.
constexpr double tickDistance = 5;

Base::MellViewSlider& slider()
{
    return *Base::MellViewSlider::instance();
}

/// 1, 2 or 5 times a power of ten, not below a value.
double roundedUp(double value)
{
    double const power = std::pow(10, std::floor(std::log10(value)));
    for (double const factor : {1, 2, 5})
        if (factor * power >= value * (1 - 1e-9))
            return factor * power;
    return 10 * power;
}

/// The power of ten not above a value.
double powerBelow(double value)
{
    return std::pow(10, std::floor(std::log10(value) + 1e-9));
}

}  // namespace

HeightScale::HeightScale(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    auto const repaint = QOverload<>::of(&QWidget::update);
    connect(&slider(), &Base::MellViewSlider::heightChanged, this, repaint);
    auto const remeasure = [this] {
        updateGeometry();
        update();
    };
    connect(&slider(), &Base::MellViewSlider::rangeChanged, this, remeasure);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, remeasure);
}

double HeightScale::step()
{
    return DisplayUnit::instance().length() == DisplayUnit::Inch ? 0.254 : 0.1;
}

QSize HeightScale::sizeHint() const
{
    return {widthForLabels(), 20 * g_pixelSize};
}

QSize HeightScale::minimumSizeHint() const
{
    return {widthForLabels(), 8 * g_pixelSize};
}

double HeightScale::placeOf(double height) const
{
    double const low = slider().getMinimum(), high = slider().getMaximum();
    double const share = high > low ? std::clamp((height - low) / (high - low), 0.0, 1.0) : 0;
    double const ends = margin * g_pixelSize;
    return this->height() - ends - share * (this->height() - 2 * ends);
}

double HeightScale::heightAt(int place) const
{
    double const low = slider().getMinimum(), high = slider().getMaximum();
    double const ends = margin * g_pixelSize;
    double const length = std::max(1.0, height() - 2 * ends);
    double const share = std::clamp((height() - ends - place) / length, 0.0, 1.0);
    if (share == 0 || share == 1 || high <= low)
        return share == 1 ? high : low;
    // As round a number as a pixel allows.
    double const unit = DisplayUnit::instance().millimetres();
    double const round = powerBelow((high - low) / unit / length) * unit;
    return std::clamp(std::round((low + share * (high - low)) / round) * round, low, high);
}

void HeightScale::moveTo(double height)
{
    double const low = slider().getMinimum(), high = slider().getMaximum();
    if (high > low)
        slider().setHeight(float(std::clamp(height, low, high)));
}

HeightScale::Ticks HeightScale::ticks() const
{
    double const unit = DisplayUnit::instance().millimetres();
    double const low = slider().getMinimum() / unit, high = slider().getMaximum() / unit;
    double const perPixel = (high - low) / std::max(1.0, height() - 2 * margin * g_pixelSize);
    double const major = roundedUp(perPixel * labelDistance * g_pixelSize);
    int parts = 10;
    while (parts > 1 && major / parts < perPixel * tickDistance)
        parts = parts == 10 ? 5 : parts == 5 ? 2 : 1;
    int const decimals = std::max(0, int(std::ceil(-std::log10(major) - 1e-9)));
    return {low, high, major, parts, decimals};
}

int HeightScale::widthForLabels() const
{
    double const least = widgetWidth * g_pixelSize;
    if (slider().getMaximum() <= slider().getMinimum())
        return int(least);
    Ticks const shown = ticks();
    int label = 0;
    for (double const end : {shown.low, shown.high})
        label = std::max(
            label, fontMetrics().horizontalAdvance(QLocale().toString(end, 'f', shown.decimals)));
    return int(std::ceil(std::max(least, label + (longTick + 3 * gap) * g_pixelSize)));
}

void HeightScale::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // More ticks find room, whose labels have more decimals.
    updateGeometry();
}

void HeightScale::paintTicks(QPainter& painter) const
{
    double const unit = DisplayUnit::instance().millimetres();
    auto const [low, high, major, parts, decimals] = ticks();
    double const right = width() - gap * g_pixelSize;
    double const minor = major / parts;
    long const first = std::lround(std::ceil(low / minor - 1e-6));
    long const last = std::lround(std::floor(high / minor + 1e-6));
    for (long i = first; i <= last; ++i) {
        double const place = std::round(placeOf(double(i) * minor * unit)) + 0.5;
        bool const isMajor = i % parts == 0;
        double const length = (isMajor ? longTick : shortTick) * g_pixelSize;
        painter.setPen(themeColor(isMajor ? "controlBorder" : "border"));
        painter.drawLine(QPointF(right - length, place), QPointF(right, place));
        // The handle covers what stands close to it.
        if (!isMajor || std::abs(place - placeOf(slider().getHeight())) < 1.1 * g_pixelSize)
            continue;
        painter.setPen(themeColor("mutedText"));
        QRectF const room(0, place - g_pixelSize, right - length - gap * g_pixelSize,
                          2 * g_pixelSize);
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter,
                         QLocale().toString(double(i) * minor + 0.0, 'f', decimals));
    }
}

void HeightScale::paintHandle(QPainter& painter) const
{
    double const place = placeOf(slider().getHeight());
    double const size = 0.55 * g_pixelSize;
    double const right = width() - gap * g_pixelSize;
    QColor const color = themeColor(m_isDragging   ? "accentPressed"
                                    : underMouse() ? "accentHover"
                                                   : "accent");
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 2));
    painter.drawLine(QPointF(gap * g_pixelSize, place), QPointF(right - size, place));
    // A pointer whose tip stands at the height.
    QPolygonF const pointer(QVector<QPointF>{
        QPointF(right + 1, place), QPointF(right - size, place - size),
        QPointF(right - 2.4 * size, place - size), QPointF(right - 2.4 * size, place + size),
        QPointF(right - size, place + size)});
    painter.setBrush(color);
    painter.setPen(QPen(themeColor(hasFocus() ? "text" : "surface"), 1));
    painter.drawPolygon(pointer);
}

void HeightScale::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    double const right = width() - gap * g_pixelSize;
    painter.setPen(themeColor("controlBorder"));
    double const ends = margin * g_pixelSize;
    painter.drawLine(QPointF(right + 0.5, ends), QPointF(right + 0.5, height() - ends));
    if (slider().getMaximum() <= slider().getMinimum())
        return;
    paintTicks(painter);
    paintHandle(painter);
}

void HeightScale::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_isDragging = true;
    emit dragged(true);
    moveTo(heightAt(event->pos().y()));
    update();
}

void HeightScale::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isDragging)
        moveTo(heightAt(event->pos().y()));
}

void HeightScale::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_isDragging)
        return event->ignore();
    m_isDragging = false;
    emit dragged(false);
    update();
}

void HeightScale::wheelEvent(QWheelEvent* event)
{
    moveTo(slider().getHeight() + step() * event->angleDelta().y() / 120);
    event->accept();
}

void HeightScale::keyPressEvent(QKeyEvent* event)
{
    double const height = slider().getHeight();
    switch (event->key()) {
        case Qt::Key_Up:
            return moveTo(height + step());
        case Qt::Key_Down:
            return moveTo(height - step());
        case Qt::Key_PageUp:
            return moveTo(height + 10 * step());
        case Qt::Key_PageDown:
            return moveTo(height - 10 * step());
        case Qt::Key_Home:
            return moveTo(slider().getMinimum());
        case Qt::Key_End:
            return moveTo(slider().getMaximum());
        default:
            QWidget::keyPressEvent(event);
    }
}

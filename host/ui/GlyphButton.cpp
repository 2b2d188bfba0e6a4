// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/GlyphButton.h"

#include "host/ui/StyleShapes.h"
#include "platform/ui/Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace {

/// A sign in a square from -1 to 1.
QPainterPath outlineOf(GlyphButton::Glyph glyph)
{
    QPainterPath path;
    switch (glyph) {
        case GlyphButton::Pin:
            path.addRect(QRectF(-0.45, -1, 0.9, 1.1));
            path.moveTo(-0.8, 0.1);
            path.lineTo(0.8, 0.1);
            path.moveTo(0, 0.1);
            path.lineTo(0, 1);
            break;
        case GlyphButton::Fold:
        case GlyphButton::Unfold: {
            double const up = glyph == GlyphButton::Fold ? -0.4 : 0.4;
            path.moveTo(-0.8, -up);
            path.lineTo(0, up);
            path.lineTo(0.8, -up);
            break;
        }
        case GlyphButton::Maximize:
            path.addRect(QRectF(-0.8, -0.8, 1.6, 1.6));
            break;
        case GlyphButton::Restore:
            path.addRect(QRectF(-0.8, -0.4, 1.2, 1.2));
            path.moveTo(-0.4, -0.4);
            path.lineTo(-0.4, -0.8);
            path.lineTo(0.8, -0.8);
            path.lineTo(0.8, 0.4);
            path.lineTo(0.4, 0.4);
            break;
        case GlyphButton::Close:
            path.moveTo(-0.7, -0.7);
            path.lineTo(0.7, 0.7);
            path.moveTo(0.7, -0.7);
            path.lineTo(-0.7, 0.7);
            break;
    }
    return path;
}

}  // namespace

GlyphButton::GlyphButton(Glyph glyph, QWidget* parent) : QAbstractButton(parent), m_glyph(glyph)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void GlyphButton::setGlyph(Glyph glyph)
{
    m_glyph = glyph;
    update();
}

void GlyphButton::setName(QString const& name)
{
    setToolTip(name);
    setAccessibleName(name);
}

QSize GlyphButton::sizeHint() const
{
    int const side = g_pixelSize * 2;
    return {side, side};
}

void GlyphButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isDown())
        StyleShapes::roundedBox(painter, rect(), themeColor("pressed"), {});
    else if (isEnabled() && underMouse())
        StyleShapes::roundedBox(painter, rect(), themeColor("hover"), {});
    if (hasFocus())
        StyleShapes::focusRing(painter, rect());

    QColor const colour = themeColor(!isEnabled()  ? "disabledText"
                                     : isChecked() ? "link"
                                                   : "mutedText");
    painter.translate(QRectF(rect()).center());
    if (m_glyph == Pin && !isChecked())
        painter.rotate(45);
    draw(painter, m_glyph, QRectF(), g_pixelSize * 0.42, QPen(colour, g_pixelSize / 9.0),
         isChecked() ? QBrush(colour) : QBrush(Qt::NoBrush));
}

void GlyphButton::draw(QPainter& painter, Glyph glyph, QRectF const& place, double reach,
                       QPen const& pen, QBrush const& brush)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center());
    painter.scale(reach, reach);
    painter.setPen(
        QPen(pen.color(), pen.widthF() / reach, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(brush);
    painter.drawPath(outlineOf(glyph));
    painter.restore();
}

// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/StyleShapes.h"

#include "platform/ui/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace {

using State = QStyle::StateFlag;

/// Restores the painter at the end of a shape.
class Brush
{
public:
    explicit Brush(QPainter& painter) : m_painter(painter)
    {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
    }
    ~Brush() { m_painter.restore(); }
    Brush(Brush const&) = delete;
    Brush& operator=(Brush const&) = delete;

private:
    QPainter& m_painter;
};

double cornerRadius()
{
    return binderTheme("cornerRadius").toDouble() * g_pixelSize;
}

QColor mixed(QColor const& from, QColor const& to, double share)
{
    auto const channel = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return QColor(channel(from.red(), to.red()), channel(from.green(), to.green()),
                  channel(from.blue(), to.blue()));
}

void hook(QPainter& painter, QRectF const& square, QColor const& colour)
{
    double const side = square.width();
    painter.setPen(QPen(colour, side / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(square.topLeft());
    painter.drawPolyline(QPolygonF(
        {{side * 0.23, side * 0.52}, {side * 0.42, side * 0.72}, {side * 0.77, side * 0.3}}));
}

QRectF squareIn(QRect const& room)
{
    double const side = std::min(room.width(), room.height()) - 1;
    QRectF square(0, 0, side, side);
    square.moveCenter(QRectF(room).center());
    return square;
}

/// Ground and edge of a check box or radio button.
struct IndicatorColours
{
    explicit IndicatorColours(QStyleOption const& option, bool isOn)
    {
        bool const isEnabled = option.state & State::State_Enabled;
        bool const isHovered = option.state & State::State_MouseOver;
        bool const isPressed = option.state & State::State_Sunken;
        if (!isEnabled) {
            fill = themeColor(isOn ? "border" : "window");
            edge = themeColor("border");
            mark = themeColor("mutedText");
        } else if (isOn) {
            fill = themeColor(isPressed ? "accentPressed" : isHovered ? "accentHover" : "accent");
            edge = fill;
            mark = themeColor("accentText");
        } else {
            fill = themeColor(isPressed ? "pressed" : isHovered ? "hover" : "base");
            edge = themeColor("controlBorder");
            mark = themeColor("text");
        }
    }

    QColor fill;
    QColor edge;
    QColor mark;
};

}  // namespace

namespace StyleShapes {

void chevron(QPainter& painter, QRectF const& room, Qt::Edge direction, QColor const& colour)
{
    Brush const brush(painter);
    double const reach = std::min({g_pixelSize * 0.5, room.width(), room.height()}) / 2;
    painter.translate(room.center());
    painter.rotate(direction == Qt::TopEdge     ? 180
                   : direction == Qt::LeftEdge  ? 90
                   : direction == Qt::RightEdge ? -90
                                                : 0);
    painter.setPen(QPen(colour, g_pixelSize / 9.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{-reach, -reach / 2}, {0, reach / 2}, {reach, -reach / 2}}));
}

void roundedBox(QPainter& painter, QRectF const& box, QColor const& fill, QColor const& edge)
{
    Brush const brush(painter);
    painter.setBrush(fill);
    painter.setPen(edge.isValid() ? QPen(edge, 1) : QPen(Qt::NoPen));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius(), cornerRadius());
}

void focusRing(QPainter& painter, QRectF const& box)
{
    Brush const brush(painter);
    painter.setPen(QPen(themeColor("focus"), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), cornerRadius(), cornerRadius());
}

void field(QPainter& painter, QStyleOption const& option)
{
    bool const isEnabled = option.state & State::State_Enabled;
    bool const isHovered = option.state & State::State_MouseOver;
    QColor const edge = themeColor(!isEnabled  ? "border"
                                   : isHovered ? "mutedText"
                                               : "controlBorder");
    roundedBox(painter, option.rect, option.palette.color(QPalette::Base), edge);
    if (isEnabled && option.state & State::State_HasFocus)
        focusRing(painter, option.rect);
}

void pushButton(QPainter& painter, QStyleOption const& option, QWidget const* widget)
{
    auto const* const button = qstyleoption_cast<QStyleOptionButton const*>(&option);
    bool const isEnabled = option.state & State::State_Enabled;
    bool const isFlat = button && button->features & QStyleOptionButton::Flat;
    bool const isMain =
        isEnabled && ((button && button->features & QStyleOptionButton::DefaultButton) ||
                      option.state & State::State_On);
    QVariant const fade = widget ? widget->property("hoverShare") : QVariant();
    double const hover =
        fade.isValid() ? fade.toDouble() : double(bool(option.state & State::State_MouseOver));
    QColor fill = mixed(themeColor(isMain   ? "accent"
                                   : isFlat ? "window"
                                            : "surface"),
                        themeColor(isMain ? "accentHover" : "hover"), isEnabled ? hover : 0);
    if (option.state & State::State_Sunken)
        fill = themeColor(isMain ? "accentPressed" : "pressed");
    if (!isEnabled)
        fill = themeColor("window");
    QColor const edge =
        isMain || isFlat ? fill : themeColor(isEnabled ? "controlBorder" : "border");
    roundedBox(painter, option.rect, fill, edge);
    if (option.state & State::State_HasFocus && option.state & State::State_KeyboardFocusChange)
        focusRing(painter, QRectF(option.rect));
}

void toolButton(QPainter& painter, QStyleOption const& option)
{
    bool const isEnabled = option.state & State::State_Enabled;
    bool const isOn = option.state & State::State_On;
    bool const isHovered = isEnabled && option.state & State::State_MouseOver;
    if (isOn)
        roundedBox(painter, option.rect, themeColor("selection"), themeColor("focus"));
    else if (option.state & State::State_Sunken)
        roundedBox(painter, option.rect, themeColor("pressed"), {});
    else if (isHovered)
        roundedBox(painter, option.rect, themeColor("hover"), {});
    if (option.state & State::State_HasFocus && option.state & State::State_KeyboardFocusChange)
        focusRing(painter, option.rect);
}

void checkBox(QPainter& painter, QStyleOption const& option)
{
    Brush const brush(painter);
    bool const isPartial = option.state & State::State_NoChange;
    bool const isOn = option.state & State::State_On || isPartial;
    IndicatorColours const colours(option, isOn);
    QRectF const box = squareIn(option.rect);
    painter.setBrush(colours.fill);
    painter.setPen(QPen(colours.edge, 1));
    painter.drawRoundedRect(box, cornerRadius() * 0.7, cornerRadius() * 0.7);
    if (!isOn)
        return;
    if (!isPartial)
        return hook(painter, box, colours.mark);
    double const quarter = box.width() / 4;
    painter.setPen(QPen(colours.mark, box.width() / 7, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(box.left() + quarter, box.center().y()),
                     QPointF(box.right() - quarter, box.center().y()));
}

void radioButton(QPainter& painter, QStyleOption const& option)
{
    Brush const brush(painter);
    bool const isOn = option.state & State::State_On;
    IndicatorColours const colours(option, isOn);
    QRectF const box = squareIn(option.rect);
    painter.setBrush(colours.fill);
    painter.setPen(QPen(colours.edge, 1));
    painter.drawEllipse(box);
    if (!isOn)
        return;
    double const inset = box.width() * 0.3;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.mark);
    painter.drawEllipse(box.adjusted(inset, inset, -inset, -inset));
}

void menuMark(QPainter& painter, QStyleOption const& option, bool isExclusive)
{
    if (!(option.state & State::State_On))
        return;
    Brush const brush(painter);
    QColor const colour = themeColor(option.state & State::State_Enabled ? "text" : "disabledText");
    QRectF square(0, 0, g_pixelSize * 1.2, g_pixelSize * 1.2);
    square.moveCenter(QRectF(option.rect).center());
    if (!isExclusive)
        return hook(painter, square, colour);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(square.center(), g_pixelSize * 0.25, g_pixelSize * 0.25);
}

void itemGround(QPainter& painter, QStyleOption const& option)
{
    auto const* const item = qstyleoption_cast<QStyleOptionViewItem const*>(&option);
    bool const isEnabled = option.state & State::State_Enabled;
    if (option.state & State::State_Selected)
        painter.fillRect(option.rect, themeColor(isEnabled ? "selection" : "hover"));
    else if (isEnabled && option.state & State::State_MouseOver)
        painter.fillRect(option.rect, themeColor("hover"));
    else if (item && item->backgroundBrush.style() != Qt::NoBrush)
        painter.fillRect(option.rect, item->backgroundBrush);
}

void progressBar(QPainter& painter, QStyleOption const& option)
{
    auto const* const bar = qstyleoption_cast<QStyleOptionProgressBar const*>(&option);
    if (!bar)
        return;
    Brush const brush(painter);
    QRectF const room = QRectF(option.rect);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor("border"));
    painter.drawRoundedRect(room, cornerRadius(), cornerRadius());
    double const range = double(bar->maximum) - bar->minimum;
    double const share = range > 0 ? (bar->progress - bar->minimum) / range : 1;
    QPainterPath shape;
    shape.addRoundedRect(room, cornerRadius(), cornerRadius());
    painter.setClipPath(shape);
    QRectF const done(room.topLeft(),
                      QSizeF(room.width() * std::clamp(share, 0.0, 1.0), room.height()));
    painter.fillRect(done, themeColor("accent"));
    if (!bar->textVisible)
        return;
    painter.setPen(themeColor("text"));
    painter.drawText(room, Qt::AlignCenter, bar->text);
    painter.setClipRect(done, Qt::IntersectClip);
    painter.fillRect(done, themeColor("accent"));
    painter.setPen(themeColor("accentText"));
    painter.drawText(room, Qt::AlignCenter, bar->text);
}

}  // namespace StyleShapes

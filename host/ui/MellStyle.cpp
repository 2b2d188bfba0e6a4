// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/MellStyle.h"

#include "host/ui/StyleShapes.h"
#include "platform/ui/Theme.h"

#include <QAction>
#include <QComboBox>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QToolButton>

#include <algorithm>

namespace {

QColor textColour(QStyleOption const& option, bool isActive = true)
{
    bool const isEnabled = option.state & QStyle::State_Enabled;
    return themeColor(isEnabled && isActive ? "text" : "disabledText");
}

}  // namespace

MellStyle::MellStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void MellStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    // The default delegate of a combo box does not ask the style for the height of its rows.
    auto* const box = qobject_cast<QComboBox*>(widget);
    if (box && box->itemDelegate()->inherits("QComboBoxDelegate"))
        box->setItemDelegate(new QStyledItemDelegate(box));
}

void MellStyle::drawPrimitive(PrimitiveElement element, QStyleOption const* option,
                              QPainter* painter, QWidget const* widget) const
{
    switch (element) {
        case PE_PanelButtonCommand:
            return StyleShapes::pushButton(*painter, *option, widget);
        case PE_FrameDefaultButton:
            return;
        case PE_PanelButtonTool:
            return StyleShapes::toolButton(*painter, *option);
        case PE_PanelLineEdit: {
            auto const* const frame = qstyleoption_cast<QStyleOptionFrame const*>(option);
            // Inside a spin or combo box the box has drawn the ground.
            if (frame && frame->lineWidth > 0)
                StyleShapes::field(*painter, *option);
            return;
        }
        case PE_FrameLineEdit:
            return;
        case PE_FrameFocusRect:
            if (option->state & State_KeyboardFocusChange)
                StyleShapes::focusRing(*painter, option->rect);
            return;
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            return StyleShapes::checkBox(*painter, *option);
        case PE_IndicatorMenuCheckMark: {
            auto const* const entry = qstyleoption_cast<QStyleOptionMenuItem const*>(option);
            bool const isExclusive = entry && entry->checkType == QStyleOptionMenuItem::Exclusive;
            return StyleShapes::menuMark(*painter, *option, isExclusive);
        }
        case PE_PanelItemViewItem:
        case PE_PanelItemViewRow:
            return StyleShapes::itemGround(*painter, *option);
        case PE_IndicatorBranch:
            if (option->state & State_Children)
                StyleShapes::chevron(*painter, option->rect,
                                     option->state & State_Open ? Qt::BottomEdge : Qt::RightEdge,
                                     themeColor("mutedText"));
            return;
        case PE_IndicatorRadioButton:
            return StyleShapes::radioButton(*painter, *option);
        case PE_IndicatorArrowUp:
        case PE_IndicatorArrowDown:
        case PE_IndicatorArrowLeft:
        case PE_IndicatorArrowRight: {
            Qt::Edge const edge = element == PE_IndicatorArrowUp     ? Qt::TopEdge
                                  : element == PE_IndicatorArrowDown ? Qt::BottomEdge
                                  : element == PE_IndicatorArrowLeft ? Qt::LeftEdge
                                                                     : Qt::RightEdge;
            return StyleShapes::chevron(*painter, option->rect, edge, textColour(*option));
        }
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void MellStyle::drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                            QWidget const* widget) const
{
    if (element == CE_ProgressBarGroove || element == CE_ProgressBarLabel)
        return;
    if (element == CE_ProgressBarContents)
        return StyleShapes::progressBar(*painter, *option);
    if (element == CE_PushButtonLabel && option->state & State_Enabled) {
        auto label = *qstyleoption_cast<QStyleOptionButton const*>(option);
        if (label.features & QStyleOptionButton::DefaultButton || label.state & State_On)
            label.palette.setColor(QPalette::ButtonText, themeColor("accentText"));
        return QProxyStyle::drawControl(element, &label, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void MellStyle::drawComplexControl(ComplexControl control, QStyleOptionComplex const* option,
                                   QPainter* painter, QWidget const* widget) const
{
    switch (control) {
        case CC_SpinBox:
            return drawSpinBox(option, painter, widget);
        case CC_ComboBox:
            return drawComboBox(option, painter, widget);
        case CC_ScrollBar:
            return drawScrollBar(option, painter, widget);
        case CC_Slider:
            return drawSlider(option, painter, widget);
        case CC_ToolButton:
            if (isShownAsCheckBox(widget))
                return drawCheckButton(option, painter, widget);
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
        default:
            QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

bool MellStyle::isShownAsCheckBox(QWidget const* widget)
{
    auto const* const button = qobject_cast<QToolButton const*>(widget);
    QAction const* const action = button ? button->defaultAction() : nullptr;
    return action && action->isCheckable() && action->property("showAsCheckBox").toBool();
}

// A tool button with the looks of a check box.
void MellStyle::drawCheckButton(QStyleOptionComplex const* option, QPainter* painter,
                                QWidget const* widget) const
{
    auto const* const button = qstyleoption_cast<QStyleOptionToolButton const*>(option);
    if (!button)
        return;
    QStyleOptionButton box;
    static_cast<QStyleOption&>(box) = *option;
    box.state &= ~(State_On | State_Off);
    box.state |= option->state & State_On ? State_On : State_Off;
    box.text = button->text;
    box.type = QStyleOption::SO_Button;
    drawControl(CE_CheckBox, &box, painter, widget);
}

void MellStyle::drawSpinBox(QStyleOptionComplex const* option, QPainter* painter,
                            QWidget const* widget) const
{
    auto const* const box = qstyleoption_cast<QStyleOptionSpinBox const*>(option);
    if (!box)
        return;
    if (box->frame)
        StyleShapes::field(*painter, *option);
    if (box->buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    for (bool const isUp : {true, false}) {
        SubControl const part = isUp ? SC_SpinBoxUp : SC_SpinBoxDown;
        auto const step =
            isUp ? QAbstractSpinBox::StepUpEnabled : QAbstractSpinBox::StepDownEnabled;
        QRectF const room = subControlRect(CC_SpinBox, option, part, widget);
        bool const canStep = box->stepEnabled & step;
        if (canStep && option->activeSubControls == part && option->state & State_MouseOver)
            StyleShapes::roundedBox(*painter, room.adjusted(0, 0.5, -0.5, -0.5),
                                    themeColor(option->state & State_Sunken ? "pressed" : "hover"),
                                    {});
        StyleShapes::chevron(*painter, room, isUp ? Qt::TopEdge : Qt::BottomEdge,
                             textColour(*option, canStep));
    }
}

void MellStyle::drawComboBox(QStyleOptionComplex const* option, QPainter* painter,
                             QWidget const* widget) const
{
    StyleShapes::field(*painter, *option);
    QRectF const arrow = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
    StyleShapes::chevron(*painter, arrow, Qt::BottomEdge, textColour(*option));
}

void MellStyle::drawScrollBar(QStyleOptionComplex const* option, QPainter* painter,
                              QWidget const* widget) const
{
    QRectF handle = subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget);
    bool const isActive = option->activeSubControls & SC_ScrollBarSlider;
    double const inset = g_pixelSize / 6.0;
    handle.adjust(inset, inset, -inset, -inset);
    double const radius = std::min(handle.width(), handle.height()) / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(themeColor(!(option->state & State_Enabled)           ? "border"
                                 : isActive || option->state & State_Sunken ? "mutedText"
                                                                            : "controlBorder"));
    painter->drawRoundedRect(handle, radius, radius);
    painter->restore();
}

void MellStyle::drawSlider(QStyleOptionComplex const* option, QPainter* painter,
                           QWidget const* widget) const
{
    auto const* const slider = qstyleoption_cast<QStyleOptionSlider const*>(option);
    if (!slider)
        return;
    QRectF const groove = subControlRect(CC_Slider, option, SC_SliderGroove, widget);
    QRectF const handle = subControlRect(CC_Slider, option, SC_SliderHandle, widget);
    bool const isFlat = slider->orientation == Qt::Horizontal;
    double const half = g_pixelSize * 0.15;
    QPointF const middle = groove.center();
    QRectF const line = isFlat ? QRectF(groove.left(), middle.y() - half, groove.width(), 2 * half)
                               : QRectF(middle.x() - half, groove.top(), 2 * half, groove.height());
    double const knob = std::min(handle.width(), handle.height()) / 2 - 1;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(themeColor("border"));
    painter->drawRoundedRect(line, half, half);
    bool const isEnabled = option->state & State_Enabled;
    bool const isHovered = option->state & State_MouseOver;
    painter->setBrush(themeColor(!isEnabled  ? "disabledText"
                                 : isHovered ? "accentHover"
                                             : "accent"));
    QRectF below = line;
    if (isFlat)
        slider->upsideDown ? below.setLeft(handle.center().x())
                           : below.setRight(handle.center().x());
    else
        slider->upsideDown ? below.setTop(handle.center().y())
                           : below.setBottom(handle.center().y());
    painter->drawRoundedRect(below, half, half);
    painter->drawEllipse(handle.center(), knob, knob);
    if (option->state & State_HasFocus) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(themeColor("surface"), 2));
        painter->drawEllipse(handle.center(), knob - 3, knob - 3);
    }
    painter->restore();
}

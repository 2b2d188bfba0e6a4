// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/MellStyle.h"

#include "host/ui/GlyphIcon.h"
#include "host/ui/StyleShapes.h"
#include "platform/ui/Theme.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>

namespace {

QColor textColour(QStyleOption const& option, bool isActive = true)
{
    bool const isEnabled = option.state & QStyle::State_Enabled;
    return themeColor(isEnabled && isActive ? "text" : "disabledText");
}

int scaled(double factor)
{
    return qRound(factor * g_pixelSize);
}

}  // namespace

MellStyle::MellStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

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
        default:
            QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
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

QRect MellStyle::subControlRect(ComplexControl control, QStyleOptionComplex const* option,
                                SubControl part, QWidget const* widget) const
{
    if (control == CC_SpinBox && qstyleoption_cast<QStyleOptionSpinBox const*>(option))
        return spinBoxRect(option, part);
    if (control == CC_ScrollBar && qstyleoption_cast<QStyleOptionSlider const*>(option))
        return scrollBarRect(option, part, widget);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect MellStyle::subElementRect(SubElement element, QStyleOption const* option,
                                QWidget const* widget) const
{
    QRect const result = QProxyStyle::subElementRect(element, option, widget);
    auto const* const frame = qstyleoption_cast<QStyleOptionFrame const*>(option);
    bool const isOwnField = element == SE_LineEditContents && frame && frame->lineWidth > 0;
    int const margin = isOwnField ? scaled(0.25) : 0;
    return result.adjusted(margin, 0, -margin, 0);
}

QRect MellStyle::spinBoxRect(QStyleOptionComplex const* option, SubControl part) const
{
    auto const* const box = qstyleoption_cast<QStyleOptionSpinBox const*>(option);
    QRect const whole = option->rect;
    int const arrows = box->buttonSymbols == QAbstractSpinBox::NoButtons ? 0 : scaled(1.34);
    int const edge = box->frame ? 2 : 0;
    QRect const inner = whole.adjusted(edge, edge, -edge, -edge);
    QRect result;
    if (part == SC_SpinBoxFrame)
        return whole;
    if (part == SC_SpinBoxEditField)
        result = inner.adjusted(scaled(0.25), 0, -arrows, 0);
    else
        result = QRect(inner.right() + 1 - arrows, inner.top(), arrows, inner.height() / 2);
    if (part == SC_SpinBoxDown)
        result.moveBottom(inner.bottom());
    return visualRect(option->direction, whole, result);
}

QRect MellStyle::scrollBarRect(QStyleOptionComplex const* option, SubControl part,
                               QWidget const* widget) const
{
    auto const* const bar = qstyleoption_cast<QStyleOptionSlider const*>(option);
    bool const isFlat = bar->orientation == Qt::Horizontal;
    QRect const whole = option->rect;
    int const length = isFlat ? whole.width() : whole.height();
    double const range = double(bar->maximum) - bar->minimum;
    int const handle = range > 0
                           ? std::clamp(int(length * (bar->pageStep / (range + bar->pageStep))),
                                        std::min(length, scaled(2)), length)
                           : length;
    int const start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                              length - handle, bar->upsideDown);
    auto const along = [&](int from, int to) {
        QRect const part1 = isFlat
                                ? QRect(whole.left() + from, whole.top(), to - from, whole.height())
                                : QRect(whole.left(), whole.top() + from, whole.width(), to - from);
        return visualRect(option->direction, whole, part1);
    };
    switch (part) {
        case SC_ScrollBarGroove:
            return whole;
        case SC_ScrollBarSlider:
            return along(start, start + handle);
        case SC_ScrollBarSubPage:
            return along(0, start);
        case SC_ScrollBarAddPage:
            return along(start + handle, length);
        default:
            return {};
    }
}

QSize MellStyle::sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& size,
                                  QWidget const* widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    int const controlHeight = themePixels("controlHeight");
    switch (type) {
        case CT_PushButton:
            return {std::max(size.width() + scaled(2), scaled(6)),
                    std::max(result.height(), controlHeight)};
        case CT_SpinBox:
            result.setWidth(size.width() + scaled(1.34) + scaled(0.5) + 4);
            [[fallthrough]];
        case CT_LineEdit:
        case CT_ComboBox:
            result.setHeight(std::max(size.height(), controlHeight));
            return result;
        case CT_ItemViewItem:
            result.setHeight(std::max(result.height(), scaled(1.9)));
            return result;
        case CT_CheckBox:
        case CT_RadioButton:
            result.setHeight(std::max(result.height(), scaled(1.67)));
            return result;
        default:
            return result;
    }
}

int MellStyle::pixelMetric(PixelMetric metric, QStyleOption const* option,
                           QWidget const* widget) const
{
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return scaled(1.25);
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing:
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return themePixels("layoutSpacing");
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return themePixels("dialogWidegtMargin");
        case PM_ScrollBarExtent:
            return scaled(0.92);
        case PM_ScrollBarSliderMin:
            return scaled(2);
        case PM_SmallIconSize:
        case PM_ButtonIconSize:
        case PM_ListViewIconSize:
        case PM_TabBarIconSize:
            return scaled(1.34);
        case PM_ToolBarIconSize:
            return scaled(1.84);
        case PM_MessageBoxIconSize:
            return scaled(2.67);
        case PM_SliderLength:
        case PM_SliderControlThickness:
        case PM_SliderThickness:
            return scaled(1.34);
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        case PM_SplitterWidth:
            return scaled(0.34);
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QIcon MellStyle::standardIcon(StandardPixmap icon, QStyleOption const* option,
                              QWidget const* widget) const
{
    switch (icon) {
        case SP_TitleBarCloseButton:
        case SP_DockWidgetCloseButton:
            return glyphIcon(GlyphButton::Close);
        case SP_TitleBarNormalButton:
            return glyphIcon(GlyphButton::Restore);
        case SP_TitleBarMaxButton:
            return glyphIcon(GlyphButton::Maximize);
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
    }
}

int MellStyle::styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget,
                         QStyleHintReturn* returned) const
{
    switch (hint) {
        case SH_EtchDisabledText:
        case SH_DitherDisabledText:
        case SH_DialogButtonBox_ButtonsHaveIcons:
        case SH_ComboBox_Popup:
        case SH_ScrollBar_Transient:
            return 0;
        case SH_Slider_AbsoluteSetButtons:
            return Qt::LeftButton;
        case SH_ToolTipLabel_Opacity:
            return 255;
        case SH_ToolTip_WakeUpDelay:
            return 400;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

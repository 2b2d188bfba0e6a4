// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/GlyphIcon.h"
#include "host/ui/MellStyle.h"
#include "platform/ui/Theme.h"

#include <QAbstractItemView>
#include <QStyleOption>

#include <algorithm>

namespace {

int scaled(double factor)
{
    return qRound(factor * g_pixelSize);
}

}  // namespace

QRect MellStyle::subControlRect(ComplexControl control, QStyleOptionComplex const* option,
                                SubControl part, QWidget const* widget) const
{
    if (control == CC_SpinBox && qstyleoption_cast<QStyleOptionSpinBox const*>(option))
        return spinBoxRect(option, part);
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return visualRect(option->direction, option->rect,
                          option->rect.adjusted(scaled(0.34), 2, -scaled(1.6), -2));
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
        case CT_ToolButton:
            if (isShownAsCheckBox(widget)) {
                auto const* const button = qstyleoption_cast<QStyleOptionToolButton const*>(option);
                int const text = button ? button->fontMetrics.horizontalAdvance(button->text) : 0;
                result = {pixelMetric(PM_IndicatorWidth, option, widget) +
                              pixelMetric(PM_CheckBoxLabelSpacing, option, widget) + text + 4,
                          std::max(scaled(1.67), controlHeight)};
            }
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
        // Beside the text of rows, in line with that of headers.
        case PM_FocusFrameHMargin:
            return qobject_cast<QAbstractItemView const*>(widget)
                       ? scaled(0.34)
                       : QProxyStyle::pixelMetric(metric, option, widget);
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

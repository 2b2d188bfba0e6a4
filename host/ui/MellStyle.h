// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

/// The look of the standard controls: flat, with the colours and lengths of the theme in effect,
/// drawn as shapes, so that they are sharp at any pixel ratio.
class MellStyle : public QProxyStyle
{
    Q_OBJECT

public:
    MellStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter,
                       QWidget const* widget) const override;
    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                     QWidget const* widget) const override;
    void drawComplexControl(ComplexControl control, QStyleOptionComplex const* option,
                            QPainter* painter, QWidget const* widget) const override;
    QRect subControlRect(ComplexControl control, QStyleOptionComplex const* option, SubControl part,
                         QWidget const* widget) const override;
    QRect subElementRect(SubElement element, QStyleOption const* option,
                         QWidget const* widget) const override;
    QSize sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& size,
                           QWidget const* widget) const override;
    int pixelMetric(PixelMetric metric, QStyleOption const* option,
                    QWidget const* widget) const override;
    QIcon standardIcon(StandardPixmap icon, QStyleOption const* option,
                       QWidget const* widget) const override;
    int styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget,
                  QStyleHintReturn* returned) const override;

private:
    static bool isShownAsCheckBox(QWidget const* widget);
    void drawCheckButton(QStyleOptionComplex const* option, QPainter* painter,
                         QWidget const* widget) const;
    void drawSpinBox(QStyleOptionComplex const* option, QPainter* painter,
                     QWidget const* widget) const;
    void drawComboBox(QStyleOptionComplex const* option, QPainter* painter,
                      QWidget const* widget) const;
    void drawScrollBar(QStyleOptionComplex const* option, QPainter* painter,
                       QWidget const* widget) const;
    void drawSlider(QStyleOptionComplex const* option, QPainter* painter,
                    QWidget const* widget) const;
    QRect spinBoxRect(QStyleOptionComplex const* option, SubControl part) const;
    QRect scrollBarRect(QStyleOptionComplex const* option, SubControl part,
                        QWidget const* widget) const;
};

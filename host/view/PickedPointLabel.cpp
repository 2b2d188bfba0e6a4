// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PickedPointLabel.h"

#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Quantity.h"

#include <QEvent>

PickedPointLabel::PickedPointLabel(QWidget* view) : QLabel(view)
{
    setObjectName(QStringLiteral("PickedPoint"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setStyleSheet(
        QStringLiteral("background: #fffbe6; color: #202020;"
                       "border: 1px solid #a09060; padding: 2px;"));
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, &PickedPointLabel::showPoint);
}

void PickedPointLabel::setPoint(UPoint3<float> const& point)
{
    m_point = point;
    showPoint();
}

void PickedPointLabel::showPoint()
{
    DisplayUnit const& unit = DisplayUnit::instance();
    auto const number = [&](float value) {
        return Base::Quantity::toUserString(double(value), Base::Unit(1), 'f', unit.decimals(), ' ',
                                            true);
    };
    //: Coordinates of a picked point and their unit.
    setText(tr("X: %1  Y: %2  Z: %3 %4")
                .arg(number(m_point.X()), number(m_point.Y()), number(m_point.Z()), unit.symbol()));
    adjustSize();
}

void PickedPointLabel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        showPoint();
    QLabel::changeEvent(event);
}

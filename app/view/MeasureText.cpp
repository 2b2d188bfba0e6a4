// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/MeasureText.h"

#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Quantity.h"

#include <QLocale>

#include <cmath>

namespace {

constexpr int decimals = 2;

QString withUnit(double value, QString const& unit)
{
    return QStringLiteral("%1 %2").arg(QLocale().toString(value, 'f', decimals), unit);
}

bool isInch()
{
    return DisplayUnit::instance().length() == DisplayUnit::Inch;
}

/// A measure of the given power of a length.
QString measure(double value, int power, QString const& sign)
{
    if (isInch())
        return withUnit(value / std::pow(DisplayUnit::instance().millimetres(), power),
                        DisplayUnit::instance().symbol() + sign);
    double const perCentimetre = std::pow(10.0, power);
    return std::abs(value) < perCentimetre
               ? withUnit(value, QStringLiteral("mm") + sign)
               : withUnit(value / perCentimetre, QStringLiteral("cm") + sign);
}

}  // namespace

QString MeasureText::boxMm(UBox3<float> const& box)
{
    auto const text = [](double length, bool isLast) {
        return Base::Quantity::toUserString(length, Base::Unit::length, 'f', decimals,
                                            QLatin1Char(' '), !isLast);
    };
    return QStringLiteral("%1 \u00d7 %2 \u00d7 %3")
        .arg(text(box.MaxX() - box.MinX(), false), text(box.MaxY() - box.MinY(), false),
             text(box.MaxZ() - box.MinZ(), true));
}

QString MeasureText::areaMm2(double squareMillimetres)
{
    return measure(squareMillimetres, 2, QStringLiteral("\u00b2"));
}

QString MeasureText::volumeMm3(double cubicMillimetres)
{
    return measure(cubicMillimetres, 3, QStringLiteral("\u00b3"));
}

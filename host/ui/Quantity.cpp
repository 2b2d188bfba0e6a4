// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Quantity.h"

#include "platform/ui/DisplayUnit.h"

#include <QLocale>

namespace Base {

namespace {

/// "-0.000" says nothing that "0.000" does not.
QString withoutNegativeZero(QString text, QLocale const& locale)
{
    bool const isZero = text.contains(locale.negativeSign()) && locale.toDouble(text) == 0;
    return isZero ? text.remove(locale.negativeSign()) : text;
}

}  // namespace

QString Quantity::toUserString(double value, Unit const& unit, char format, int precision,
                               QChar fill, bool numberOnly)
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    DisplayUnit const& display = DisplayUnit::instance();
    double const shown = unit.isLength() ? value / display.millimetres() : value;
    QString const number = withoutNegativeZero(locale.toString(shown, format, precision), locale);
    return numberOnly || !unit.isLength() ? number : number + fill + display.symbol();
}

}  // namespace Base

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/Unit.h"

#include <QChar>
#include <QString>

namespace Base {

/// A number with its unit. Lengths are millimetres, whatever unit they are shown in.
class Quantity
{
public:
    Quantity(double value = 0, Unit const& unit = {}) : m_value(value), m_unit(unit) {}

    double value() const { return m_value; }
    void setValue(double value) { m_value = value; }
    Unit const& unit() const { return m_unit; }
    void setUnit(Unit const& unit) { m_unit = unit; }

    /// A value as the user reads it: a length in the unit of DisplayUnit, with the decimal sign of
    /// the default locale and without group separators. A negative zero has no sign.
    ///
    /// value       millimetres for a length
    /// format      'f', 'e' or 'g', with `precision` as in QLocale::toString
    /// fill        stands between the number and the text of its unit
    /// numberOnly  leaves out `fill` and the unit
    static QString toUserString(double value, Unit const& unit, char format, int precision,
                                QChar fill, bool numberOnly);

private:
    double m_value;
    Unit m_unit;
};

}  // namespace Base

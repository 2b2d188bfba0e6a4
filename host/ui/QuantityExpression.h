// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/Unit.h"

#include <QString>

/// The value of a sum that a user typed, such as "25.4/2", "1 in + 3mm" or "2*(3+1)".
///
/// Numbers have a point or the decimal sign of the default locale. Operators are + - * / and
/// brackets; a unit (mm, cm, m, um, in, ", ft, ') may follow a number or a bracket of a length.
/// A number added to a length, and a result without a unit, are in the unit of DisplayUnit.
struct QuantityExpression
{
    /// Reads a text. Never throws.
    static QuantityExpression read(QString const& text, Base::Unit const& unit);

    bool isValid() const { return error.isEmpty(); }

    /// Millimetres for a length; meaningless if the text is not valid.
    double value = 0;
    /// One sentence for the user about what is wrong; empty if nothing is.
    QString error;
};

// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/DisplayUnit.h"

#include "platform/ui/StoredSettings.h"

namespace {

QString const key = QStringLiteral("/Interface/lengthUnit");
QString const inchName = QStringLiteral("inch");
QString const millimetreName = QStringLiteral("mm");

}  // namespace

DisplayUnit& DisplayUnit::instance()
{
    static DisplayUnit unit;
    return unit;
}

DisplayUnit::DisplayUnit()
{
    readStored();
}

void DisplayUnit::readStored()
{
    Length const stored =
        storedValue(key, millimetreName).toString() == inchName ? Inch : Millimetre;
    if (stored == m_length)
        return;
    m_length = stored;
    emit changed();
}

void DisplayUnit::setLength(Length length)
{
    storeValue(key, length == Inch ? inchName : millimetreName);
    if (length == m_length)
        return;
    m_length = length;
    emit changed();
}

double DisplayUnit::millimetres() const
{
    return m_length == Inch ? 25.4 : 1;
}

QString DisplayUnit::symbol() const
{
    return m_length == Inch ? QStringLiteral("in") : QStringLiteral("mm");
}

int DisplayUnit::decimals() const
{
    return m_length == Inch ? 4 : 3;
}

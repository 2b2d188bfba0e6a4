// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// The unit in which lengths are shown and typed: the user's choice, kept in the settings.
/// Documents and values in code are always millimetres.
class DisplayUnit : public QObject
{
    Q_OBJECT

public:
    enum Length
    {
        Millimetre,
        Inch
    };

    static DisplayUnit& instance();

    Length length() const { return m_length; }
    /// Stores the choice and tells all who show lengths.
    void setLength(Length length);
    /// Takes the choice from the settings; what makes no sense there counts as Millimetre.
    void readStored();

    /// Millimetres per unit: 1 or 25.4.
    double millimetres() const;
    /// "mm" or "in".
    QString symbol() const;
    /// Decimals that show a thousandth of a millimetre or a tenth of a thousandth of an inch.
    int decimals() const;

signals:
    void changed();

private:
    DisplayUnit();

    Length m_length = Millimetre;
};

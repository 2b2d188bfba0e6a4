// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"

#include <QDialog>

class QComboBox;

/// Asks in which unit the numbers of a file are meant, with the size that the part has in each.
class UnitDialog : public QDialog
{
    Q_OBJECT

public:
    /// name   of the largest part that is asked about
    /// parts  how many there are
    /// box    of the largest one, its numbers taken for millimetres
    UnitDialog(QString const& name, int parts, UBox3<float> const& box, QWidget* parent);

    /// Millimetres in the chosen unit.
    double factor() const;
    /// Suggests the chosen unit the next time.
    void remember() const;

private:
    void fillUnits(UBox3<float> const& box);
    QComboBox* m_units;
};

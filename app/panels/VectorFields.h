// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UVector3.h"
#include "platform/ui/Unit.h"

#include <QWidget>

#include <array>

class MellQuantitySpinBox;

/// Three number fields for x, y and z, one below the other.
class VectorFields : public QWidget
{
    Q_OBJECT

public:
    /// range  the fields go from -range to range
    VectorFields(Base::Unit const& unit, double range, QWidget* parent = nullptr);

    UVector3<double> values() const;
    /// Does not count as an edit.
    void setValues(UVector3<double> const& values);
    MellQuantitySpinBox& field(int axis) const { return *m_fields[std::size_t(axis)]; }

signals:
    /// The user has changed a value.
    void edited();

private:
    std::array<MellQuantitySpinBox*, 3> m_fields;
};

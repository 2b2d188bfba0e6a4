// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UVector3.h"

#include <QWidget>

class PushButtonAnimate;
class QCheckBox;
class QLabel;
class MellQuantitySpinBox;
class VectorFields;

/// Asks by how much parts are to be scaled: by the size that they are to have along an axis, alone
/// or in proportion, or by a share of what they are now.
class ScaleFields : public QWidget
{
    Q_OBJECT

public:
    explicit ScaleFields(QWidget* parent = nullptr);

    /// The size as it is. Does not count as an edit.
    void showSize(UVector3<double> const& size);
    void retranslate();

    VectorFields& size() const { return *m_size; }
    QCheckBox& proportions() const { return *m_proportions; }
    MellQuantitySpinBox& percent() const { return *m_percent; }
    PushButtonAnimate& scaleButton() const { return *m_scale; }

signals:
    void wanted(UVector3<double> const& factors);

private:
    void sizeEdited(int axis);

    VectorFields* m_size;
    QCheckBox* m_proportions;
    QLabel* m_percentLabel;
    MellQuantitySpinBox* m_percent;
    PushButtonAnimate* m_scale;
    UVector3<double> m_shown;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/SolidToolPage.h"

namespace Freecut {

/// The page of the cylinder.
class CylinderCutUI : public SolidToolPage
{
    Q_OBJECT

public:
    CylinderCutUI(DialogPolygoncut& dialog, QWidget* parent);

    char const* objectClass() const override;
    char const* selectionClass() const override;
    void write(VolumeGraphicObject& tool, SharedToolValues const& shared,
               std::function<float()> const& suitableSize) override;
    void refresh(VolumeGraphicObject* tool) override;
    void showValues(SolidValues const& values) override;

protected:
    void followChecks() override;

private:
    MellQuantitySpinBox* m_radius;
    MellQuantitySpinBox* m_tolerance;
    QCheckBox* m_useNotch;
    MellQuantitySpinBox* m_notchWidth;
    MellQuantitySpinBox* m_notchLength;
    MellQuantitySpinBox* m_notchAngle;
};

}  // namespace Freecut

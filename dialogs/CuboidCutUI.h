// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/SolidToolPage.h"

namespace Freecut {

/// The page of the cuboid.
class CuboidCutUI : public SolidToolPage
{
    Q_OBJECT

public:
    CuboidCutUI(DialogPolygoncut& dialog, QWidget* parent);

    char const* objectClass() const override;
    char const* selectionClass() const override;
    void write(VolumeGraphicObject& tool, SharedToolValues const& shared,
               std::function<float()> const& suitableSize) override;
    void refresh(VolumeGraphicObject* tool) override;
    void showValues(SolidValues const& values) override;

protected:
    void followChecks() override;

private:
    MellQuantitySpinBox* m_length;
    MellQuantitySpinBox* m_width;
    MellQuantitySpinBox* m_angle;
    MellQuantitySpinBox* m_cornerRadius;
    QCheckBox* m_roundCorners;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CuboidCutUI.h"

#include "dialogs/SolidFields.h"
#include "dialogs/ToolTips.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "selection/CuboidcutSelection.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/SolidValues.h"
#include "tools/ToolLimits.h"

#include <QCheckBox>
#include <QSignalBlocker>

namespace Freecut {

namespace {

constexpr float pi = 3.1415927f;
constexpr float shareOfScene = 0.5f;

CuboidGraphicObject& cuboidOf(VolumeGraphicObject& tool)
{
    return static_cast<CuboidGraphicObject&>(tool);
}

}  // namespace

CuboidCutUI::CuboidCutUI(DialogPolygoncut& polygonDialog, QWidget* parent)
    : SolidToolPage(polygonDialog, parent)
{
    m_length =
        addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Length"), SolidFields::makeLength(this, 2.0));
    m_width =
        addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Width"), SolidFields::makeLength(this, 2.0));
    m_angle = addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Angle"), SolidFields::makeAngle(this));
    m_cornerRadius = SolidFields::makeLength(this, 1.0);
    m_roundCorners =
        addCheckedRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Round corners"), m_cornerRadius);
    PictureTip::give({m_roundCorners, m_cornerRadius}, ToolTips::roundCorners);
    addClearance();
}

char const* CuboidCutUI::objectClass() const
{
    return "Freecut::CuboidGraphicObject";
}

char const* CuboidCutUI::selectionClass() const
{
    return CuboidcutSelection::toolName;
}

void CuboidCutUI::followChecks()
{
    SolidToolPage::followChecks();
    SolidFields::followCheck(m_roundCorners, m_cornerRadius);
}

void CuboidCutUI::write(VolumeGraphicObject& tool, SharedToolValues const& shared,
                        std::function<float()> const& suitableSize)
{
    CuboidProperty& record = cuboidOf(tool).getProperty();
    if (record.getCuboidLength() == 0) {
        double const size = double(suitableSize() * shareOfScene);
        m_length->setValue(size);
        m_width->setValue(size);
    }
    record.setCuboidParameters(isClearanceOn(), clearanceDirection(), clearance(),
                               shared.isCutTillEnabled, shared.cutTill, ToolLimits::fillAlpha,
                               m_roundCorners->isChecked(), float(m_cornerRadius->value()),
                               shared.showsCoordinate, shared.viewIndex, float(m_width->value()),
                               float(m_length->value()), float(m_angle->value()) * pi / 180);
}

void CuboidCutUI::refresh(VolumeGraphicObject* tool)
{
    SolidToolPage::refresh(tool);
    if (!tool)
        return;
    CuboidProperty const& record = cuboidOf(*tool).getProperty();
    m_width->setValue(double(record.getCuboidWidth()));
    m_length->setValue(double(record.getCuboidLength()));
    m_angle->setValue(double(record.getCuboidAngle() * 180 / pi));
}

void CuboidCutUI::showValues(SolidValues const& values)
{
    QSignalBlocker const quiet(m_roundCorners);
    m_roundCorners->setChecked(values.hasRoundCorners);
    m_cornerRadius->setValue(double(values.cornerRadius));
    SolidToolPage::showValues(values);
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CylinderCutUI.h"

#include "dialogs/SolidFields.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "selection/CylindercutSelection.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/SolidValues.h"
#include "tools/ToolLimits.h"

#include <QCheckBox>
#include <QSignalBlocker>

namespace Freecut {

namespace {

constexpr float shareOfScene = 0.25f;

CylinderGraphicObject& cylinderOf(VolumeGraphicObject& tool)
{
    return static_cast<CylinderGraphicObject&>(tool);
}

}  // namespace

CylinderCutUI::CylinderCutUI(DialogPolygoncut& polygonDialog, QWidget* parent)
    : SolidToolPage(polygonDialog, parent)
{
    m_radius =
        addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Radius"), SolidFields::makeLength(this, 5.0));
    m_tolerance = addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Tolerance"),
                         SolidFields::makeLength(this, ToolLimits::circleTolerance));
    m_useNotch = new QCheckBox(this);
    texts().addText(m_useNotch, "DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Use Notch"));
    addWidget(m_useNotch);
    connect(m_useNotch, &QAbstractButton::toggled, this, &SolidToolPage::on_valueChanged);
    m_notchWidth =
        addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Width"), SolidFields::makeLength(this, 2.0));
    m_notchLength =
        addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Length"), SolidFields::makeLength(this, 2.0));
    m_notchAngle =
        addRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Angle"), SolidFields::makeAngle(this));
    addClearance();
}

char const* CylinderCutUI::objectClass() const
{
    return "Freecut::CylinderGraphicObject";
}

char const* CylinderCutUI::selectionClass() const
{
    return CylindercutSelection::toolName;
}

void CylinderCutUI::followChecks()
{
    SolidToolPage::followChecks();
    for (MellQuantitySpinBox* const field : {m_notchWidth, m_notchLength, m_notchAngle})
        SolidFields::followCheck(m_useNotch, field);
}

void CylinderCutUI::write(VolumeGraphicObject& tool, SharedToolValues const& shared,
                          std::function<float()> const& suitableSize)
{
    CylinderProperty& record = cylinderOf(tool).getProperty();
    if (record.getRadius() == 0)
        m_radius->setValue(double(suitableSize() * shareOfScene));
    record.setShapeParameters(
        isClearanceOn(), clearanceDirection(), clearance(), shared.isCutTillEnabled, shared.cutTill,
        ToolLimits::fillAlpha, shared.showsCoordinate, shared.viewIndex, float(m_radius->value()),
        m_useNotch->isChecked(), float(m_notchWidth->value()), float(m_notchLength->value()),
        float(m_notchAngle->value()), float(m_tolerance->value()));
}

void CylinderCutUI::refresh(VolumeGraphicObject* tool)
{
    SolidToolPage::refresh(tool);
    if (!tool)
        return;
    CylinderProperty const& record = cylinderOf(*tool).getProperty();
    m_radius->setValue(double(record.getRadius()));
    m_notchWidth->setValue(double(record.getNotchWidth()));
    m_notchLength->setValue(double(record.getNotchLength()));
}

void CylinderCutUI::showValues(SolidValues const& values)
{
    QSignalBlocker const quiet(m_useNotch);
    m_useNotch->setChecked(values.hasNotch);
    m_tolerance->setValue(double(values.tolerance));
    m_notchAngle->setValue(double(values.angle));
    SolidToolPage::showValues(values);
}

}  // namespace Freecut

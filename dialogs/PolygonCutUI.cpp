// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PolygonCutUI.h"

#include "dialogs/DialogAddTeethUI.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/SolidFields.h"
#include "dialogs/ToolTips.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/view/GLView.h"
#include "selection/PointLabel.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "selection/ToolEdit.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/SolidValues.h"
#include "tools/ToolLimits.h"
#include "tools/ViewAxes.h"

#include <QCheckBox>
#include <QSignalBlocker>

namespace Freecut {

namespace {

constexpr std::size_t leastVertices = 3;

PolygonGraphicObject& polygonOf(VolumeGraphicObject& tool)
{
    return static_cast<PolygonGraphicObject&>(tool);
}

}  // namespace

PolygonCutUI::PolygonCutUI(DialogPolygoncut& polygonDialog, QWidget* parent)
    : SolidToolPage(polygonDialog, parent)
{
    m_cornerRadius = SolidFields::makeLength(this, 1.0);
    m_roundCorners =
        addCheckedRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Round corners"), m_cornerRadius);
    PictureTip::give({m_roundCorners, m_cornerRadius}, ToolTips::roundCorners);
    m_addTeeth = new PushButtonAnimate(this);
    texts().addText(m_addTeeth, "DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Add Teeth"));
    m_addTeeth->setEnabled(false);
    connect(m_addTeeth, &QAbstractButton::clicked, this, &PolygonCutUI::on_bt_addTeeth_clicked);
    addWidget(m_addTeeth);
    addClearance();
}

char const* PolygonCutUI::objectClass() const
{
    return "Freecut::PolygonGraphicObject";
}

char const* PolygonCutUI::selectionClass() const
{
    return PolygoncutSelection::toolName;
}

void PolygonCutUI::followChecks()
{
    SolidToolPage::followChecks();
    SolidFields::followCheck(m_roundCorners, m_cornerRadius);
}

void PolygonCutUI::write(VolumeGraphicObject& tool, SharedToolValues const& shared,
                         std::function<float()> const&)
{
    polygonOf(tool).getProperty().setShapeParameters(
        isClearanceOn(), clearanceDirection(), clearance(), shared.isCutTillEnabled, shared.cutTill,
        ToolLimits::fillAlpha, m_roundCorners->isChecked(), float(m_cornerRadius->value()),
        shared.showsCoordinate, shared.viewIndex);
}

bool PolygonCutUI::isComplete(VolumeGraphicObject const& tool) const
{
    return static_cast<PolygonGraphicObject const&>(tool).getPoints().size() >= leastVertices;
}

bool PolygonCutUI::holdsCut() const
{
    return m_teeth && m_teeth->isVisible();
}

void PolygonCutUI::refresh(VolumeGraphicObject* tool)
{
    SolidToolPage::refresh(tool);
    m_addTeeth->setEnabled(tool && isComplete(*tool));
    if (!holdsCut())
        return;
    if (tool)
        m_teeth->showParas();
    else
        endTeeth();
}

void PolygonCutUI::endTeeth()
{
    dialog().setMainPageEnable(true);
    if (m_teeth)
        m_teeth->hide();
    auto* const selection = runningTool<PolygoncutSelection>(dialog().view());
    if (!selection)
        return;
    if (PolygonGraphicObject* const polygon = selection->getPolygon()) {
        polygon->getProperty().clearEdit();
        finishEdit(*polygon, {.updatesRecord = false, .tellsListeners = false});
    }
    selection->setAddTeeth(false);
}

void PolygonCutUI::on_bt_addTeeth_clicked()
{
    dialog().setMainPageEnable(false);
    if (m_teeth) {
        m_teeth->disconnect(this);
        delete m_teeth;
    }
    m_teeth = new DialogAddTeethUI(this);
    m_teeth->setDialog(&dialog());
    connect(m_teeth, &Dialog::signalClosed, this, &PolygonCutUI::on_bt_addTeeth_closed);
    if (auto* const selection = runningTool<PolygoncutSelection>(dialog().view()))
        selection->setAddTeeth(true);
    m_teeth->show();
    m_teeth->applyFields(true);
    dialog().updateGUI();
}

void PolygonCutUI::on_bt_addTeeth_closed()
{
    endTeeth();
    dialog().updateGUI();
}

std::optional<UPoint3<float>> PolygonCutUI::shownPoint(VolumeGraphicObject& tool,
                                                       bool showsCoordinate) const
{
    if (!showsCoordinate)
        return {};
    PolygonGraphicObject const& polygon = polygonOf(tool);
    auto const vertex = PointLabel::selectedVertex(polygon);
    std::vector<UPoint3<float>> const points = polygon.getPoints();
    if (!vertex || *vertex >= points.size())
        return {};
    return points[*vertex];
}

void PolygonCutUI::showValues(SolidValues const& values)
{
    QSignalBlocker const quiet(m_roundCorners);
    m_roundCorners->setChecked(values.hasRoundCorners);
    m_cornerRadius->setValue(double(values.cornerRadius));
    SolidToolPage::showValues(values);
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SolidToolPage.h"

#include "dialogs/DialogPolygoncut.h"
#include "dialogs/SolidFields.h"
#include "dialogs/ToolTips.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"
#include "selection/EditHistory.h"
#include "selection/VolumeSelection.h"
#include "tools/SolidValues.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeProperty.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>

namespace Freecut {

namespace {

constexpr double firstClearance = 0.1;

}  // namespace

SolidToolPage::SolidToolPage(DialogPolygoncut& polygonDialog, QWidget* parent)
    : QWidget(parent), m_dialog(polygonDialog), m_grid(new MellGridLayout(this))
{
    m_grid->setColumnStretch(1, 1);
}

void SolidToolPage::connectField(MellQuantitySpinBox* field)
{
    connect(field, &QAbstractSpinBox::editingFinished, this, &SolidToolPage::on_valueChanged);
}

MellQuantitySpinBox* SolidToolPage::addRow(char const* source, MellQuantitySpinBox* field)
{
    auto* const label = new QLabel(this);
    m_texts.addText(label, "DialogFreeCut", source);
    label->setBuddy(field);
    int const row = m_grid->rowCount();
    m_grid->addWidget(label, row, 0);
    m_grid->addWidget(field, row, 1);
    connectField(field);
    return field;
}

QCheckBox* SolidToolPage::addCheckedRow(char const* source, MellQuantitySpinBox* field)
{
    auto* const box = new QCheckBox(this);
    m_texts.addText(box, "DialogFreeCut", source);
    field->setEnabled(false);
    int const row = m_grid->rowCount();
    m_grid->addWidget(box, row, 0);
    m_grid->addWidget(field, row, 1);
    connectField(field);
    connect(box, &QAbstractButton::toggled, this, &SolidToolPage::on_valueChanged);
    return box;
}

void SolidToolPage::addWidget(QWidget* widget)
{
    m_grid->addWidget(widget, m_grid->rowCount(), 0, 1, 2);
}

void SolidToolPage::addClearance()
{
    m_clearance = SolidFields::makeLength(this, firstClearance);
    m_useClearance = addCheckedRow(QT_TRANSLATE_NOOP("DialogFreeCut", "Clearance"), m_clearance);
    PictureTip::give({m_useClearance, m_clearance}, ToolTips::clearance);
    m_directionLabel = new QLabel(this);
    m_texts.addText(m_directionLabel, "DialogFreeCut",
                    QT_TRANSLATE_NOOP("DialogFreeCut", "Clearance Direction"));
    addWidget(m_directionLabel);
    auto* const row = new QWidget(this);
    auto* const layout = new MellHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_direction = new QButtonGroup(this);
    char const* const directions[] = {QT_TRANSLATE_NOOP("DialogFreeCut", "Inside"),
                                      QT_TRANSLATE_NOOP("DialogFreeCut", "Outside"),
                                      QT_TRANSLATE_NOOP("DialogFreeCut", "Both sides")};
    for (int id = 0; id < 3; ++id) {
        auto* const button = new QRadioButton(row);
        m_texts.addText(button, "DialogFreeCut", directions[id]);
        PictureTip::give({button}, ToolTips::clearanceSides[std::size_t(id)]);
        m_direction->addButton(button, id);
        layout->addWidget(button);
        connect(button, &QAbstractButton::clicked, this, &SolidToolPage::on_valueChanged);
    }
    m_direction->button(0)->setChecked(true);
    addWidget(row);
    m_grid->setRowStretch(m_grid->rowCount(), 1);
    followChecks();
}

void SolidToolPage::followChecks()
{
    SolidFields::followCheck(m_useClearance, m_clearance);
    SolidFields::followCheck(m_useClearance, m_directionLabel);
    for (QAbstractButton* const button : m_direction->buttons())
        SolidFields::followCheck(m_useClearance, button);
}

void SolidToolPage::on_valueChanged()
{
    followChecks();
    m_dialog.updateModelData();
    m_dialog.updateGUI();
    noteEdit(m_dialog.getDocument());
}

bool SolidToolPage::isClearanceOn() const
{
    return m_useClearance->isChecked();
}

float SolidToolPage::clearance() const
{
    return float(m_clearance->value());
}

int SolidToolPage::clearanceDirection() const
{
    return m_direction->checkedId();
}

void SolidToolPage::refresh(VolumeGraphicObject*)
{
    followChecks();
}

void SolidToolPage::showValues(SolidValues const& values)
{
    QSignalBlocker const quiet(m_useClearance);
    m_useClearance->setChecked(values.isClearanceEnabled);
    m_clearance->setValue(double(values.clearance));
    if (QAbstractButton* const button = m_direction->button(values.clearanceDirection))
        button->setChecked(true);
    followChecks();
}

bool SolidToolPage::isComplete(VolumeGraphicObject const&) const
{
    return true;
}

std::optional<UPoint3<float>> SolidToolPage::shownPoint(VolumeGraphicObject& tool, bool) const
{
    std::vector<UPoint3<float>> const& points = tool.getVolumeProperty().getKeyPoints();
    if (points.empty())
        return {};
    return points[0];
}

VolumeSelection* SolidToolPage::runningSelection(Base::GLView* view) const
{
    Base::AbstractMouseSelection* const tool =
        view ? view->navigationStyle()->mouseModel() : nullptr;
    return tool && tool->getClassName() == selectionClass() ? dynamic_cast<VolumeSelection*>(tool)
                                                            : nullptr;
}

void SolidToolPage::movePoint(Base::GLView* view, UPoint3<float> const& to) const
{
    if (VolumeSelection* const selection = runningSelection(view))
        selection->setSelectedPointInfo(to.X(), to.Y(), to.Z());
}

void SolidToolPage::addPoint(Base::GLView* view, UPoint3<float> const& eyePoint) const
{
    if (VolumeSelection* const selection = runningSelection(view))
        selection->addPoint(eyePoint);
}

}  // namespace Freecut

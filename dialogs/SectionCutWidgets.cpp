// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SectionCutWidgets.h"

#include "dialogs/ConnectorPreview.h"
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "dialogs/MissedParts.h"
#include "dialogs/ToolButton.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/Dialog.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/DialogWidgetGroup2rd.h"
#include "platform/ui/MellComboBox.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

namespace Freecut {

namespace {

constexpr double farthest = 1e6;
constexpr double largestSize = 1e11;
constexpr double leastStep = 0.001;
constexpr double largestStep = 100;
constexpr double firstStep = 0.1;

/// In the order of the plane types.
constexpr char const* planeCommands[] = {"FreecutPlane3Pts",     "FreecutPlaneTangent",
                                         "FreecutPlaneVertical", "FreecutPlaneXYPlane",
                                         "FreecutPlaneXZPlane",  "FreecutPlaneYZPlane"};

MellQuantitySpinBox* makeField(QWidget* parent, bool isLength, double least, double largest)
{
    auto* const field = new MellQuantitySpinBox(parent);
    field->setUnit(Base::Unit(isLength ? Base::Unit::length : Base::Unit::none));
    field->setRange(least, largest);
    field->setAlignment(Qt::AlignRight);
    return field;
}

}  // namespace

void SectionCutWidgets::build(Dialog& dialog)
{
    m_dialog = &dialog;
    texts.add([this](QString const& text) { m_dialog->setWindowTitle(text); }, "CmdPlanecut",
              QT_TRANSLATE_NOOP("CmdPlanecut", "Section Cut"));
    addGroup(buildSelection(), "SectionCutDlg/Selection", "MellCommons",
             QT_TRANSLATE_NOOP("MellCommons", "Selection"));
    addGroup(buildPlane(), "SectionCutDlg/Plane", "DialogFreeCut",
             QT_TRANSLATE_NOOP("DialogFreeCut", "Plane"));
    m_optionsGroup = addGroup(buildOptions(), "SectionCutDlg/Options", "MellCommons",
                              QT_TRANSLATE_NOOP("MellCommons", "Options"));
    advancedGroup = addGroup(buildAdvanced(), "SectionCutDlg/Advanced", "DialogFreeCut",
                             QT_TRANSLATE_NOOP("DialogFreeCut", "Advanced Section Cut"));
    buildButtons();
}

DialogWidgetGroup* SectionCutWidgets::addGroup(QWidget* content, char const* key,
                                               char const* context, char const* source)
{
    auto* const group =
        new DialogWidgetGroup({}, content, QString::fromLatin1(key), true, m_dialog);
    texts.addTitle(group, context, source);
    m_dialog->mainLayout()->addWidget(group);
    return group;
}

DialogWidgetGroup2rd* SectionCutWidgets::addSubGroup(QWidget* content, char const* source)
{
    auto* const group = new DialogWidgetGroup2rd({}, content, true, m_dialog);
    texts.addTitle(group, "DialogFreeCut", source);
    return group;
}

QWidget* SectionCutWidgets::buildSelection()
{
    auto* const content = new QWidget(m_dialog);
    auto* const row = new MellHBoxLayout(content);
    allParts = new QRadioButton(content);
    selectedParts = new QRadioButton(content);
    texts.addText(allParts, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "All parts"));
    texts.addText(selectedParts, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "Selected parts"));
    row->addWidget(allParts);
    row->addWidget(selectedParts);
    return content;
}

QWidget* SectionCutWidgets::buildPlane()
{
    auto* const content = new QWidget(m_dialog);
    auto* const column = new MellVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    m_indicateGroup =
        addSubGroup(buildIndicatePlane(), QT_TRANSLATE_NOOP("DialogFreeCut", "Indicate Plane"));
    m_normalGroup = addSubGroup(buildNormal(), QT_TRANSLATE_NOOP("DialogFreeCut", "Plane Normal"));
    m_centerGroup = addSubGroup(buildCenter(), QT_TRANSLATE_NOOP("DialogFreeCut", "Plane Center"));
    m_sizeGroup = addSubGroup(buildSize(), QT_TRANSLATE_NOOP("DialogFreeCut", "Plane Size"));
    for (QWidget* const group : {m_indicateGroup, m_normalGroup, m_centerGroup, m_sizeGroup})
        column->addWidget(group);
    return content;
}

QWidget* SectionCutWidgets::buildIndicatePlane()
{
    auto* const content = new QWidget(m_dialog);
    auto* const row = new MellHBoxLayout(content);
    for (std::size_t i = 0; i < planeButtons.size(); ++i) {
        planeButtons[i] = new ToolButton(planeCommands[i], content);
        row->addWidget(planeButtons[i]);
    }
    row->addStretch(1);
    return content;
}

SectionCutWidgets::Fields SectionCutWidgets::addVector(QWidget* parent, QGridLayout* grid,
                                                       bool isLength)
{
    Fields fields;
    for (int i = 0; i < 3; ++i) {
        auto* const label = new QLabel(QString(QChar('X' + i)), parent);
        auto* const field = makeField(parent, isLength, -farthest, farthest);
        field->setUnitTextVisible(false);
        label->setBuddy(field);
        grid->addWidget(label, 0, 2 * i);
        grid->addWidget(field, 0, 2 * i + 1);
        grid->setColumnStretch(2 * i + 1, 1);
        fields[std::size_t(i)] = field;
    }
    return fields;
}

QWidget* SectionCutWidgets::buildNormal()
{
    auto* const content = new QWidget(m_dialog);
    normal = addVector(content, new MellGridLayout(content), false);
    return content;
}

QWidget* SectionCutWidgets::buildCenter()
{
    auto* const content = new QWidget(m_dialog);
    auto* const column = new MellVBoxLayout(content);
    auto* const grid = new MellGridLayout;
    column->addLayout(grid);
    center = addVector(content, grid, true);
    auto* const row = new MellHBoxLayout;
    column->addLayout(row);
    slider = new CutViewSlider(content);
    auto* const label = new QLabel(content);
    texts.addText(label, "DialogLabel", QT_TRANSLATE_NOOP("DialogLabel", "Step"));
    step = makeField(content, true, leastStep, largestStep);
    step->setUnitTextVisible(false);
    step->setValue(firstStep);
    label->setBuddy(step);
    row->addWidget(slider, 1);
    row->addWidget(label);
    row->addWidget(step);
    // Below what is dragged while it comes and goes.
    missed = new MissedParts(content);
    column->addWidget(missed);
    return content;
}

QWidget* SectionCutWidgets::buildSize()
{
    auto* const content = new QWidget(m_dialog);
    auto* const row = new MellHBoxLayout(content);
    for (MellQuantitySpinBox*& field : size)
        field = makeField(content, true, -largestSize, largestSize);
    row->addWidget(size[0], 1);
    row->addWidget(new QLabel(QStringLiteral("*"), content));
    row->addWidget(size[1], 1);
    return content;
}

QWidget* SectionCutWidgets::buildOptions()
{
    auto* const content = new QWidget(m_dialog);
    auto* const column = new MellVBoxLayout(content);
    removeOriginal = new QCheckBox(content);
    useBoundary = new QCheckBox(content);
    texts.addText(removeOriginal, "DialogFreeCut",
                  QT_TRANSLATE_NOOP("DialogFreeCut", "Remove original part(s)"));
    texts.addText(useBoundary, "DialogFreeCut",
                  QT_TRANSLATE_NOOP("DialogFreeCut", "Use plane boundary"));
    column->addWidget(removeOriginal);
    column->addWidget(useBoundary);
    return content;
}

QWidget* SectionCutWidgets::buildAdvanced()
{
    auto* const content = new QWidget(m_dialog);
    auto* const grid = new MellGridLayout(content);
    useAdvanced = new QCheckBox(content);
    cutTypeLabel = new QLabel(content);
    cutType = new MellComboBox(content);
    pinHole = new DialogPinHoleUI;
    lapJoint = new DialogLapJointUI;
    texts.addText(useAdvanced, "DialogFreeCut",
                  QT_TRANSLATE_NOOP("DialogFreeCut", "Use advanced cut"));
    texts.addText(cutTypeLabel, "DialogFreeCut",
                  QT_TRANSLATE_NOOP("DialogFreeCut", "Section cut type"));
    char const* const types[] = {QT_TRANSLATE_NOOP("DialogFreeCut", "Connector Pins/Holes"),
                                 QT_TRANSLATE_NOOP("DialogFreeCut", "Lap Joint")};
    for (int i = 0; i < 2; ++i) {
        cutType->addItem({});
        texts.add([this, i](QString const& text) { cutType->setItemText(i, text); },
                  "DialogFreeCut", types[i]);
    }
    grid->addWidget(useAdvanced, 0, 0, 1, 2);
    grid->addWidget(cutTypeLabel, 1, 0);
    grid->addWidget(cutType, 1, 1);
    grid->addWidget(pinHole, 2, 0, 1, 2);
    grid->addWidget(lapJoint, 3, 0, 1, 2);
    // Last, as Tab goes on in the order in which they are made.
    preview = new ConnectorPreview(content);
    grid->addWidget(preview, 4, 0, 1, 2);
    for (QWidget* const widget : {static_cast<QWidget*>(cutTypeLabel),
                                  static_cast<QWidget*>(cutType), static_cast<QWidget*>(pinHole),
                                  static_cast<QWidget*>(lapJoint), static_cast<QWidget*>(preview)})
        widget->hide();
    return content;
}

void SectionCutWidgets::buildButtons()
{
    ok = new PushButtonAnimate(m_dialog);
    cancel = new PushButtonAnimate(m_dialog);
    texts.addText(ok, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "OK"));
    texts.addText(cancel, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "Cancel"));
    ok->setEnabled(false);
    m_dialog->buttonLayout()->addWidget(ok);
    m_dialog->buttonLayout()->addWidget(cancel);
}

void SectionCutWidgets::setHasParts(bool hasParts)
{
    for (QWidget* const group :
         {static_cast<QWidget*>(m_indicateGroup), static_cast<QWidget*>(m_normalGroup),
          static_cast<QWidget*>(m_centerGroup), static_cast<QWidget*>(m_sizeGroup),
          static_cast<QWidget*>(m_optionsGroup), static_cast<QWidget*>(advancedGroup)})
        group->setEnabled(hasParts);
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogSectioncut.h"

#include "cutjobs/SectionCutImp.h"
#include "dialogs/ConnectorPreview.h"
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "dialogs/LivePlane.h"
#include "dialogs/PartQuery.h"
#include "dialogs/PlaneFields.h"
#include "dialogs/PresetButton.h"
#include "dialogs/ToolButton.h"
#include "dialogs/UndoKeys.h"
#include "messages/Attention.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/StoredSettings.h"
#include "platform/view/GLView.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"
#include "tools/PlaneGraphicObject.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>

namespace Freecut {

namespace {

constexpr char const* allOrSelectedKey = "/SectionCut/allOrSelected";
constexpr char const* removeOriginalKey = "/SectionCut/removeOriginal";
constexpr char const* useBoundaryKey = "/SectionCut/useBoundary";
constexpr char const* planeClass = "Freecut::PlaneGraphicObject";

}  // namespace

// How it lives.

DialogSectioncut::DialogSectioncut(QWidget* parent)
    : DialogWidgetOneOff(parent, false), m_worker(new SectionCutImp(nullptr))
{
    ui.build(*this);
    loadParas();
    connectAll();
    new UndoKeys(*this);
    updateUIdata();
    m_cut.emplace(m_worker, this);
    startTool();
}

DialogSectioncut::~DialogSectioncut() = default;

void* DialogSectioncut::create(QWidget* parent)
{
    return static_cast<DialogWidget*>(new DialogSectioncut(parent));
}

void DialogSectioncut::connectAll()
{
    connect(ui.useAdvanced, &QAbstractButton::toggled, this,
            &DialogSectioncut::on_advanced_checked);
    connect(ui.ok, &QAbstractButton::clicked, this, &DialogSectioncut::on_cut_clicked);
    connect(ui.cancel, &QAbstractButton::clicked, this, &DialogSectioncut::on_cancel_clicked);
    for (MellQuantitySpinBox* const field : ui.center)
        connect(field, &QAbstractSpinBox::editingFinished, this,
                &DialogSectioncut::on_center_changed);
    for (MellQuantitySpinBox* const field : ui.normal)
        connect(field, &MellQuantitySpinBox::valueChanged, this,
                &DialogSectioncut::on_normal_changed);
    connect(ui.slider, &QAbstractSlider::valueChanged, this, &DialogSectioncut::on_slider_changed);
    for (MellQuantitySpinBox* const field : ui.size)
        connect(field, &MellQuantitySpinBox::valueChanged, this,
                &DialogSectioncut::on_size_changed);
    connect(ui.step, &MellQuantitySpinBox::valueChanged, this,
            &DialogSectioncut::on_stepsize_changed);
    connect(ui.cutType, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &DialogSectioncut::comboBoxValueChanged);
    connect(ui.allParts, &QAbstractButton::toggled, this, &DialogSectioncut::updateGUI);
    ui.preview->setScene([this] { return previewScene(); });
    ui.missed->setScene([this] { return planeAndParts(); });
    ui.preview->presets()->setValues([this] { return shownPreset(); },
                                     [this](ConnectorPreset const& preset) { showPreset(preset); });
    ui.preview->follow(*ui.pinHole);
    ui.preview->follow(*ui.lapJoint);
    connect(ui.useBoundary, &QAbstractButton::toggled, ui.preview, &ConnectorPreview::refresh);
}

void DialogSectioncut::startTool()
{
    MainWindow const* const window = MainWindow::getInstance();
    Base::GLView* const front = window ? window->activeGLView() : nullptr;
    if (runningTool<PlanecutSelection>(front))
        return;
    // While the command that opens the dialog runs, no tool takes the place of another one.
    if (front)
        front->stopSelection();
    QAction* const first = ui.planeButtons[0]->defaultAction();
    if (!first)
        return;
    // Pressed by its trigger alone, which starts the tool.
    first->setChecked(false);
    first->trigger();
}

void DialogSectioncut::loadParas()
{
    bool const isAll = storedValue(allOrSelectedKey, true).toBool();
    ui.allParts->setChecked(isAll);
    ui.selectedParts->setChecked(!isAll);
    ui.removeOriginal->setChecked(storedValue(removeOriginalKey, false).toBool());
    ui.useBoundary->setChecked(storedValue(useBoundaryKey, false).toBool());
}

void DialogSectioncut::saveParas()
{
    storeValue(allOrSelectedKey, ui.allParts->isChecked());
    storeValue(removeOriginalKey, ui.removeOriginal->isChecked());
    storeValue(useBoundaryKey, ui.useBoundary->isChecked());
}

void DialogSectioncut::retranslate()
{
    ui.retranslate();
}

void DialogSectioncut::on_cancel_clicked()
{
    saveParas();
    destruct();
}

void DialogSectioncut::closeEvent(QCloseEvent* event)
{
    // The tool goes with its dialog, and takes the plane along.
    if (isClosable()) {
        ui.preview->end();
        ui.missed->setScene({});
        leaveView({PlanecutSelection::toolName});
    }
    DialogWidgetOneOff::closeEvent(event);
}

// What it works on.

Base::GLView* DialogSectioncut::view() const
{
    return getDocument() ? getDocument()->getView() : nullptr;
}

void DialogSectioncut::redrawView()
{
    if (Base::GLView* const shownIn = view())
        shownIn->redraw();
}

void DialogSectioncut::setDocument(Base::Document* document)
{
    if (!document || document == getDocument())
        return;
    DialogWidgetOneOff::setDocument(document);
    slotObjectSelectionChanged();
    updateGUI();
}

void DialogSectioncut::setObject(PlaneGraphicObject* object)
{
    if (planeObject)
        planeObject->signalChanged.disconnect(this);
    planeObject = object;
    if (planeObject)
        planeObject->signalChanged.connect(this, &DialogSectioncut::updateUIdata);
    updateUIdata();
}

void DialogSectioncut::slotObjectSelectionChanged()
{
    updateGUI();
    if (!view())
        return;
    PlaneGraphicObject* found = nullptr;
    for (Base::DocumentObject* const object : getDocument()->getObjectArray())
        if (object->getClassName() == planeClass)
            found = static_cast<PlaneGraphicObject*>(object);
    setObject(found);
    ui.ok->setEnabled(found != nullptr);
    takeParts(false);
}

void DialogSectioncut::takeParts(bool haveChanged)
{
    Base::Document* const active = activeDocument();
    bool const isOfParts =
        active && active->getTypeId().isDerivedFrom(Mesh::Document::getClassTypeId());
    std::vector<Base::DocumentObject*> parts;
    if (isOfParts)
        for (Mesh::DocumentObject* const part : active->getPartList())
            parts.push_back(part);
    if (Base::Document* const wanted = isOfParts ? active : nullptr; wanted != getDocument()) {
        // A plane of the old document would go without a word.
        setObject(nullptr);
        ui.ok->setEnabled(false);
        setDocumentPointer(wanted);
    } else if (!haveChanged && parts == partList) {
        return;
    }
    refreshForecasts();
    partList = std::move(parts);
    partsBox.SetNull();
    for (Base::DocumentObject const* const part : partList)
        partsBox.Add(part->getBoundingBox());
    if (planeObject) {
        updateSlideRange();
        updateSliderValue();
    }
}

void DialogSectioncut::slotDelObject(Base::DocumentObject* object, std::string className)
{
    if (getDocument() && className == planeClass) {
        getDocument()->removefromSelectedObjects(object);
        setObject(nullptr);
        ui.ok->setEnabled(false);
    }
    ui.preview->objectGoes(object);
    updateGUI();
}

void DialogSectioncut::slotReplaceObject(Base::DocumentObject*)
{
    takeParts(true);
}

void DialogSectioncut::updateGUI()
{
    refreshForecasts();
    ui.setHasParts(!PartQuery::chosenParts(getDocument(), ui.selectedParts->isChecked()).empty());
}

void DialogSectioncut::refreshForecasts()
{
    ui.preview->refresh();
    ui.missed->refresh();
}

std::optional<MissedParts::Scene> DialogSectioncut::planeAndParts() const
{
    if (!planeObject || !getDocument())
        return {};
    PlaneCorners const plane = corners();
    return MissedParts::Scene{PlaneNumbers::centerOf(plane), PlaneNumbers::normalOf(plane),
                              PartQuery::chosenParts(getDocument(), ui.selectedParts->isChecked())};
}

void DialogSectioncut::initializeFromCutView()
{
    std::optional<LivePlane> const live = livePlane();
    if (!live)
        return;
    PlaneFields::show(ui.center, live->point);
    PlaneFields::showAndTell(ui.normal, live->normal);
    if (std::optional<PlaneType> const type = typeAlongAxes(live->normal))
        if (QAction const* const action = ui.planeButtons[*type]->defaultAction();
            action && !action->isChecked())
            ui.planeButtons[*type]->click();
    if (auto* const tool = runningTool<PlanecutSelection>(view()))
        tool->setPlaneByCenterAndNormal(live->point, live->normal);
}

// Connectors.

void DialogSectioncut::on_advanced_checked(bool checked)
{
    if (!checked)
        ui.advancedGroup->setExpand(false, false);
    ui.cutTypeLabel->setVisible(checked);
    ui.cutType->setVisible(checked);
    comboBoxValueChanged();
    if (!checked)
        ui.advancedGroup->setExpand(true, false);
}

void DialogSectioncut::comboBoxValueChanged()
{
    bool const isAdvanced = ui.useAdvanced->isChecked();
    bool const isPinHole = ui.cutType->currentIndex() == 0;
    ui.pinHole->setVisible(isAdvanced && isPinHole);
    ui.lapJoint->setVisible(isAdvanced && !isPinHole);
    ui.preview->setVisible(isAdvanced);
    refreshForecasts();
}

ConnectorPreset DialogSectioncut::shownPreset() const
{
    ConnectorPreset preset;
    preset.pins = getPinHoleCutParas();
    preset.lapJoint = getLapJointCutParas();
    bool const isJoint = ui.cutType->currentIndex() != 0;
    preset.kind = isJoint              ? ConnectorPreset::Kind::LapJoint
                  : preset.pins->isPin ? ConnectorPreset::Kind::Pins
                                       : ConnectorPreset::Kind::Holes;
    return preset;
}

void DialogSectioncut::showPreset(ConnectorPreset const& preset)
{
    if (preset.pins)
        ui.pinHole->setParas(*preset.pins);
    if (preset.lapJoint)
        ui.lapJoint->setParas(*preset.lapJoint);
    ui.cutType->setCurrentIndex(preset.kind == ConnectorPreset::Kind::LapJoint ? 1 : 0);
}

PreviewScene DialogSectioncut::previewScene() const
{
    PreviewScene scene{planeObject, view(),
                       PartQuery::chosenParts(getDocument(), ui.selectedParts->isChecked()),
                       ui.useBoundary->isChecked()};
    if (!ui.useAdvanced->isChecked())
        return scene;
    if (ui.cutType->currentIndex() == 0)
        scene.connectors = getPinHoleCutParas();
    else
        scene.connectors = getLapJointCutParas();
    return scene;
}

PinHoleParas DialogSectioncut::getPinHoleCutParas() const
{
    return ui.pinHole->paras();
}

LapJointParas DialogSectioncut::getLapJointCutParas() const
{
    return ui.lapJoint->paras();
}

// The cut.

std::vector<Mesh::DocumentObject*> DialogSectioncut::getObjects()
{
    return PartQuery::askForParts(getDocument(),
                                  {.isOnlySelected = ui.selectedParts->isChecked(),
                                   .removesOriginals = ui.removeOriginal->isChecked()});
}

void DialogSectioncut::on_cut_clicked()
{
    if (!planeObject)
        destruct();
    std::vector<Mesh::DocumentObject*> const parts = getObjects();
    if (parts.empty())
        return;
    SECTIONCUTTYPE type = SECTIONCUT_PLANE;
    if (ui.useAdvanced->isChecked())
        type = ui.cutType->currentIndex() == 0 ? SECTIONCUT_PINHOLE : SECTIONCUT_LAPJOINT;
    if (type == SECTIONCUT_PINHOLE) {
        m_worker->setPinHoleParas(getPinHoleCutParas());
        m_worker->setConnectorPositions(ui.preview->positions());
    }
    if (type == SECTIONCUT_LAPJOINT)
        m_worker->setLapJointParas(getLapJointCutParas());
    m_worker->setCutType(type);
    m_worker->setObjects(parts);
    m_worker->setCheckBoundary(ui.useBoundary->isChecked());
    m_worker->setPlaneObject(planeObject);
    emit signalOperate();
    m_cut->begin();
}

void DialogSectioncut::processEnd()
{
    m_cut->end();
}

void DialogSectioncut::handleResult(bool ok)
{
    if (!ok) {
        m_cut->tellFailure(*m_worker, getDocument(), [this] { on_cut_clicked(); });
        return;
    }
    IntegrationRules rules;
    rules.removesSources = ui.removeOriginal->isChecked();
    rules.planes = m_worker->planes();
    // The document stays where it is while the dialog ends.
    QPointer<Base::GLView> const shownIn = view();
    DialogCut::takeResult(*m_worker, getDocument(), rules, [this, &shownIn] {
        saveParas();
        destruct();
        if (shownIn)
            shownIn->redraw();
        m_cut->end();
    });
}

}  // namespace Freecut

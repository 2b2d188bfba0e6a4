// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogPolygoncut.h"

#include "cutjobs/PolygonCutImp.h"
#include "dialogs/CutForecast.h"
#include "dialogs/DialogCoordinateUI.h"
#include "dialogs/PartQuery.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/SolidHandOver.h"
#include "dialogs/ToolButton.h"
#include "dialogs/ToolFindings.h"
#include "dialogs/UndoKeys.h"
#include "messages/Attention.h"
#include "platform/document/Document.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/StoredSettings.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"
#include "selection/CuboidcutSelection.h"
#include "selection/CylindercutSelection.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tools/SolidValues.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeProperty.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>

#include <algorithm>

namespace Freecut {

namespace {

constexpr char const* allOrSelectedKey = "/PolygonCut/allOrSelected";
constexpr char const* removeOriginalKey = "/PolygonCut/removeOriginal";

bool isSolidTool(std::string const& className)
{
    return className == "Freecut::PolygonGraphicObject" ||
           className == "Freecut::CylinderGraphicObject" ||
           className == "Freecut::CuboidGraphicObject";
}

}  // namespace

// How it lives.

DialogPolygoncut::DialogPolygoncut(QWidget* parent)
    : DialogWidgetOneOff(parent, false), m_worker(new PolygonCutImp(nullptr))
{
    ui.build(*this);
    loadParas();
    followFindings();
    connectAll();
    new UndoKeys(*this);
    m_movedPoint.emplace(*this, ui.moveFields);
    m_cut.emplace(m_worker, this);
}

DialogPolygoncut::~DialogPolygoncut() = default;

void* DialogPolygoncut::create(QWidget* parent)
{
    return static_cast<DialogWidget*>(new DialogPolygoncut(parent));
}

void DialogPolygoncut::connectAll()
{
    connect(ui.tabs, &QTabWidget::currentChanged, this, &DialogPolygoncut::slotTabCurrentChanged);
    connect(ui.startPreview, &QAbstractButton::clicked, this,
            &DialogPolygoncut::on_bt_startPreview_clicked);
    connect(ui.stopPreview, &QAbstractButton::clicked, this,
            &DialogPolygoncut::on_bt_stopPreview_clicked);
    connect(ui.reset, &QAbstractButton::clicked, this, &DialogPolygoncut::on_bt_reset_clicked);
    connect(ui.addPoint, &QAbstractButton::clicked, this,
            &DialogPolygoncut::on_bt_enterCoord_clicked);
    connect(ui.showCoordinate, &QAbstractButton::toggled, this, &DialogPolygoncut::on_valueChanged);
    connect(ui.cutTill, &QAbstractButton::toggled, this, &DialogPolygoncut::on_valueChanged);
    connect(ui.cutTillValue, &QAbstractSpinBox::editingFinished, this,
            &DialogPolygoncut::on_valueChanged);
    for (MellQuantitySpinBox* const field : ui.moveFields)
        connect(field, &QAbstractSpinBox::editingFinished, this,
                &DialogPolygoncut::on_line_movePoint_changed);
    connect(ui.ok, &QAbstractButton::clicked, this, &DialogPolygoncut::on_cut_clicked);
    connect(ui.cancel, &QAbstractButton::clicked, this, &DialogPolygoncut::on_cancel_clicked);
    connect(ui.allParts, &QAbstractButton::toggled, this, &DialogPolygoncut::updateGUI);
}

void DialogPolygoncut::followFindings()
{
    m_findings = new ToolFindings(
        [this] { return toolOfPage(); },
        [this](VolumeGraphicObject& tool) { return page().isComplete(tool); }, this);
    connect(m_findings, &ToolFindings::found, this,
            [this](QString const& problem) { ui.showProblem(problem); });
    connect(m_findings, &ToolFindings::derived, this, [this] {
        if (!m_preview.isOn())
            showFindings();
    });
}

void DialogPolygoncut::loadParas()
{
    bool const isAll = storedValue(allOrSelectedKey, true).toBool();
    (isAll ? ui.allParts : ui.selectedParts)->setChecked(true);
    ui.removeOriginal->setChecked(storedValue(removeOriginalKey, false).toBool());
}

void DialogPolygoncut::saveParas()
{
    storeValue(allOrSelectedKey, ui.allParts->isChecked());
    storeValue(removeOriginalKey, ui.removeOriginal->isChecked());
}

void DialogPolygoncut::retranslate()
{
    ui.retranslate();
}

void DialogPolygoncut::setDocument(Base::Document* document)
{
    if (!document || document == getDocument())
        return;
    restoreStatus();
    DialogWidgetOneOff::setDocument(document);
    initStatus();
    updateGUI();
}

void DialogPolygoncut::initStatus()
{
    m_filtered = view();
    if (!m_filtered)
        return;
    m_filtered->installEventFilter(this);
    // While the command that opens the dialog runs, no tool takes the place of another one.
    m_filtered->stopSelection();
    m_filtered->startSelection(PolygoncutSelection::toolName);
    ui.forecast->begin([this] { return forecastScene(); });
}

void DialogPolygoncut::restoreStatus()
{
    ui.forecast->end();
    if (!m_filtered)
        return;
    m_filtered->removeEventFilter(this);
    // Another tool is somebody else's.
    bool const isOurs = std::any_of(ui.pages.begin(), ui.pages.end(), [&](SolidToolPage* shown) {
        return m_filtered->getInteractModeName() == shown->selectionClass();
    });
    if (isOurs)
        m_filtered->stopSelection();
    m_filtered.clear();
}

void DialogPolygoncut::closeEvent(QCloseEvent* event)
{
    DialogWidgetOneOff::closeEvent(event);
    if (event->isAccepted())
        restoreStatus();
}

void DialogPolygoncut::on_cancel_clicked()
{
    saveParas();
    destruct();
}

// What it works on.

Base::GLView* DialogPolygoncut::view() const
{
    return getDocument() ? getDocument()->getView() : nullptr;
}

SolidToolPage& DialogPolygoncut::page() const
{
    return *ui.pages[std::size_t(ui.tabs->currentIndex())];
}

VolumeGraphicObject* DialogPolygoncut::toolOfPage() const
{
    return object && object->getClassName() == page().objectClass() ? object : nullptr;
}

PolygoncutSelection* DialogPolygoncut::getPolygoncutSelection() const
{
    return runningTool<PolygoncutSelection>(view());
}

CylindercutSelection* DialogPolygoncut::getCylindercutSelection() const
{
    return runningTool<CylindercutSelection>(view());
}

CuboidcutSelection* DialogPolygoncut::getCuboidcutSelection() const
{
    return runningTool<CuboidcutSelection>(view());
}

void DialogPolygoncut::setObject(VolumeGraphicObject* tool)
{
    if (object) {
        object->signalChanged.disconnect(this);
        object->signalRestored.disconnect(this);
    }
    if (tool != object)
        m_preview.end(nullptr, nullptr);
    object = tool;
    if (object) {
        object->signalChanged.connect(this, &DialogPolygoncut::updateGUI);
        object->signalRestored.connect(this, &DialogPolygoncut::showRestored);
    }
    m_findings->follow(object);
    updateModelData();
    updateGUI();
}

void DialogPolygoncut::slotObjectSelectionChanged()
{
    updateGUI();
    if (!getDocument())
        return;
    VolumeGraphicObject* found = nullptr;
    for (Base::DocumentObject* const candidate : getDocument()->getObjectArray())
        if (isSolidTool(candidate->getClassName()))
            found = static_cast<VolumeGraphicObject*>(candidate);
    setObject(found);
}

void DialogPolygoncut::slotNewObject(Base::DocumentObject*)
{
    updateGUI();
}

void DialogPolygoncut::slotReplaceObject(Base::DocumentObject* replaced)
{
    ui.forecast->objectChanges(replaced);
    updateGUI();
}

void DialogPolygoncut::slotDelObject(Base::DocumentObject* gone, std::string className)
{
    ui.forecast->objectChanges(gone);
    if (isSolidTool(className)) {
        getDocument()->removefromSelectedObjects(gone);
        setObject(nullptr);
        ui.ok->setEnabled(false);
    } else {
        updateGUI();
    }
}

void DialogPolygoncut::slotTabCurrentChanged(int)
{
    if (view())
        view()->startSelection(page().selectionClass());
    updateGUI();
}

bool DialogPolygoncut::eventFilter(QObject* watched, QEvent* event)
{
    // Of a view that is being destroyed, which is no view any more, other events come.
    if (event->type() == QEvent::Paint && watched == m_filtered) {
        if (isVisible() && !m_preview.isOn())
            followView();
        // A camera that was turned takes the tool along.
        ui.forecast->refresh();
    }
    return DialogWidgetOneOff::eventFilter(watched, event);
}

void DialogPolygoncut::followView()
{
    int const shown = isAxisView(m_filtered->viewIndex()) ? m_filtered->viewIndex() : -1;
    if (shown == m_viewIndex)
        return;
    m_viewIndex = shown;
    // The tool follows the camera first: what is written now is derived for where it lies.
    m_filtered->paintPending();
    updateGUI();
    updateModelData();
}

// What it shows.

void DialogPolygoncut::on_valueChanged()
{
    updateGUI();
    updateModelData();
    noteEdit(getDocument());
}

void DialogPolygoncut::updateModelData()
{
    VolumeGraphicObject* const tool = toolOfPage();
    // A preview stays what it was when it began, however the camera lies now.
    if (tool && !m_preview.isOn()) {
        SharedToolValues const shared{
            .isCutTillEnabled = ui.cutTill->isChecked(),
            .cutTill = float(ui.cutTillValue->value()),
            .showsCoordinate = ui.showCoordinate->isChecked() && ui.showCoordinate->isEnabled(),
            .viewIndex = m_viewIndex};
        page().write(*tool, shared, [this] {
            auto const* const running =
                view() ? dynamic_cast<FreecutSelection*>(view()->navigationStyle()->mouseModel())
                       : nullptr;
            return running ? running->calculateSuitableSize() : 0.001f;
        });
    }
    if (view())
        view()->redraw();
}

void DialogPolygoncut::updateGUI()
{
    if (m_preview.isOn())
        return;
    bool const hasParts =
        !PartQuery::chosenParts(getDocument(), ui.selectedParts->isChecked()).empty();
    ui.setHasParts(hasParts);
    ui.showView(m_viewIndex, hasParts);
    refreshPages();
    VolumeGraphicObject* const tool = toolOfPage();
    bool const isReady = tool && page().isComplete(*tool);
    ui.startPreview->setEnabled(isReady);
    ui.stopPreview->setEnabled(false);
    ui.ok->setEnabled(isReady && !page().holdsCut());
    showFindings();
    m_movedPoint->show(shownPoint());
    if (m_coordinates)
        m_coordinates->refresh();
}

void DialogPolygoncut::showFindings()
{
    m_findings->refresh();
    ui.forecast->refresh();
}

CutForecast::Scene DialogPolygoncut::forecastScene() const
{
    VolumeGraphicObject* const tool = toolOfPage();
    if (!tool || !page().isComplete(*tool) || m_cut->isRunning())
        return {};
    return {tool, view(), PartQuery::chosenParts(getDocument(), ui.selectedParts->isChecked())};
}

void DialogPolygoncut::refreshPages()
{
    for (SolidToolPage* const shown : ui.pages)
        shown->refresh(object && object->getClassName() == shown->objectClass() ? object : nullptr);
}

void DialogPolygoncut::showRestored()
{
    VolumeGraphicObject* const tool = toolOfPage();
    if (!tool)
        return;
    SolidValues const values = valuesOf(*tool);
    page().showValues(values);
    QSignalBlocker const quiet(ui.cutTill);
    ui.cutTill->setChecked(values.isCutTillEnabled);
    ui.cutTillValue->setValue(double(values.cutTill));
}

std::optional<UPoint3<float>> DialogPolygoncut::shownPoint() const
{
    VolumeGraphicObject* const tool = toolOfPage();
    if (!tool)
        return {};
    bool const showsCoordinate = ui.showCoordinate->isChecked() && isAxisView(m_viewIndex);
    return page().shownPoint(*tool, showsCoordinate);
}

void DialogPolygoncut::on_line_movePoint_changed()
{
    m_movedPoint->takeTyped([this] { return shownPoint(); }, m_viewIndex,
                            [this](UPoint3<float> const& to) { page().movePoint(view(), to); });
}

void DialogPolygoncut::addPoint(UPoint3<float> const& eyePoint)
{
    page().addPoint(view(), eyePoint);
}

void DialogPolygoncut::on_bt_enterCoord_clicked()
{
    if (!m_coordinates) {
        m_coordinates = new DialogCoordinateUI(this);
        m_coordinates->setDialog(this);
    }
    m_coordinates->refresh();
    m_coordinates->show();
}

void DialogPolygoncut::on_bt_reset_clicked()
{
    if (auto* const running =
            view() ? dynamic_cast<VolumeSelection*>(view()->navigationStyle()->mouseModel())
                   : nullptr)
        running->resetSelection();
    setObject(nullptr);
    noteEdit(getDocument());
}

// The preview.

void DialogPolygoncut::setPreviewState(bool on)
{
    if (on && object && view())
        m_preview.begin(*object, *view(), *this);
    else
        m_preview.end(object, view());
}

void DialogPolygoncut::on_bt_startPreview_clicked()
{
    setPreviewState(true);
}

void DialogPolygoncut::on_bt_stopPreview_clicked()
{
    setPreviewState(false);
    updateGUI();
}

// The cut.

std::vector<Mesh::DocumentObject*> DialogPolygoncut::getObjects()
{
    return PartQuery::askForParts(getDocument(),
                                  {.isOnlySelected = ui.selectedParts->isChecked(),
                                   .removesOriginals = ui.removeOriginal->isChecked()});
}

void DialogPolygoncut::on_cut_clicked()
{
    execute();
}

void DialogPolygoncut::execute()
{
    VolumeGraphicObject* const tool = toolOfPage();
    if (!tool)
        return;
    std::vector<Mesh::DocumentObject*> const parts = getObjects();
    if (parts.empty())
        return;
    if (!handOverSolids(*m_worker, *tool, page().isClearanceOn())) {
        QString const why = m_findings->problem();
        if (view())
            view()->redraw();
        getDocument()->abortTransaction();
        warnAttention(why.isEmpty() ? tr("The tool has no solid to cut with. Draw it anew.") : why);
        return;
    }
    m_worker->setObjects(parts);
    ui.forecast->clear();
    emit signalOperate();
    m_cut->begin();
}

void DialogPolygoncut::processEnd()
{
    m_cut->end();
    ui.forecast->refresh();
}

void DialogPolygoncut::handleResult(bool ok)
{
    if (!ok) {
        m_cut->tellFailure(*m_worker, getDocument(), [this] { execute(); });
        ui.forecast->refresh();
        return;
    }
    IntegrationRules rules;
    rules.transactionName = "Polygon Cut";
    rules.removesSources = ui.removeOriginal->isChecked();
    if (UVector3<float> const& along = m_worker->direction(); along.GetLength() > 0)
        rules.shapeDirection = {along.X(), along.Y(), along.Z()};
    DialogCut::takeResult(*m_worker, getDocument(), rules, [this] {
        saveParas();
        m_cut->end();
        destruct();
    });
}

}  // namespace Freecut

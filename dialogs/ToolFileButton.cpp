// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ToolFileButton.h"

#include "dialogs/DialogPolygoncut.h"
#include "dialogs/OutlineImportDialog.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/SolidToolPage.h"
#include "display/GraphicViewProvider.h"
#include "display/PlacedView.h"
#include "messages/OrSayWhyNot.h"
#include "platform/document/Document.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/view/GLView.h"
#include "selection/EditHistory.h"
#include "selection/StoredState.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/SceneBox.h"
#include "tools/ToolFile.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeProperty.h"

#include <QCheckBox>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QTabWidget>

namespace Freecut {

ToolFileButton::ToolFileButton(DialogPolygoncut& dialog, QWidget* parent)
    : QPushButton(parent), m_dialog(dialog)
{
    connect(this, &QAbstractButton::clicked, this, &ToolFileButton::showMenu);
    retranslate();
}

SolidToolPage& ToolFileButton::page() const
{
    PolygonCutWidgets const& widgets = m_dialog.widgets();
    return *widgets.pages[std::size_t(widgets.tabs->currentIndex())];
}

bool ToolFileButton::canSave() const
{
    VolumeGraphicObject const* const tool = m_dialog.getGraphicObject();
    return m_dialog.view() && tool && tool->getClassName() == page().objectClass() &&
           page().isComplete(*tool);
}

// The menu is no child of the button, so that a preview can disable the button like any other.
void ToolFileButton::showMenu()
{
    QMenu menu;
    bool const isFree = !page().holdsCut();
    menu.addAction(tr("Open tool..."), this, &ToolFileButton::chooseAndOpen)->setEnabled(isFree);
    menu.addAction(tr("Save tool as..."), this, &ToolFileButton::chooseAndSave)
        ->setEnabled(isFree && canSave());
    menu.addAction(tr("Import outline..."), this, &ToolFileButton::chooseAndImport)
        ->setEnabled(isFree && m_dialog.view());
    menu.exec(mapToGlobal(rect().bottomLeft()));
}

void ToolFileButton::chooseAndOpen()
{
    QString const file =
        QFileDialog::getOpenFileName(this, tr("Open tool"), {}, tr("Drawn tools (*.json)"));
    if (!file.isEmpty())
        openFrom(file);
}

void ToolFileButton::chooseAndSave()
{
    QString file =
        QFileDialog::getSaveFileName(this, tr("Save tool"), {}, tr("Drawn tools (*.json)"));
    if (file.isEmpty())
        return;
    if (QFileInfo(file).suffix().isEmpty())
        file += QStringLiteral(".json");
    saveTo(file);
}

void ToolFileButton::chooseAndImport()
{
    QString const file =
        QFileDialog::getOpenFileName(this, tr("Import outline"), {}, tr("Drawings (*.svg *.dxf)"));
    if (file.isEmpty())
        return;
    constexpr char const* names[] = {"X", "Y", "Z"};
    auto const [across, up] = axesAcrossView(m_dialog.viewIndex());
    std::vector<UPoint3<float>> const corners = cornersOf(boxOfAllParts(*m_dialog.getDocument()));
    UPoint3<float> const middle = corners.front() + (corners.back() - corners.front()) * 0.5f;
    OutlineImportDialog question(file, {QLatin1String(names[across]), QLatin1String(names[up])},
                                 {middle[across], middle[up]}, this);
    if (question.exec() != QDialog::Accepted)
        return;
    UPoint3<float> place = middle;
    place[across] = question.middle().X();
    place[up] = question.middle().Y();
    importPath(question.path(), place);
}

// A tool that is not there yet gets what stands in the fields.
SolidValues ToolFileButton::typedValues() const
{
    PolygonCutWidgets const& widgets = m_dialog.widgets();
    PolygonGraphicObject scratch;
    widgets.polygon->write(scratch,
                           {.isCutTillEnabled = widgets.cutTill->isChecked(),
                            .cutTill = float(widgets.cutTillValue->value()),
                            .showsCoordinate = false,
                            .viewIndex = m_dialog.viewIndex()},
                           [] { return 1.0f; });
    return valuesOf(scratch);
}

void ToolFileButton::importPath(Drawings::Path const& path, UPoint3<float> const& middle)
{
    Base::GLView* const view = m_dialog.view();
    if (!view)
        return;
    StoredTool tool;
    tool.view = settledPlaceOf(*view);
    tool.values = typedValues();
    UVector3<float> const up = view->getViewUpDirection();
    UVector3<float> const right = up * view->getViewDirection();
    Drawings::Point const from = Drawings::extentOf(path).middle();
    for (Drawings::Point const& p : path.points)
        tool.points.push_back(middle +
                              (right * float(p.X() - from.X()) + up * float(p.Y() - from.Y())));
    tool.edges.resize(tool.points.size());
    orSayWhyNot([&] { takeUp(tool); });
}

void ToolFileButton::saveTo(QString const& file)
{
    if (!canSave())
        return;
    VolumeGraphicObject& tool = *m_dialog.getGraphicObject();
    ViewPlace const place = settledPlaceOf(*m_dialog.view());
    // What is cut from here on is what the file says.
    tool.getVolumeProperty().updateDepth();
    if (GraphicViewProvider* const provider = tool.getViewProvider())
        provider->updateGeometry();
    orSayWhyNot([&] { ToolFile::write(file, StoredTool::of(tool, place)); });
}

void ToolFileButton::openFrom(QString const& file)
{
    orSayWhyNot([&] { takeUp(ToolFile::read(file)); });
}

void ToolFileButton::takeUp(StoredTool const& tool)
{
    Base::GLView* const view = m_dialog.view();
    if (!view)
        return;
    GLCamera const before = *view->getCamera();
    putView(*view, tool.view);
    try {
        stateOf(tool, {}, *view);
    } catch (...) {
        *view->getCamera() = before;
        view->redraw();
        throw;
    }
    // The tool that is there goes along with the view first, and the dialog follows.
    view->paintPending();
    QEvent picture(QEvent::Paint);
    m_dialog.eventFilter(view, &picture);
    m_dialog.widgets().tabs->setCurrentIndex(int(tool.kind));
    EditHistory* const history = runningHistory(view);
    if (history)
        history->replace(stateOf(tool, history->state(), *view));
    m_dialog.updateGUI();
}

void ToolFileButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ToolFileButton::retranslate()
{
    setText(tr("Tool file..."));
    setToolTip(
        tr("Saves the drawn tool, opens one that was saved, or takes an outline from a drawing."));
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/CutForecast.h"
#include "dialogs/DialogCut.h"
#include "dialogs/MovedPoint.h"
#include "dialogs/PolygonCutWidgets.h"
#include "dialogs/ToolPreview.h"
#include "platform/geometry/UPoint3.h"
#include "platform/ui/DialogWidgetOneOff.h"

#include <QPointer>

#include <optional>
#include <vector>

class PolygonCutImp;

namespace Base {
class GLView;
}
namespace Mesh {
class DocumentObject;
}

namespace Freecut {

class CuboidcutSelection;
class CylindercutSelection;
class DialogCoordinateUI;
class PolygoncutSelection;
class SolidToolPage;
class ToolFindings;
class VolumeGraphicObject;

/// The dialog of the volume cut: one tab for each kind of solid tool. It starts the mouse tool of
/// its tab, edits the tool that this draws, shows it in a preview, and cuts the parts with it on a
/// thread of its own.
///
/// Dialog and mouse tool edit the same record: the tool's signal tells the dialog. The tool belongs
/// to the mouse tool, which ends with the dialog.
class DialogPolygoncut : public DialogWidgetOneOff
{
    Q_OBJECT

public:
    explicit DialogPolygoncut(QWidget* parent);
    /// Waits for a job that still runs.
    ~DialogPolygoncut() override;

    /// For DialogWindowManager.
    static void* create(QWidget* parent);

    /// Starts the polygon's mouse tool in the document's view. Ignores null.
    void setDocument(Base::Document* document) override;
    /// Follows a tool from now on; null for none.
    void setObject(VolumeGraphicObject* tool);
    VolumeGraphicObject* getGraphicObject() const { return object; }

    // The running mouse tool, if it is of that kind.

    PolygoncutSelection* getPolygoncutSelection() const;
    CylindercutSelection* getCylindercutSelection() const;
    CuboidcutSelection* getCuboidcutSelection() const;

    /// The parts to cut; asks and tells as needed. Empty for no cut.
    std::vector<Mesh::DocumentObject*> getObjects();

    /// The view of the document; null without one.
    Base::GLView* view() const;
    /// The standard view that is shown, 0 to 5, or -1.
    int viewIndex() const { return m_viewIndex; }
    /// Adds a point, in eye space, by the mouse tool of the tab.
    void addPoint(UPoint3<float> const& eyePoint);

    void slotObjectSelectionChanged() override;
    void slotNewObject(Base::DocumentObject* object) override;
    void slotDelObject(Base::DocumentObject* object, std::string className) override;
    void slotReplaceObject(Base::DocumentObject* object) override;
    void retranslate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    PolygonCutWidgets const& widgets() const { return ui; }
    /// The window for typed points; null before it was opened.
    DialogCoordinateUI* coordinateDialog() const { return m_coordinates; }

signals:
    /// Starts the worker.
    void signalOperate();

public slots:
    void updateGUI();
    /// Writes the fields into the tool's record.
    void updateModelData();
    void on_valueChanged();
    void slotTabCurrentChanged(int tab);
    void on_bt_startPreview_clicked();
    void on_bt_stopPreview_clicked();
    void on_bt_reset_clicked();
    void on_bt_enterCoord_clicked();
    void on_line_movePoint_changed();
    void on_cut_clicked();
    void on_cancel_clicked();
    void processEnd();
    void handleResult(bool ok);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    /// Takes over that the camera looks along another axis, or along none.
    void followView();
    void connectAll();
    void initStatus();
    void restoreStatus();
    void loadParas();
    void saveParas();
    void setPreviewState(bool on);
    SolidToolPage& page() const;
    /// The tool if it is of the tab's kind.
    VolumeGraphicObject* toolOfPage() const;
    CutForecast::Scene forecastScene() const;
    void refreshPages();
    void showRestored();
    std::optional<UPoint3<float>> shownPoint() const;
    /// What is wrong with the tool, and what a cut would do.
    void showFindings();
    void followFindings();
    void execute();

    PolygonCutWidgets ui;
    VolumeGraphicObject* object = nullptr;
    QPointer<Base::GLView> m_filtered;
    ToolFindings* m_findings = nullptr;
    DialogCoordinateUI* m_coordinates = nullptr;
    ToolPreview m_preview;
    int m_viewIndex = -1;
    std::optional<MovedPoint> m_movedPoint;
    /// Lives with the thread of the cut.
    PolygonCutImp* m_worker;
    std::optional<DialogCut> m_cut;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/LapJointParas.h"
#include "connectors/PinHoleParas.h"
#include "dialogs/DialogCut.h"
#include "dialogs/MissedParts.h"
#include "dialogs/PlaneNumbers.h"
#include "dialogs/SectionCutWidgets.h"
#include "platform/ui/DialogWidgetOneOff.h"

#include <optional>
#include <vector>

class SectionCutImp;
struct ConnectorPreset;

namespace Base {
class GLView;
}
namespace Mesh {
class DocumentObject;
}

namespace Freecut {

class PlaneGraphicObject;
struct PreviewScene;

/// The dialog of the section cut. It shows the plane that the plane tool has made, edits it by
/// numbers and by a slider, and cuts by it on a thread of its own.
///
/// Dialog and mouse tool edit the same plane: the plane's signal tells the dialog, and what the
/// dialog changes it shows in the view without that signal. The plane belongs to the mouse tool,
/// which ends with the dialog.
class DialogSectioncut : public DialogWidgetOneOff
{
    Q_OBJECT

public:
    /// Starts the plane tool, with the first way to define a plane, unless one runs.
    explicit DialogSectioncut(QWidget* parent);
    /// Waits for a job that still runs.
    ~DialogSectioncut() override;

    /// For DialogWindowManager.
    static void* create(QWidget* parent);

    /// Ignores null.
    void setDocument(Base::Document* document) override;
    /// Follows a plane from now on; null for none.
    virtual void setObject(PlaneGraphicObject* object);
    /// Takes the plane of the host's live cut view over, if there is one.
    void initializeFromCutView();

    /// The parts to cut; asks and tells as needed. Empty for no cut.
    std::vector<Mesh::DocumentObject*> getObjects();

    void slotObjectSelectionChanged() override;
    void slotDelObject(Base::DocumentObject* object, std::string className) override;
    void slotReplaceObject(Base::DocumentObject* object) override;
    void retranslate() override;

    SectionCutWidgets const& widgets() const { return ui; }

signals:
    /// Starts the worker.
    void signalOperate();

public slots:
    void updateGUI();
    void on_cut_clicked();
    void on_cancel_clicked();
    void on_advanced_checked(bool checked);
    void on_center_changed();
    void on_normal_changed(double value);
    void on_size_changed(double value);
    void on_slider_changed();
    void on_stepsize_changed(double value);
    void comboBoxValueChanged();
    void processEnd();
    void handleResult(bool ok);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void connectAll();
    void startTool();
    void loadParas();
    void saveParas();
    PinHoleParas getPinHoleCutParas() const;
    LapJointParas getLapJointCutParas() const;
    /// The values of both pages.
    ConnectorPreset shownPreset() const;
    void showPreset(ConnectorPreset const& preset);
    /// What the connectors shown in the view are of.
    PreviewScene previewScene() const;
    std::optional<MissedParts::Scene> planeAndParts() const;
    /// What tells of the cut before it is made.
    void refreshForecasts();

    /// The plane through the centre along the typed normal, as a, b, c, d.
    QVector4D getPlane() const;
    void updateUIdata();
    void showSizes(std::array<double, 2> const& sizes);
    void updateSlideRange();
    void updateSliderValue();
    UVector3<float> typedNormal() const;
    /// What the slider's value would be for the present centre.
    int sliderPlace() const;

    PlaneCorners corners() const;
    /// Gives the plane new corners, without its signal, and shows them.
    void showCorners(PlaneCorners const& corners);
    Base::GLView* view() const;
    void redrawView();
    /// Takes the parts of the active document for the slider's range, if they are others or have
    /// changed.
    void takeParts(bool haveChanged);

    SectionCutWidgets ui;
    PlaneGraphicObject* planeObject = nullptr;
    std::vector<Base::DocumentObject*> partList;
    UPoint3<float> center;
    UVector3<float> normal;
    UBox3<float> partsBox;
    PlaneTravel travel;
    float stepSize = 0.1f;
    /// Lives with the thread of the cut.
    SectionCutImp* m_worker;
    std::optional<DialogCut> m_cut;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/VolumeSelection.h"

#include "platform/document/Document.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/view/GLView.h"
#include "selection/ArrowKey.h"
#include "selection/RoundSteps.h"
#include "selection/ToolEdit.h"
#include "tools/SketchPlane.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeProperty.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <memory>

namespace Freecut {

namespace {

constexpr char const* previewHolds =
    QT_TRANSLATE_NOOP("Freecut::EditHistory", "Stop the preview before you edit the tool.");

}  // namespace

VolumeSelection::VolumeSelection()
{
    createdObjects.whenLost([this](Base::DocumentObject*) { graphicObject = nullptr; });
}

VolumeSelection::~VolumeSelection()
{
    VolumeSelection::resetSelection();
}

VolumeGraphicObject* VolumeSelection::getGraphicObject() const
{
    return graphicObject;
}

bool VolumeSelection::addPoint(UPoint3<float> const&)
{
    return false;
}

void VolumeSelection::setSelectedPointInfo(float, float, float) {}

void VolumeSelection::resetSelection()
{
    graphicObject = nullptr;
    createdObjects.clear();
}

UPoint3<float> VolumeSelection::eyePointUnder(QPoint position) const
{
    return m_view->getEyePointOnScreen(UPoint2<float>(float(position.x()), float(position.y())));
}

UPoint3<float> VolumeSelection::sketchPoint(QPoint position, float sketchDepth) const
{
    UPoint3<float> point = eyePointUnder(position);
    point.Z() = sketchDepth;
    m_view->getWCSPointFromEyePoint(point);
    return point;
}

bool VolumeSelection::isInPreview() const
{
    return graphicObject && graphicObject->getVolumeProperty().getPreviewOn();
}

void VolumeSelection::beginDrag(int handle, std::function<void()> putBack)
{
    selectedIndex = handle;
    isDragging = true;
    captureDrag(std::move(putBack));
}

void VolumeSelection::captureDrag(std::function<void()> putBack)
{
    capturePress([this, dragged = graphicObject, putBack = std::move(putBack)] {
        // The tool that was dragged may have gone meanwhile.
        if (graphicObject != dragged)
            return;
        putBack();
        finishEdit(*graphicObject);
    });
}

void VolumeSelection::putCentre(UPoint3<float> const& eyePoint, std::size_t keyPoints)
{
    VolumeProperty& record = graphicObject->getVolumeProperty();
    UPoint3<float> centre(eyePoint.X(), eyePoint.Y(), record.getSketchDepth());
    m_view->getWCSPointFromEyePoint(centre);
    std::vector<UPoint3<float>>& points = record.getKeyPoints();
    if (points.empty())
        points.resize(keyPoints);
    points[0] = centre;
    finishEdit(*graphicObject);
}

void VolumeSelection::moveCentreToTyped(UPoint3<float> const& typed)
{
    if (!graphicObject)
        return;
    VolumeProperty& record = graphicObject->getVolumeProperty();
    std::vector<UPoint3<float>>& points = record.getKeyPoints();
    if (points.empty())
        return;
    points[0] = movedAcrossView(points[0], typed, record.getViewIndex());
    finishEdit(*graphicObject, {.tellsListeners = false});
}

// What can be taken back.

void VolumeSelection::keepSolidEdits(std::function<bool()> makeTool)
{
    keepEdits({.read = [this] { return solidState(); },
               .write =
                   [this, makeTool = std::move(makeTool)](ToolState const& state) {
                       if (restoreSolid(state, makeTool))
                           showRestored();
                   },
               .isDragged = [this] { return isDragging; },
               .giveUpDrag = {},
               .whyFrozen = [this] { return whyFrozen(); }});
}

QString VolumeSelection::whyFrozen() const
{
    if (!isInPreview())
        return {};
    return QCoreApplication::translate("Freecut::EditHistory", previewHolds);
}

ToolState VolumeSelection::solidState() const
{
    ToolState state;
    if (!graphicObject || graphicObject->getVolumeProperty().getKeyPoints().empty())
        return state;
    VolumeProperty const& record = graphicObject->getVolumeProperty();
    state.points = record.getKeyPoints();
    state.values = valuesOf(*graphicObject);
    state.turns = record.getTurns();
    state.pose = poseOf(*m_view);
    state.depthAxis = UVector3<float>(record.getExtrudeVector()).Normalize();
    return state;
}

std::optional<ToolState> VolumeSelection::restoreSolid(ToolState const& state,
                                                       std::function<bool()> const& makeTool)
{
    if (state.points.empty()) {
        resetSelection();
        m_view->redraw();
        return {};
    }
    bool const isNew = !graphicObject;
    if (isNew && !makeTool())
        return {};
    VolumeProperty& record = graphicObject->getVolumeProperty();
    if (isNew)
        record.addTurn(state.turns.then(turnBetween(state.pose, poseOf(*m_view))));
    ToolState there = turnedTo(state, record.getTurns());
    setValues(*graphicObject, there.values);
    if (there.turns != state.turns) {
        // The parts may lie in another depth from there.
        SketchPlane const plane(*m_view->getCamera(), record.getSketchDepth());
        for (UPoint3<float>& point : there.points)
            point = plane.project(plane.toEye(point));
    }
    record.setKeyPoints(there.points);
    return there;
}

void VolumeSelection::showRestored()
{
    graphicObject->signalRestored();
    finishEdit(*graphicObject);
}

// The keyboard.

std::optional<UVector3<float>> VolumeSelection::wayOfKey(QKeyEvent const& event) const
{
    std::optional<ArrowKey> const arrow = arrowOf(event);
    if (!arrow || isFrozen() || isDragging)
        return {};
    UVector3<float> const up = m_view->getViewUpDirection();
    UVector3<float> const right = up * m_view->getViewDirection();
    return (right * float(arrow->right) + up * float(arrow->up)) * finestStep(*m_view);
}

bool VolumeSelection::nudgeCentre(QKeyEvent const& event)
{
    std::optional<UVector3<float>> const way = wayOfKey(event);
    if (!way)
        return false;
    EditHistory::OneStep const oneStep(edits(), event.isAutoRepeat());
    graphicObject->getVolumeProperty().getKeyPoints()[0] += *way;
    finishEdit(*graphicObject);
    return true;
}

bool VolumeSelection::startTool(VolumeGraphicObject* tool)
{
    std::unique_ptr<VolumeGraphicObject> owned(tool);
    Base::Document* const document = activeDocument();
    if (!document)
        return false;
    tool->getVolumeProperty().updateDepth();
    tool->getVolumeProperty().rememberView();
    graphicObject = owned.release();
    addTool(*document, graphicObject);
    return true;
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PlanecutSelection.h"

#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/ClickReach.h"
#include "platform/view/MeshGLView.h"
#include "selection/ArrowKey.h"
#include "selection/HandleHit.h"
#include "selection/PointUnderMouse.h"
#include "selection/ToolEdit.h"
#include "tools/PlaneGraphicObject.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QStatusBar>

#include <array>
#include <optional>
#include <utility>

namespace Freecut {

namespace {

/// The type of the plane tool that ended last, for the next one.
PlaneType lastPlaneType = PLANE_3POINTS;

/// A point on a part with the surface's normal there.
struct SurfacePoint
{
    UPoint3<float> point;
    UVector3<float> normal;
};

std::optional<SurfacePoint> surfaceUnder(Base::GLView* view, QPoint position)
{
    auto const* const meshView = dynamic_cast<Mesh::GLView const*>(view);
    Mesh::DocumentObject* part = nullptr;
    UTriangle<float>* triangle = nullptr;
    if (!meshView || !meshView->pickFace(position, part, triangle, false, false, false))
        return {};
    UMatrix4<float> const& matrix = part->meshProperty->getMesh()->getMatrix();
    std::array<UPoint3<float>, 3> corners;
    std::array<QPoint, 3> images;
    for (std::size_t i = 0; i < 3; ++i) {
        corners[i] = matrix * triangle->cP(int(i));
        int x, y;
        view->getWidgetcoordFromWCS(corners[i], x, y);
        images[i] = {x, y};
    }
    UVector3<float> normal = (corners[1] - corners[0]) * (corners[2] - corners[0]);
    return SurfacePoint{pointUnderMouse(corners, images, position), normal.Normalize()};
}

/// Says in the status line, for a while, what can be done with a plane that stands.
void tellOfHandles()
{
    constexpr int timeInMs = 12000;
    if (MainWindow* const window = MainWindow::getInstance())
        window->statusBar()->showMessage(
            QCoreApplication::translate(
                "Freecut::PlanecutSelection",
                "Drag the middle square to move the plane, a corner to turn it, the middle of an "
                "edge to tilt it. With Ctrl the size changes. OK cuts."),
            timeInMs);
}

bool isControlAlone(QMouseEvent const& event)
{
    return event.modifiers() == Qt::ControlModifier;
}

}  // namespace

PlanecutSelection::PlanecutSelection() : planeType(lastPlaneType)
{
    createdObjects.whenLost([this](Base::DocumentObject*) { planeObject = nullptr; });
    keepEdits({.read = [this] { return editState(); },
               .write = [this](ToolState const& state) { restore(state); },
               .isDragged = [this] { return isDragging || isResizing; },
               .giveUpDrag = {},
               .whyFrozen = [] { return QString(); }});
    setKeyHandler([this](QKeyEvent& event) { return useKey(event); });
}

PlanecutSelection::~PlanecutSelection()
{
    lastPlaneType = planeType;
    resetSelection();
}

void PlanecutSelection::initialize()
{
    showCursor("cursor_planecut");
    PointPickerMesh::initialize();
}

void PlanecutSelection::setPlaneType(PlaneType type)
{
    planeType = type;
    showCursor("cursor_planecut");
}

void PlanecutSelection::setEditsBeside(EditsBeside* beside)
{
    if (beside == editsBeside)
        return;
    editsBeside = beside;
    edits()->takeAlong(beside ? beside->edits() : nullptr);
}

void PlanecutSelection::setPlaneSize(PlaneSize const& size)
{
    planeWidth = size.width;
    planeHeight = size.height;
}

void PlanecutSelection::resetSelection()
{
    planeObject = nullptr;
    createdObjects.clear();
    pickMarkers.clear();
    clearMark();
    isDragging = isResizing = false;
    enablePointPickMesh = false;
    if (m_view)
        m_view->redraw();
}

// How a plane is defined.

int PlanecutSelection::setPlaneByCenterAndNormal(UPoint3<float> center, UVector3<float> normal)
{
    bool const isByNumbers = planeType != PLANE_TANGENT && planeType != PLANE_VERTICAL;
    if (!planeObject && isByNumbers) {
        getCutPlaneParaByCenterAndNormal(center, normal);
        enablePointPickMesh = true;
    }
    return 1;
}

void PlanecutSelection::pick(QPoint position)
{
    std::optional<SurfacePoint> const hit = surfaceUnder(m_view, position);
    if (!hit || !isPickValuable(pickMarkers.points(), hit->point))
        return;
    // A triangle without area has no side that a plane could lie on.
    bool const needsNormal = planeType == PLANE_TANGENT || planeType == PLANE_VERTICAL;
    if (needsNormal && hit->normal == UVector3<float>())
        return;
    pickNormal = hit->normal;
    if (planeType == PLANE_3POINTS) {
        pickMarkers.add(*m_view, hit->point);
        if (pickMarkers.size() < 3) {
            edits()->edited();
            return;
        }
    }
    getCutPlanePara(hit->point);
    enablePointPickMesh = true;
    tellOfHandles();
}

void PlanecutSelection::getCutPlanePara(UPoint3<float> const& point)
{
    makePlane();
    if (planeType == PLANE_3POINTS) {
        std::vector<UPoint3<float>> const picks = pickMarkers.points();
        PlaneRectangle const square = rectangleOfPicks({picks[0], picks[1], picks[2]});
        setPlaneSize(square.size);
        placePlaneAt(square);
        return;
    }
    sizeByScene();
    placePlaneAt({point, axesOfType(planeType, pickNormal), getPlaneSize()});
}

void PlanecutSelection::getCutPlaneParaByCenterAndNormal(UPoint3<float> const& center,
                                                         UVector3<float> const& normal)
{
    makePlane();
    sizeByScene();
    if (planeType <= PLANE_VERTICAL)
        pickNormal = normal;
    placePlaneAt({center, axesByNormal(planeType, normal), getPlaneSize()});
}

void PlanecutSelection::makePlane()
{
    Base::Document* const document = activeDocument();
    if (planeObject || !document)
        return;
    planeObject = new PlaneGraphicObject;
    addTool(*document, planeObject);
}

void PlanecutSelection::placePlaneAt(PlaneRectangle const& rectangle)
{
    EditHistory::OneStep const oneStep(edits());
    if (planeObject) {
        placePlane(planeObject->getProperty(), rectangle.center, rectangle.axes, rectangle.size);
        finishEdit(*planeObject);
    }
    pickMarkers.clear();
    m_view->redraw();
}

void PlanecutSelection::sizeByScene()
{
    constexpr float unset = -1;
    if (planeWidth == unset || planeHeight == unset)
        planeWidth = planeHeight = calculateSuitableSize();
}

// How a plane that stands is dragged.

int PlanecutSelection::mousePressEvent(QMouseEvent* event)
{
    int handle = 0;
    takenPress.reset();
    // A connector may stand under a handle: what is no drag is a click.
    if (hasTakenOver() && event->button() == Qt::LeftButton)
        takenPress = event->pos();
    if (event->button() == Qt::LeftButton && isHandleUnder(event->pos(), handle)) {
        (isControlAlone(*event) ? isResizing : isDragging) = true;
        capturePress([this, before = corners(), size = getPlaneSize()] { putBack(before, size); });
    } else if (enablePointPickMesh && !hasTakenOver()) {
        lastPos = event->pos();
        return PointPickerMesh::mousePressEvent(event);
    }
    lastPos = event->pos();
    return 0;
}

int PlanecutSelection::mouseMoveEvent(QMouseEvent* event)
{
    int result = 0;
    if (isResizing)
        dragMoveMouseRight(worldDelta(event->pos()));
    else if (isDragging)
        dragMoveMouseLeft(worldDelta(event->pos()));
    else if (isHandleUnder(event->pos(), selectedIndex))
        showHandleCursor(isControlAlone(*event));
    else if (hasTakenOver())
        clickTaker->hovered(*event);
    else if (enablePointPickMesh)
        result = PointPickerMesh::mouseMoveEvent(event);
    lastPos = event->pos();
    return result;
}

int PlanecutSelection::mouseReleaseEvent(QMouseEvent* event)
{
    bool const wasDragged = isDragging || isResizing;
    std::optional<QPoint> const pressed = std::exchange(takenPress, std::nullopt);
    if (hasTakenOver() && pressed && event->button() == Qt::LeftButton) {
        QPoint const way = event->pos() - *pressed;
        if (wasDragged ? way.isNull() : !isBeyondClick(way))
            clickTaker->clicked(*event);
    }
    if (event->button() == Qt::LeftButton && !planeObject)
        pick(event->pos());
    lastPos = event->pos();
    if (wasDragged) {
        m_view->unsetCursor();
        isDragging = isResizing = false;
        edits()->edited();
        return 1;
    }
    if (hasTakenOver())
        return 1;
    return enablePointPickMesh ? PointPickerMesh::mouseReleaseEvent(event) : 1;
}

bool PlanecutSelection::isHandleUnder(QPoint position, int& handle) const
{
    if (!planeObject)
        return false;
    std::optional<int> const hit =
        handleAt(*m_view, position, planeObject->getProperty().getKeyPoints());
    if (hit)
        handle = *hit;
    return hit.has_value();
}

void PlanecutSelection::showHandleCursor(bool isResizeWanted)
{
    if (isResizeWanted || selectedIndex == PlaneHandle::center)
        showCursor("cursor_freecutmove");
    else if (selectedIndex < PlaneHandle::firstEdge)
        showCursor("cursor_2drotate");
    else
        showCursor("cursor_3drotate");
}

PlaneCorners PlanecutSelection::corners() const
{
    std::vector<UPoint3<float>> const points = planeObject->getProperty().getCorners();
    return {points[0], points[1], points[2]};
}

void PlanecutSelection::dragMoveMouseLeft(UVector3<float> const& delta)
{
    if (!planeObject)
        return;
    PlaneCorners const moved = draggedPlane(corners(), selectedIndex, delta);
    setPlaneSize(sizeOf(moved));
    if (isValidMove(getObjectsBox(), moved))
        takeCorners(moved);
}

void PlanecutSelection::dragMoveMouseRight(UVector3<float> const& delta)
{
    if (!planeObject)
        return;
    PlaneCorners const resized = resizedPlane(corners(), selectedIndex, delta);
    setPlaneSize(sizeOf(resized));
    takeCorners(resized);
}

void PlanecutSelection::putBack(PlaneCorners const& corners, PlaneSize const& size)
{
    if (!planeObject)
        return;
    setPlaneSize(size);
    takeCorners(corners);
}

// What can be taken back.

ToolState PlanecutSelection::editState() const
{
    ToolState state;
    if (planeObject)
        state.points = planeObject->getProperty().getCorners();
    state.picks = pickMarkers.points();
    if (editsBeside)
        state.beside = editsBeside->edits();
    return state;
}

void PlanecutSelection::restore(ToolState const& state)
{
    if (editsBeside)
        editsBeside->setEdits(state.beside);
    if (state.points.empty()) {
        resetSelection();
        for (UPoint3<float> const& pick : state.picks)
            pickMarkers.add(*m_view, pick);
        return;
    }
    pickMarkers.clear();
    makePlane();
    if (!planeObject)
        return;
    PlaneCorners const corners{state.points[0], state.points[1], state.points[2]};
    setPlaneSize(sizeOf(corners));
    enablePointPickMesh = true;
    takeCorners(corners);
}

// The keyboard.

bool PlanecutSelection::useKey(QKeyEvent const& event)
{
    std::optional<ArrowKey> const arrow = arrowOf(event);
    if (!arrow || !planeObject || isDragging || isResizing)
        return false;
    PlaneCorners const plane = corners();
    UVector3<float> normal = (plane.c1 - plane.c0) * (plane.c2 - plane.c1);
    PlaneCorners const moved = draggedPlane(plane, PlaneHandle::center,
                                            normal.Normalize() * (m_nudge * arrow->alongLine()));
    if (isValidMove(getObjectsBox(), moved)) {
        EditHistory::OneStep const oneStep(edits(), event.isAutoRepeat());
        takeCorners(moved);
    }
    return true;
}

void PlanecutSelection::takeCorners(PlaneCorners const& corners)
{
    planeObject->getProperty().setCorners(corners.c0, corners.c1, corners.c2, true);
    finishEdit(*planeObject);
}

}  // namespace Freecut

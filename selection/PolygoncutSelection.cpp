// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PolygoncutSelection.h"

#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/OrbeMenu.h"
#include "platform/view/GLView.h"
#include "selection/ContourEditing.h"
#include "selection/ContourRules.h"
#include "selection/HandleHit.h"
#include "selection/ToolEdit.h"
#include "tools/EdgeFrame.h"
#include "tools/PolygonGraphicObject.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace Freecut {

PolygoncutSelection::PolygoncutSelection()
{
    keepEdits({.read = [this] { return editState(); },
               .write = [this](ToolState const& state) { restore(state); },
               .isDragged = [this] { return isDragRunning(); },
               .giveUpDrag = {},
               .whyFrozen = [this] { return whyFrozen(); }});
    setKeyHandler([this](QKeyEvent& event) { return useKey(event); });
}

PolygoncutSelection::~PolygoncutSelection()
{
    deleteHightLightedLine();
}

void PolygoncutSelection::initialize()
{
    showCursor("cursor_polygoncut");
    PointPickerMesh::initialize();
}

void PolygoncutSelection::resetSelection()
{
    VolumeSelection::resetSelection();
    endDrag();
    hoverEdge = -1;
    hoverLine.hide();
    drawn.hideEdges();
    drawn.hideSections();
}

PolygonGraphicObject* PolygoncutSelection::getPolygon() const
{
    return static_cast<PolygonGraphicObject*>(graphicObject);
}

// The contour.

bool PolygoncutSelection::addPointOfPolygonCut(UPoint3<float> eyePoint)
{
    if (!graphicObject && !startTool(new PolygonGraphicObject))
        return false;
    PolygonGraphicObject& polygon = *getPolygon();
    UPoint3<float> point(eyePoint.X(), eyePoint.Y(), polygon.getProperty().getSketchDepth());
    m_view->getWCSPointFromEyePoint(point);
    return ContourEditing(*m_view, polygon).addPoint(point, freshEdge());
}

bool PolygoncutSelection::addPoint(UPoint3<float> const& eyePoint)
{
    return addPointOfPolygonCut(eyePoint);
}

int PolygoncutSelection::insertPointInPolygon(UPoint3<float> worldPoint) const
{
    if (!graphicObject)
        return 0;
    PolygonProperty const& record = getPolygon()->getProperty();
    return insertionIndex(record.getKeyPoints(), worldPoint, record.getExtrudeVector());
}

bool PolygoncutSelection::overlappingdetect(std::vector<UPoint3<float>> points) const
{
    std::vector<UPoint2<float>> seen;
    for (UPoint3<float>& point : points) {
        m_view->getEyePointFromWCSPoint(point);
        seen.emplace_back(point.X(), point.Y());
    }
    return touchesItself(seen);
}

void PolygoncutSelection::setSelectedPointInfo(float x, float y, float z)
{
    if (!graphicObject)
        return;
    auto const move = ContourEditing(*m_view, *getPolygon()).moveToTyped({x, y, z});
    if (!move)
        return;
    selectedIndex = int(move->vertex);
    dragMoveMouseLeft(move->way);
}

void PolygoncutSelection::dragMoveMouseLeft(UVector3<float> delta)
{
    hoverLine.hide();
    if (ContourEditing(*m_view, *getPolygon()).moveVertex(std::size_t(selectedIndex), delta))
        return;
    isPressSpent = isDragging;
    isDragging = false;
    ContourEditing::warnOfTeeth();
}

void PolygoncutSelection::deleteHightLightedLine()
{
    hoverLine.remove();
}

// Teeth.

void PolygoncutSelection::setAddTeeth(bool on)
{
    addTeeth = on;
    showCursor(on ? "cursor_addteeth" : "cursor_polygoncut");
}

void PolygoncutSelection::setTeethParas(int style, float width, float height, float upperWidth,
                                        float lowerWidth, float doveHeight, int count,
                                        float distance, int method, bool useOffset, float offset,
                                        bool applyAllEdges, bool flipTeeth)
{
    teeth.setParas({style, width, height, upperWidth, lowerWidth, doveHeight, count, distance,
                    method, useOffset, offset, applyAllEdges, flipTeeth});
}

bool PolygoncutSelection::teethAlgorithm()
{
    return graphicObject && teeth.generate(*getPolygon());
}

bool PolygoncutSelection::calculateTeethBasePoints()
{
    return graphicObject && teeth.placeTeeth(*getPolygon());
}

void PolygoncutSelection::updateTeethData()
{
    if (graphicObject)
        teeth.shapeTeeth(*getPolygon());
}

void PolygoncutSelection::applyTeeth()
{
    if (graphicObject)
        teeth.confirm(*getPolygon());
}

void PolygoncutSelection::BasePntDragMove(UVector3<float> delta, QMouseEvent const*)
{
    teeth.slide(*getPolygon(), selectedEdge, selectedIndex, delta);
}

void PolygoncutSelection::WidthHeightDragMove(UVector3<float> delta, QMouseEvent const*)
{
    teeth.reshape(*getPolygon(), selectedEdge, selectedIndex, delta);
}

// The mouse.

int PolygoncutSelection::mousePressEvent(QMouseEvent* event)
{
    lastPos = event->pos();
    isPressSpent = false;
    if (isFrozen())
        return 0;
    if (event->button() == Qt::LeftButton) {
        auto const vertex = handleAt(*m_view, event->pos(), getPolygon()->getPoints());
        if (vertex) {
            draggedTo = getPolygon()->getPoints()[std::size_t(*vertex)];
            beginDrag(*vertex, putBack());
            return 0;
        }
        if (isOutlineUnder(*event)) {
            draggingOutline = true;
            captureDrag(putBack());
            return 0;
        }
    }
    if (addTeeth)
        if (auto const hit = toothAt(*m_view, event->pos(), *getPolygon()))
            beginToothDrag(*hit);
    return 0;
}

bool PolygoncutSelection::isOutlineUnder(QMouseEvent const& event) const
{
    return event.modifiers() == (Qt::ShiftModifier | Qt::ControlModifier) && !addTeeth &&
           ContourEditing(*m_view, *getPolygon()).isAround(event.pos());
}

std::function<void()> PolygoncutSelection::putBack()
{
    PolygonProperty const& record = getPolygon()->getProperty();
    return [this, points = record.getKeyPoints(), edges = record.getEdgeRecords(),
            paras = teeth.paras()] {
        getPolygon()->getProperty().setKeyPoints(points);
        getPolygon()->getProperty().setEdgeRecords(edges);
        teeth.setParas(paras);
    };
}

void PolygoncutSelection::beginToothDrag(ToothHit const& hit)
{
    selectedIndex = hit.tooth;
    selectedEdge = hit.edge;
    (hit.isHandle ? draggingHandle : draggingBasePoint) = true;
    captureDrag(putBack());
}

bool PolygoncutSelection::dragStep(QMouseEvent const& event)
{
    if (!graphicObject || !isDragRunning())
        return false;
    UVector3<float> const delta = worldDelta(event.pos());
    if (isDragging)
        dragVertex(delta, event);
    else if (draggingOutline)
        ContourEditing(*m_view, *getPolygon()).moveAll(delta);
    else if (draggingBasePoint)
        BasePntDragMove(delta, &event);
    else
        WidthHeightDragMove(delta, &event);
    return true;
}

bool PolygoncutSelection::endDrag()
{
    for (bool* const flag : {&isDragging, &draggingBasePoint, &draggingHandle, &draggingOutline})
        if (*flag) {
            *flag = false;
            return true;
        }
    return false;
}

int PolygoncutSelection::mouseMoveEvent(QMouseEvent* event)
{
    showSections(event->modifiers());
    dragStep(*event);
    lastPos = event->pos();
    if (isFrozen()) {
        hoverLine.hide();
        drawn.hideEdges();
    } else {
        hover(*event);
    }
    return 0;
}

bool PolygoncutSelection::isHandleUnder(QPoint position) const
{
    return handleAt(*m_view, position, getPolygon()->getPoints()) ||
           (addTeeth && toothAt(*m_view, position, *getPolygon()));
}

void PolygoncutSelection::hover(QMouseEvent const& event)
{
    QPoint const position = event.pos();
    showDrawnEdges(event);
    if (isHandleUnder(position) || draggingOutline || isOutlineUnder(event))
        showCursor("cursor_freecutmove");
    else
        showCursor(addTeeth ? "cursor_addteeth" : "cursor_polygoncut");
    std::vector<UPoint3<float>> const points = getPolygon()->getPoints();
    std::optional<int> const edge = HoverLine::edgeAt(*m_view, position, points);
    hoverEdge = edge.value_or(-1);
    if (edge)
        hoverLine.show(*m_view, points[std::size_t(*edge)],
                       points[std::size_t(*edge + 1) % points.size()]);
    else
        hoverLine.hide();
}

// The point that is being drawn or dragged.

void PolygoncutSelection::showSections(Qt::KeyboardModifiers keys)
{
    if (keys == Qt::ControlModifier && !addTeeth && !isInPreview())
        drawn.showSections(*m_view, getPolygon());
    else
        drawn.hideSections();
}

void PolygoncutSelection::dragVertex(UVector3<float> const& delta, QMouseEvent const& event)
{
    auto const vertex = std::size_t(selectedIndex);
    UPoint3<float> const stands = getPolygon()->getPoints()[vertex];
    bool const isFree = !RunningEdge::isHolding(event.modifiers()) && stands == draggedTo;
    draggedTo += alongPlane(delta, getPolygon()->getProperty().getExtrudeVector());
    if (isFree)
        dragMoveMouseLeft(delta);
    else
        dragMoveMouseLeft(drawn.heldVertex(*m_view, *getPolygon(), vertex, draggedTo, event) -
                          stands);
}

void PolygoncutSelection::showDrawnEdges(QMouseEvent const& event)
{
    if (isDragging)
        drawn.showVertex(*m_view, *getPolygon(), std::size_t(selectedIndex));
    else if (addTeeth || event.buttons() != Qt::NoButton || isHandleUnder(event.pos()))
        drawn.hideEdges();
    else
        drawn.showNew(*m_view, *getPolygon(),
                      sketchPoint(event.pos(), getPolygon()->getProperty().getSketchDepth()),
                      event);
}

void PolygoncutSelection::addPointAt(QMouseEvent const& event)
{
    UPoint3<float> eye = eyePointUnder(event.pos());
    if (RunningEdge::isHolding(event.modifiers())) {
        // Before the first point the parts alone can hold it, at whatever depth.
        UPoint3<float> point = eye;
        if (graphicObject)
            point.Z() = getPolygon()->getProperty().getSketchDepth();
        m_view->getWCSPointFromEyePoint(point);
        eye = drawn.heldNew(*m_view, getPolygon(), point, event);
        m_view->getEyePointFromWCSPoint(eye);
    }
    drawn.hideEdges();
    addPointOfPolygonCut(eye);
}

int PolygoncutSelection::mouseReleaseEvent(QMouseEvent* event)
{
    lastPos = event->pos();
    if (endDrag() || isPressSpent) {
        drawn.hideEdges();
        edits()->edited();
        return 1;
    }
    if (addTeeth)
        releaseOnTeeth(*event);
    else
        releaseOnContour(*event);
    return 1;
}

void PolygoncutSelection::releaseOnContour(QMouseEvent const& event)
{
    selectedIndex = 0;
    if (isInPreview())
        return;
    if (event.button() == Qt::LeftButton)
        addPointAt(event);
    if (event.button() != Qt::RightButton || !graphicObject)
        return;
    if (auto const vertex = handleAt(*m_view, event.pos(), getPolygon()->getPoints())) {
        selectedIndex = *vertex;
        showMenu({"Remove Point"});
    }
}

void PolygoncutSelection::releaseOnTeeth(QMouseEvent const& event)
{
    if (isFrozen() || !hoverLine.isShown())
        return;
    EditHistory::OneStep const oneStep(edits());
    if (event.button() == Qt::LeftButton)
        teeth.chooseEdgeAt(*getPolygon(),
                           sketchPoint(event.pos(), getPolygon()->getProperty().getSketchDepth()));
    if (event.button() != Qt::RightButton || hoverEdge < 0)
        return;
    showMenu({"Delete selected teeth", "Delete all teeth"});
    if (graphicObject)
        finishEdit(*graphicObject, {.updatesRecord = false, .tellsListeners = false});
}

// What can be taken back.

ToolState PolygoncutSelection::editState() const
{
    ToolState state = solidState();
    state.paras = teeth.paras();
    if (state.points.empty())
        return state;
    state.edges = std::make_shared<std::vector<TeethEdge> const>(
        getPolygon()->getProperty().getEdgeRecords());
    state.numbers = PointLabel::numbersOf(*getPolygon());
    state.selected = PointLabel::selectedVertex(*getPolygon()).value_or(0);
    return state;
}

void PolygoncutSelection::restore(ToolState const& state)
{
    endDrag();
    hoverLine.hide();
    hoverEdge = -1;
    teeth.setParas(state.paras);
    std::optional<ToolState> const there =
        restoreSolid(state, [this] { return startTool(new PolygonGraphicObject); });
    if (!there)
        return;
    PolygonProperty& record = getPolygon()->getProperty();
    record.setEdgeRecords(*there->edges);
    // Nobody could end a trial.
    if (!addTeeth)
        record.clearEdit();
    PointLabel::renew(*getPolygon(), m_view, there->numbers, there->selected);
    selectedIndex = 0;
    showRestored();
}

// The keyboard.

bool PolygoncutSelection::useKey(QKeyEvent const& event)
{
    if (isFrozen() || isDragRunning())
        return false;
    if (event.key() == Qt::Key_Backspace && event.modifiers() == Qt::NoModifier) {
        removeNewestPoint();
        return true;
    }
    std::optional<UVector3<float>> const way = wayOfKey(event);
    auto const vertex = PointLabel::selectedVertex(*getPolygon());
    if (!way || !vertex)
        return false;
    EditHistory::OneStep const oneStep(edits(), event.isAutoRepeat());
    hoverLine.hide();
    if (!ContourEditing(*m_view, *getPolygon()).moveVertex(*vertex, *way))
        ContourEditing::warnOfTeeth();
    return true;
}

void PolygoncutSelection::removeNewestPoint()
{
    auto const newest = PointLabel::newestVertex(*getPolygon());
    if (!newest)
        return;
    hoverLine.hide();
    hoverEdge = -1;
    if (getPolygon()->getPoints().size() > 1) {
        ContourEditing(*m_view, *getPolygon()).removeVertex(*newest, freshEdge());
        return;
    }
    resetSelection();
    m_view->redraw();
    edits()->edited();
}

void PolygoncutSelection::showMenu(std::vector<char const*> const& commands)
{
    if (!Application::Instance)
        return;
    OrbeMenu menu;
    for (char const* const command : commands)
        Application::Instance->commandManager().addTo(command, &menu);
    menu.exec(QCursor::pos());
    // The edge under the mouse may have gone.
    hoverLine.hide();
    hoverEdge = -1;
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ContourEditing.h"

#include "display/TLabel.h"
#include "messages/Attention.h"
#include "platform/view/GLView.h"
#include "selection/ContourRules.h"
#include "selection/PointLabel.h"
#include "selection/ToolEdit.h"
#include "tools/EdgeFrame.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/ViewAxes.h"

#include <QCoreApplication>
#include <QPolygon>

#include <algorithm>

namespace Freecut {

namespace {

using Point = UPoint3<float>;

constexpr char const* context = "Freecut::PolygoncutSelection";
constexpr char const* invalidPoint =
    QT_TRANSLATE_NOOP("Freecut::PolygoncutSelection", "Invalid point.");
constexpr char const* pointExists =
    QT_TRANSLATE_NOOP("Freecut::PolygoncutSelection", "This point already exists.");
constexpr char const* teethHoldPoint = QT_TRANSLATE_NOOP(
    "Freecut::PolygoncutSelection",
    "You can not move this point, because one of the edges contain this point has teeth.");
constexpr char const* splitEdge =
    QT_TRANSLATE_NOOP("Freecut::PolygoncutSelection", "Do you want to split an edge with teeth?");

void warn(char const* text)
{
    warnAttention(QCoreApplication::translate(context, text));
}

}  // namespace

bool ContourEditing::isFree(Point const& point) const
{
    std::vector<Point> const& vertices = m_polygon.getProperty().getKeyPoints();
    return std::find(vertices.begin(), vertices.end(), point) == vertices.end();
}

bool ContourEditing::mayDivide(int edge) const
{
    return !m_polygon.getProperty().getEdgeRecords()[std::size_t(edge)].hasTeeth ||
           askQuestion(QCoreApplication::translate(context, splitEdge));
}

bool ContourEditing::touchesItselfWith(Point const& point, int index) const
{
    PolygonProperty const& record = m_polygon.getProperty();
    std::vector<UPoint2<float>> seen;
    for (Point corner :
         trialOutline(record.getKeyPoints(), record.getEdgeRecords(), point, index)) {
        m_view.getEyePointFromWCSPoint(corner);
        seen.emplace_back(corner.X(), corner.Y());
    }
    return touchesItself(seen);
}

bool ContourEditing::addPoint(Point const& point, TeethEdge const& freshEdge)
{
    PolygonProperty& record = m_polygon.getProperty();
    int const index = insertionIndex(record.getKeyPoints(), point, record.getExtrudeVector());
    if (!isFree(point) || index < 0) {
        warn(invalidPoint);
        return false;
    }
    std::vector<TeethEdge>& edges = record.getEdgeRecords();
    if (edges.size() >= 2) {
        int const divided = dividedEdge(int(edges.size()), index);
        if (!mayDivide(divided))
            return false;
        if (touchesItselfWith(point, index)) {
            warn(invalidPoint);
            return false;
        }
        if (edges[std::size_t(divided)].hasTeeth)
            edges[std::size_t(divided)] = freshEdge;
    }
    insert(point, index, freshEdge);
    return true;
}

void ContourEditing::insert(Point const& point, int index, TeethEdge const& freshEdge)
{
    PointLabel::unselectAll(m_polygon);
    PolygonProperty& record = m_polygon.getProperty();
    auto const insertInto = [index](auto& list, auto const& value) {
        list.insert(list.begin() + index, value);
    };
    TLabel* const label = PointLabel::make(m_polygon, &m_view);
    PointLabel::numberAsNewest(*label, m_polygon);
    insertInto(m_polygon.getPointLabels(), label);
    insertInto(record.getKeyPoints(), point);
    insertInto(record.getEdgeRecords(), freshEdge);
    finishEdit(m_polygon);
}

bool ContourEditing::holdsVertex(std::size_t vertex) const
{
    std::vector<TeethEdge> const& edges = m_polygon.getProperty().getEdgeRecords();
    return edges[vertex].hasTeeth || edges[(edges.size() + vertex - 1) % edges.size()].hasTeeth;
}

void ContourEditing::warnOfTeeth()
{
    warn(teethHoldPoint);
}

bool ContourEditing::moveVertex(std::size_t vertex, UVector3<float> const& way)
{
    if (holdsVertex(vertex))
        return false;
    PolygonProperty& record = m_polygon.getProperty();
    record.getKeyPoints()[vertex] += alongPlane(way, record.getExtrudeVector());
    finishEdit(m_polygon);
    return true;
}

void ContourEditing::moveAll(UVector3<float> const& way)
{
    PolygonProperty& record = m_polygon.getProperty();
    UVector3<float> const across = alongPlane(way, record.getExtrudeVector());
    auto const move = [&](std::vector<Point>& points) {
        for (Point& point : points)
            point += across;
    };
    move(record.getKeyPoints());
    for (TeethEdge& edge : record.getEdgeRecords())
        for (auto const list : {&TeethEdge::basePoints, &TeethEdge::handlePoints,
                                &TeethEdge::teethPoints, &TeethEdge::appliedPoints})
            move(edge.*list);
    finishEdit(m_polygon);
}

bool ContourEditing::isAround(QPoint mouse) const
{
    QPolygon corners;
    for (Point const& vertex : m_polygon.getProperty().getKeyPoints()) {
        int x, y;
        m_view.getWidgetcoordFromWCS(vertex, x, y);
        corners << QPoint(x, y);
    }
    return corners.containsPoint(mouse, Qt::OddEvenFill);
}

std::optional<ContourEditing::Move> ContourEditing::moveToTyped(Point const& typed) const
{
    std::optional<std::size_t> const vertex = PointLabel::selectedVertex(m_polygon);
    std::vector<Point> const& vertices = m_polygon.getProperty().getKeyPoints();
    if (!vertex || *vertex >= vertices.size())
        return {};
    Point const target =
        movedAcrossView(vertices[*vertex], typed, m_polygon.getProperty().getViewIndex());
    for (std::size_t i = 0; i < vertices.size(); ++i)
        if (i != *vertex && vertices[i] == target) {
            warn(pointExists);
            return {};
        }
    return Move{*vertex, target - vertices[*vertex]};
}

void ContourEditing::removeVertex(std::size_t vertex, TeethEdge const& freshEdge)
{
    PolygonProperty& record = m_polygon.getProperty();
    std::vector<Point>& vertices = record.getKeyPoints();
    std::vector<TeethEdge>& edges = record.getEdgeRecords();
    std::vector<TLabel*>& labels = m_polygon.getPointLabels();
    if (vertex >= vertices.size())
        return;
    std::size_t const before = (vertex + vertices.size() - 1) % vertices.size();
    bool wasSelected = false;
    if (vertex < labels.size()) {
        wasSelected = PointLabel::selectedVertex(m_polygon) == vertex;
        delete labels[vertex];
        labels.erase(labels.begin() + std::ptrdiff_t(vertex));
    }
    vertices.erase(vertices.begin() + std::ptrdiff_t(vertex));
    edges.erase(edges.begin() + std::ptrdiff_t(vertex));
    if (before != vertex) {
        // The edge before vertex 0 is the last one, and so is the one that joins.
        edges[before > vertex ? before - 1 : before] = freshEdge;
    }
    // One vertex is always selected.
    if (wasSelected && !labels.empty())
        labels[before > vertex ? before - 1 : before]->setStyleSheet(TLabel::selectedStyle);
    finishEdit(m_polygon);
}

void ContourEditing::removeTeeth(std::size_t edge, TeethEdge const& freshEdge)
{
    std::vector<TeethEdge>& edges = m_polygon.getProperty().getEdgeRecords();
    if (edge >= edges.size())
        return;
    edges[edge] = freshEdge;
    finishEdit(m_polygon, {.updatesRecord = false, .tellsListeners = false});
}

void ContourEditing::removeAllTeeth(TeethEdge const& freshEdge)
{
    std::vector<TeethEdge>& edges = m_polygon.getProperty().getEdgeRecords();
    edges.assign(edges.size(), freshEdge);
    finishEdit(m_polygon, {.updatesRecord = false, .tellsListeners = false});
}

}  // namespace Freecut

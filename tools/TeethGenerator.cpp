// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/TeethGenerator.h"

#include "tools/PolygonProperty.h"
#include "tools/TeethDrags.h"
#include "tools/TeethShapes.h"

namespace Freecut {

namespace {

bool isUnderEdit(TeethEdge const& edge)
{
    return edge.hasTeeth && edge.editing;
}

void takeUnderEdit(TeethEdge& edge)
{
    edge.hasTeeth = true;
    edge.editing = true;
}

void storeParas(TeethEdge& edge, TeethParas const& paras)
{
    edge.teethStyle = paras.teethStyle;
    edge.teethWidth = paras.teethWidth;
    edge.teethHeight = paras.teethHeight;
    edge.upperWidth = paras.upperWidth;
    edge.lowerWidth = paras.lowerWidth;
    edge.doveHeight = paras.doveHeight;
    edge.teethCount = paras.teethCount;
    edge.teethDistance = paras.teethDistance;
    edge.teethMethod = paras.teethMethod;
    edge.useOffset = paras.useOffset;
    edge.teethOffset = paras.teethOffset;
    edge.flip = paras.flipTeeth;
}

void loadParas(TeethParas& paras, TeethEdge const& edge)
{
    paras.teethStyle = edge.teethStyle;
    paras.teethWidth = edge.teethWidth;
    paras.teethHeight = edge.teethHeight;
    paras.upperWidth = edge.upperWidth;
    paras.lowerWidth = edge.lowerWidth;
    paras.doveHeight = edge.doveHeight;
    paras.teethCount = edge.teethCount;
    paras.teethDistance = edge.teethDistance;
    paras.teethMethod = edge.teethMethod;
    paras.useOffset = edge.useOffset;
    paras.teethOffset = edge.teethOffset;
    paras.flipTeeth = edge.flip;
}

}  // namespace

TeethParas parasOf(TeethEdge const& edge)
{
    TeethParas paras;
    loadParas(paras, edge);
    return paras;
}

TeethEdge TeethGenerator::freshEdge() const
{
    TeethEdge edge;
    edge.flip = m_paras.flipTeeth;
    return edge;
}

EdgeFrame TeethGenerator::frameOf(PolygonProperty const& polygon, std::size_t edge) const
{
    std::vector<UPoint3<float>> const& points = polygon.getKeyPoints();
    return {points[edge], points[(edge + 1) % points.size()], polygon.getExtrudeVector(),
            m_paras.flipTeeth};
}

TeethFault TeethGenerator::generate(PolygonProperty& polygon)
{
    for (TeethEdge& edge : polygon.getEdgeRecords()) {
        if (isUnderEdit(edge)) {
            edge.basePoints.clear();
            edge.handlePoints.clear();
        }
        if (m_paras.applyAllEdges)
            takeUnderEdit(edge);
    }
    TeethFault const fault = placeTeeth(polygon);
    if (fault == TeethFault::None)
        shapeTeeth(polygon);
    return fault;
}

TeethFault TeethGenerator::layOutEdges(PolygonProperty const& polygon,
                                       std::vector<TeethLayout>& layouts) const
{
    std::vector<TeethEdge> const& edges = polygon.getEdgeRecords();
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!isUnderEdit(edges[i]))
            continue;
        TeethFault const fault = layOutTeeth(m_paras, frameOf(polygon, i).length, layouts[i]);
        if (fault != TeethFault::None)
            return fault;
    }
    return TeethFault::None;
}

TeethFault TeethGenerator::placeTeeth(PolygonProperty& polygon)
{
    std::vector<TeethEdge>& edges = polygon.getEdgeRecords();
    std::vector<TeethLayout> layouts(edges.size());
    TeethFault const fault = layOutEdges(polygon, layouts);
    if (fault != TeethFault::None) {
        polygon.clearEdit();
        m_paras.applyAllEdges = false;
        return fault;
    }
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (isUnderEdit(edges[i]))
            edges[i].basePoints = teethCentres(frameOf(polygon, i), layouts[i]);
    return TeethFault::None;
}

void TeethGenerator::shapeTeeth(PolygonProperty& polygon) const
{
    std::vector<TeethEdge>& edges = polygon.getEdgeRecords();
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!isUnderEdit(edges[i]))
            continue;
        TeethRow row = rowOfTeeth(m_paras, frameOf(polygon, i), edges[i].basePoints);
        edges[i].teethPoints = std::move(row.points);
        edges[i].handlePoints = std::move(row.handles);
    }
}

bool TeethGenerator::beginEdge(PolygonProperty& polygon, int edge)
{
    polygon.clearEdit();
    TeethEdge& record = polygon.getEdgeRecords()[std::size_t(edge)];
    if (!m_paras.applyAllEdges)
        takeUnderEdit(record);
    if (record.applied)
        loadParas(m_paras, record);
    return record.applied;
}

void TeethGenerator::giveUpEdge(PolygonProperty& polygon, int edge)
{
    TeethEdge& record = polygon.getEdgeRecords()[std::size_t(edge)];
    record.hasTeeth = false;
    record.editing = false;
}

void TeethGenerator::confirm(PolygonProperty& polygon) const
{
    for (TeethEdge& edge : polygon.getEdgeRecords()) {
        if (!isUnderEdit(edge))
            continue;
        edge.editing = false;
        edge.basePoints.clear();
        edge.handlePoints.clear();
        edge.applied = true;
        edge.appliedPoints = std::move(edge.teethPoints);
        edge.teethPoints.clear();
        storeParas(edge, m_paras);
    }
}

bool TeethGenerator::slide(PolygonProperty& polygon, int edge, std::size_t tooth,
                           UVector3<float> const& way) const
{
    TeethEdge& record = polygon.getEdgeRecords()[std::size_t(edge)];
    UVector3<float> const slide =
        slideOfTooth(m_paras, frameOf(polygon, std::size_t(edge)), record.basePoints, tooth, way);
    if (slide == UVector3<float>())
        return false;
    record.basePoints[tooth] += slide;
    record.handlePoints[tooth] += slide;
    shapeTeeth(polygon);
    record.teethMethod = 0;
    return true;
}

void TeethGenerator::reshape(PolygonProperty& polygon, int edge, std::size_t tooth,
                             UVector3<float> const& way)
{
    TeethEdge const& record = polygon.getEdgeRecords()[std::size_t(edge)];
    UVector3<float> const fromCentre = record.handlePoints[tooth] - record.basePoints[tooth] +
                                       alongPlane(way, polygon.getExtrudeVector());
    m_paras =
        reshapedTeeth(m_paras, frameOf(polygon, std::size_t(edge)), record.basePoints, fromCentre);
    shapeTeeth(polygon);
}

}  // namespace Freecut

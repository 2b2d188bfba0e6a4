// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/tools/OutlineScene.h"
#include "tools/PolygonOutline.h"
#include "tools/PolygonProperty.h"
#include "tools/TeethGenerator.h"

#include <stdexcept>

/// A polygon of which edges have teeth.
class ToothedPolygon
{
public:
    explicit ToothedPolygon(Freecut::Ring corners) : m_outline(m_record)
    {
        m_record.setKeyPoints(corners);
        m_record.setExtrudeVector({0, 0, 30});
        m_record.getEdgeRecords().resize(corners.size());
        m_paras.teethWidth = 2;
        m_paras.teethHeight = 1;
        m_paras.upperWidth = 2;
        m_paras.lowerWidth = 1;
        m_paras.doveHeight = 1;
        m_paras.flipTeeth = false;
    }

    /// A level strip of 3 mm for each tooth, turned by an angle.
    static ToothedPolygon strip(int style, int count, double angle)
    {
        Freecut::Ring corners;
        for (auto const& [x, y] : {std::pair(0, 0), {0, -20}, {3 * count, -20}, {3 * count, 0}})
            corners.push_back({float(x * std::cos(angle) - y * std::sin(angle)),
                               float(x * std::sin(angle) + y * std::cos(angle)), 0});
        ToothedPolygon polygon(corners);
        Freecut::TeethEdge& edge = polygon.m_record.getEdgeRecords().back();
        edge.hasTeeth = edge.editing = true;
        polygon.addTeeth(style, count);
        return polygon;
    }

    /// Five teeth on each of many edges around a circle.
    static ToothedPolygon round(int style, int edges)
    {
        Freecut::Ring corners;
        for (auto const& p : circlePoints(2.5 * edges, edges))
            corners.push_back({p.X(), p.Y(), 0});
        ToothedPolygon polygon(corners);
        polygon.m_paras.applyAllEdges = true;
        polygon.addTeeth(style, 5);
        return polygon;
    }

    ToothedPolygon(ToothedPolygon&& other) : m_record(other.m_record), m_outline(m_record) {}

    Freecut::Loops source(bool isRounded)
    {
        update(isRounded, 0);
        return isRounded ? m_outline.outlines().roundedLoops : m_outline.outlines().solidLoops;
    }
    Freecut::ToolOutlines const& update(bool isRounded, float clearance)
    {
        m_record.setRoundCorners(isRounded);
        m_record.setCornerRadius(0.2f);
        m_record.setClearanceEnabled(clearance > 0);
        m_record.setClearance(clearance);
        m_record.setClearanceDirection(2);
        m_outline.update(topCamera(), false, false);
        return m_outline.outlines();
    }

private:
    void addTeeth(int style, int count)
    {
        m_paras.teethStyle = style;
        m_paras.teethCount = count;
        Freecut::TeethGenerator generator;
        generator.setParas(m_paras);
        if (generator.generate(m_record) != Freecut::TeethFault::None)
            throw std::logic_error("the teeth do not fit");
        generator.confirm(m_record);
    }

    Freecut::PolygonProperty m_record;
    Freecut::PolygonOutline m_outline;
    Freecut::TeethParas m_paras;
};

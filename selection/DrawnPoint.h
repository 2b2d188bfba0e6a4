// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "selection/PartSections.h"
#include "selection/RunningEdge.h"

#include <functional>

class QMouseEvent;

namespace Freecut {

class PolygonGraphicObject;

/// The point of a polygon that the mouse draws or drags: where it comes to lie while keys hold it to
/// something, and what is seen of it meanwhile, its edges and the section of the parts.
///
/// A polygon may be null: there is none before the first click.
class DrawnPoint
{
public:
    explicit DrawnPoint(std::function<UBox3<float>()> boxOfParts);
    /// Takes what it shows out of the view.
    ~DrawnPoint();

    /// Where a new point comes to lie, and where a vertex does that is dragged.
    ///
    /// point  under the mouse, in the drawing plane
    UPoint3<float> heldNew(Base::GLView const& view, PolygonGraphicObject const* polygon,
                           UPoint3<float> const& point, QMouseEvent const& event) const;
    UPoint3<float> heldVertex(Base::GLView const& view, PolygonGraphicObject const& polygon,
                              std::size_t vertex, UPoint3<float> const& point,
                              QMouseEvent const& event) const;

    /// Shows the edges that a new point under the mouse would have, and those of a vertex.
    void showNew(Base::GLView& view, PolygonGraphicObject const& polygon,
                 UPoint3<float> const& under, QMouseEvent const& event);
    void showVertex(Base::GLView& view, PolygonGraphicObject const& polygon, std::size_t vertex);
    void hideEdges() { m_edges.hide(); }

    /// Shows the section of the parts half way through the solid, and where it ends within them.
    void showSections(Base::GLView& view, PolygonGraphicObject const* polygon);
    void hideSections() { m_sections.hide(); }
    PartSections& sections() { return m_sections; }

private:
    std::function<UBox3<float>()> m_boxOfParts;
    RunningEdge m_edges;
    PartSections m_sections;
};

}  // namespace Freecut

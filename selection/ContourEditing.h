// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QPoint>

#include <cstddef>
#include <optional>

class QString;

namespace Base {
class GLView;
}

namespace Freecut {

class PolygonGraphicObject;
struct TeethEdge;

/// Edits the outline of a polygon tool, and tells the user why an edit is refused. A refused edit
/// changes nothing; what follows an edit that is done has been done too.
class ContourEditing
{
public:
    /// view     in which the tool is drawn
    /// polygon  both borrowed
    ContourEditing(Base::GLView& view, PolygonGraphicObject& polygon)
        : m_view(view), m_polygon(polygon)
    {}

    /// Adds a vertex where it belongs and selects it. If that divides an edge with teeth, the user
    /// is asked first, and the teeth go.
    ///
    /// freshEdge  the record of an edge without teeth
    /// returns    whether the vertex was added
    bool addPoint(UPoint3<float> const& point, TeethEdge const& freshEdge);
    /// Moves all vertices with their teeth across the view.
    void moveAll(UVector3<float> const& way);
    /// Whether a widget position lies within the vertices.
    bool isAround(QPoint mouse) const;

    /// Moves a vertex within the drawing plane. An edge with teeth holds its vertices: the result
    /// is false then, and holdsVertex() says so beforehand.
    bool moveVertex(std::size_t vertex, UVector3<float> const& way);
    bool holdsVertex(std::size_t vertex) const;
    /// The user is told that teeth hold a vertex.
    static void warnOfTeeth();

    /// Where the selected vertex is to go to by typed coordinates, of which those count that the
    /// standard view leaves free. None without a selected vertex, or if another one is there, which
    /// the user is told.
    struct Move
    {
        std::size_t vertex;
        UVector3<float> way;
    };
    std::optional<Move> moveToTyped(UPoint3<float> const& typed) const;

    /// Takes a vertex out, and the teeth of its two edges with it; the edge that joins them has
    /// none.
    void removeVertex(std::size_t vertex, TeethEdge const& freshEdge);
    void removeTeeth(std::size_t edge, TeethEdge const& freshEdge);
    void removeAllTeeth(TeethEdge const& freshEdge);

private:
    bool isFree(UPoint3<float> const& point) const;
    bool mayDivide(int edge) const;
    bool touchesItselfWith(UPoint3<float> const& point, int index) const;
    void insert(UPoint3<float> const& point, int index, TeethEdge const& freshEdge);

    Base::GLView& m_view;
    PolygonGraphicObject& m_polygon;
};

}  // namespace Freecut

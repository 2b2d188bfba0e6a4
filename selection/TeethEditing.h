// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "tools/TeethEdge.h"
#include "tools/TeethGenerator.h"

#include <QPoint>

#include <optional>

namespace Base {
class GLView;
}

namespace Freecut {

class PolygonGraphicObject;

/// A tooth, or the handle of one, that is under the mouse.
struct ToothHit
{
    int edge;
    int tooth;
    bool isHandle;
};

/// The first base point or handle of an edge under edit that a widget position touches.
std::optional<ToothHit> toothAt(Base::GLView const& view, QPoint mouse,
                                PolygonGraphicObject const& polygon);

/// Edits the teeth of a polygon tool by a set of parameters, shows what it has changed, and tells
/// the user where the parameters do not fit.
class TeethEditing
{
public:
    TeethParas const& paras() const { return m_generator.paras(); }
    void setParas(TeethParas const& paras) { m_generator.setParas(paras); }
    void setApplyAllEdges(bool isOn) { m_generator.setApplyAllEdges(isOn); }
    TeethEdge freshEdge() const;

    /// Spreads the teeth of the edges under edit anew; false if the parameters do not fit.
    bool generate(PolygonGraphicObject& polygon);
    bool placeTeeth(PolygonGraphicObject& polygon);
    void shapeTeeth(PolygonGraphicObject& polygon);
    void confirm(PolygonGraphicObject& polygon);

    /// Takes the edge nearest to a point of the drawing plane under edit.
    void chooseEdgeAt(PolygonGraphicObject& polygon, UPoint3<float> const& point);

    void slide(PolygonGraphicObject& polygon, int edge, int tooth, UVector3<float> const& way);
    void reshape(PolygonGraphicObject& polygon, int edge, int tooth, UVector3<float> const& way);

private:
    bool report(PolygonGraphicObject& polygon, TeethFault fault);

    TeethGenerator m_generator;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/MeshGLView.h"
#include "tools/ToolOutlines.h"
#include "tools/ViewPlace.h"
#include "tools/VolumeGraphicObject.h"

#include <vector>

namespace Mesh {
class Document;
}

/// A view of a document that is never shown, in which a tool is drawn.
///
/// Points are the two world coordinates that a standard view leaves free: x and z from the front
/// and the back, x and y from above and below, y and z from the sides. In a free view they are
/// millimetres on the screen.
class ToolScene
{
public:
    /// The document holds its parts already.
    ToolScene(Mesh::Document& document, Freecut::ViewPlace const& place);
    ~ToolScene();

    int viewIndex() const { return m_viewIndex; }
    GLCamera const& camera() const { return *m_view.getCamera(); }

    /// Adds a tool whose first key points are given; its outlines are still to be derived.
    template <typename Tool>
    Tool* add(std::vector<UPoint2<float>> const& points)
    {
        auto* const tool = new Tool;
        place(*tool, points);
        return tool;
    }
    /// Adds a tool that has its record already.
    void enter(Freecut::VolumeGraphicObject& tool);
    /// Gives a record the depth of the parts.
    void measure(Freecut::VolumeProperty& record) const;

    /// What the view has derived for the tool.
    Freecut::ToolOutlines const& outlinesOf(Freecut::VolumeGraphicObject& tool) const;

    /// The free coordinates of a world point.
    UPoint2<float> freeCoordinates(UPoint3<float> const& world) const;
    /// The coordinate along the view.
    float depthCoordinate(UPoint3<float> const& world) const;
    /// The free coordinates of a way along the screen: x to the right, y up.
    UPoint2<float> freeWay(UPoint2<double> const& way) const;
    /// The point on the screen: x to the right, y up.
    UPoint2<float> onScreen(UPoint3<float> world) const;
    /// Towards the viewer.
    UVector3<float> direction() const { return m_view.getViewDirection(); }

private:
    void place(Freecut::VolumeGraphicObject& tool, std::vector<UPoint2<float>> const& points);
    int axis() const;
    UPoint3<float> pointOfTool(UPoint2<float> const& free, float sketchDepth) const;

    Mesh::Document& m_document;
    int m_viewIndex;
    Mesh::GLView m_view;
};

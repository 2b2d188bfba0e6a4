// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/MeshGLView.h"
#include "tools/ToolOutlines.h"
#include "tools/VolumeGraphicObject.h"

#include <vector>

namespace Mesh {
class Document;
}

/// A view of a document that is never shown, in which a tool is drawn.
///
/// Points are the two world coordinates that a standard view leaves free: x and z from the front
/// and the back, x and y from above and below, y and z from the sides.
class ToolScene
{
public:
    /// viewIndex  a standard view, 0 to 5. The document holds its parts already
    ToolScene(Mesh::Document& document, int viewIndex);
    ~ToolScene();

    int viewIndex() const { return m_viewIndex; }
    /// The world axis along which the view looks, 0 to 2.
    int axis() const;

    /// Adds a tool whose first key points are given; its outlines are still to be derived.
    template <typename Tool>
    Tool* add(std::vector<UPoint2<float>> const& points)
    {
        auto* const tool = new Tool;
        place(*tool, points);
        return tool;
    }

    /// What the view has derived for the tool.
    Freecut::ToolOutlines const& outlinesOf(Freecut::VolumeGraphicObject& tool) const;

    /// The free coordinates of a world point.
    UPoint2<float> freeCoordinates(UPoint3<float> const& world) const;
    /// The point on the screen: x to the right, y up.
    UPoint2<float> onScreen(UPoint3<float> world) const;
    /// Towards the viewer.
    UVector3<float> direction() const { return m_view.getViewDirection(); }

private:
    void place(Freecut::VolumeGraphicObject& tool, std::vector<UPoint2<float>> const& points);
    UPoint3<float> pointOfTool(UPoint2<float> const& free, float sketchDepth) const;

    Mesh::Document& m_document;
    int m_viewIndex;
    Mesh::GLView m_view;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/RegisterViewProviders.h"
#include "platform/view/MeshGLView.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

/// A document of parts in a view that is never shown, from above, in which tools are drawn.
class DrawnDocument : public TestDocument
{
public:
    explicit DrawnDocument(int viewType = 2)
    {
        Freecut::registerViewProviders();
        view.setDocument(document);
        view.OnViewType(viewType);
    }
    ~DrawnDocument() { view.setDocument(nullptr); }

    /// Adds a tool with its first points, given on the screen. The parts must be there.
    template <typename Tool>
    Tool* draw(std::vector<UPoint2<float>> const& points)
    {
        auto* const tool = new Tool;
        tool->getProperty().updateDepth();
        tool->getProperty().rememberView();
        for (UPoint2<float> const& p : points) {
            UPoint3<float> point(p.X(), p.Y(), tool->getProperty().getSketchDepth());
            view.getWCSPointFromEyePoint(point);
            tool->getProperty().getKeyPoints().push_back(point);
        }
        document->addObject(tool, "tool", true);
        return tool;
    }

    Mesh::GLView view;
};

/// Takes a mesh over.
inline Soup soupOf(UMesh<float>* mesh)
{
    return soupOf(MeshKernel(mesh));
}

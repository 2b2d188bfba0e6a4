// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/RegisterViewProviders.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/NavigationStyle.h"
#include "selection/RegisterSelections.h"
#include "selection/RunningTool.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/ViewEvents.h"

/// A document of parts in a view from above, 400 x 300 pixels, that is never shown, in which the
/// plug-in's mouse tools can be started.
class SelectionScene : public TestDocument
{
public:
    SelectionScene()
    {
        Freecut::registerViewProviders();
        Freecut::registerSelections();
        view.resize(400, 300);
        view.getCamera()->set_screen(400, 300);
        view.setDocument(document);
        view.OnViewType(2);
    }
    ~SelectionScene() { view.setDocument(nullptr); }

    template <typename Tool>
    Tool* start()
    {
        view.startSelection(Tool::toolName);
        return Freecut::runningTool<Tool>(&view);
    }

    QPoint positionOf(UPoint3<float> const& world) const
    {
        int x, y;
        view.getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }

    Mesh::GLView view;
};

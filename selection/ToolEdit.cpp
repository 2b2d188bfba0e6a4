// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ToolEdit.h"

#include "display/GraphicViewProvider.h"
#include "platform/document/Document.h"
#include "platform/view/GLView.h"
#include "selection/EditHistory.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

namespace Freecut {

namespace {

template <typename Tool>
void showEdit(Tool& tool, EditSteps const& steps)
{
    GraphicViewProvider* const provider = steps.updatesProvider ? tool.getViewProvider() : nullptr;
    if (provider)
        provider->updateGeometry();
    if (steps.tellsListeners)
        tool.signalChanged();
    Base::Document const* const document = tool.getDocument();
    Base::GLView* const view = steps.redraws && document ? document->getView() : nullptr;
    if (view)
        view->redraw();
    noteEdit(document);
}

}  // namespace

void finishEdit(PlaneGraphicObject& tool, EditSteps const& steps)
{
    if (steps.updatesRecord)
        tool.getProperty().updateKeyPoints();
    showEdit(tool, steps);
}

void finishEdit(VolumeGraphicObject& tool, EditSteps const& steps)
{
    if (steps.updatesRecord)
        tool.getVolumeProperty().storeEyePoints();
    if (steps.updatesTeeth && tool.getClassName() == "Freecut::PolygonGraphicObject")
        static_cast<PolygonGraphicObject&>(tool).getProperty().storeEyeTeeth();
    showEdit(tool, steps);
}

}  // namespace Freecut

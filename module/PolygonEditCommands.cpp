// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/PolygonEditCommands.h"

#include "platform/document/Document.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"
#include "selection/ContourEditing.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tools/PolygonGraphicObject.h"

#include <algorithm>

namespace {

using Freecut::ContourEditing;
using Freecut::PolygoncutSelection;
using Freecut::PolygonGraphicObject;

PolygonGraphicObject* selectedPolygon(Base::Document const& document)
{
    std::vector<Base::DocumentObject*> const selected = document.getSelectedObjects();
    auto const found =
        std::find_if(selected.begin(), selected.end(), [](Base::DocumentObject const* object) {
            return object->getClassName() == "Freecut::PolygonGraphicObject";
        });
    return found != selected.end() ? static_cast<PolygonGraphicObject*>(*found) : nullptr;
}

/// Edits the selected polygon of the active document while its mouse tool runs.
template <typename Edit>
void editPolygon(Edit const& edit)
{
    Base::Document const* const document = activeDocument();
    PolygonGraphicObject* const polygon = document ? selectedPolygon(*document) : nullptr;
    auto const* const tool =
        polygon ? Freecut::runningTool<PolygoncutSelection>(document->getView()) : nullptr;
    if (!tool)
        return;
    ContourEditing contour(*document->getView(), *polygon);
    edit(contour, *tool);
    if (MainWindow* const window = MainWindow::getInstance())
        window->updateActiveGLView();
}

}  // namespace

void CmdPolygonCutDeletePoint::activated(int)
{
    editPolygon([](ContourEditing& contour, PolygoncutSelection const& tool) {
        contour.removeVertex(std::size_t(tool.getSelectedIndex()), tool.freshEdge());
    });
}

void CmdPolygonCutDeleteSelectedTeeth::activated(int)
{
    editPolygon([](ContourEditing& contour, PolygoncutSelection const& tool) {
        contour.removeTeeth(std::size_t(tool.getHoverEdge()), tool.freshEdge());
    });
}

void CmdPolygonCutDeleteAllTeeth::activated(int)
{
    editPolygon([](ContourEditing& contour, PolygoncutSelection const& tool) {
        contour.removeAllTeeth(tool.freshEdge());
    });
}

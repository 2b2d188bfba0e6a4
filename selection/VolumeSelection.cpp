// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/VolumeSelection.h"

#include "platform/document/Document.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/view/GLView.h"
#include "selection/ToolEdit.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeProperty.h"

#include <memory>

namespace Freecut {

Base::Type VolumeSelection::classTypeId = Base::Type::badType();

void VolumeSelection::init()
{
    initSubclass(classTypeId, "Freecut::VolumeSelection", "Freecut::FreecutSelection", create);
}

void* VolumeSelection::create()
{
    return static_cast<BaseClass*>(new VolumeSelection);
}

VolumeSelection::VolumeSelection()
{
    createdObjects.whenLost([this](Base::DocumentObject*) { graphicObject = nullptr; });
}

VolumeSelection::~VolumeSelection()
{
    VolumeSelection::resetSelection();
}

Base::Type VolumeSelection::getTypeId() const
{
    return classTypeId;
}

std::string VolumeSelection::getClassName() const
{
    return "Freecut::VolumeSelection";
}

VolumeGraphicObject* VolumeSelection::getGraphicObject() const
{
    return graphicObject;
}

void VolumeSelection::resetSelection()
{
    graphicObject = nullptr;
    createdObjects.clear();
}

UPoint3<float> VolumeSelection::eyePointUnder(QPoint position) const
{
    return m_view->getEyePointOnScreen(UPoint2<float>(float(position.x()), float(position.y())));
}

UPoint3<float> VolumeSelection::sketchPoint(QPoint position, float sketchDepth) const
{
    UPoint3<float> point = eyePointUnder(position);
    point.Z() = sketchDepth;
    m_view->getWCSPointFromEyePoint(point);
    return point;
}

bool VolumeSelection::isInPreview() const
{
    return graphicObject && graphicObject->getVolumeProperty().getPreviewOn();
}

void VolumeSelection::beginDrag(int handle, std::function<void()> putBack)
{
    selectedIndex = handle;
    isDragging = true;
    captureDrag(std::move(putBack));
}

void VolumeSelection::captureDrag(std::function<void()> putBack)
{
    capturePress([this, dragged = graphicObject, putBack = std::move(putBack)] {
        // The tool that was dragged may have gone meanwhile.
        if (graphicObject != dragged)
            return;
        putBack();
        finishEdit(*graphicObject);
    });
}

void VolumeSelection::putCentre(UPoint3<float> const& eyePoint, std::size_t keyPoints)
{
    VolumeProperty& record = graphicObject->getVolumeProperty();
    UPoint3<float> centre(eyePoint.X(), eyePoint.Y(), record.getSketchDepth());
    m_view->getWCSPointFromEyePoint(centre);
    std::vector<UPoint3<float>>& points = record.getKeyPoints();
    if (points.empty())
        points.resize(keyPoints);
    points[0] = centre;
    finishEdit(*graphicObject);
}

void VolumeSelection::moveCentreToTyped(UPoint3<float> const& typed)
{
    if (!graphicObject)
        return;
    VolumeProperty& record = graphicObject->getVolumeProperty();
    std::vector<UPoint3<float>>& points = record.getKeyPoints();
    if (points.empty())
        return;
    points[0] = movedAcrossView(points[0], typed, record.getViewIndex());
    finishEdit(*graphicObject, {.tellsListeners = false});
}

bool VolumeSelection::startTool(VolumeGraphicObject* tool)
{
    std::unique_ptr<VolumeGraphicObject> owned(tool);
    Base::Document* const document = activeDocument();
    if (!document)
        return false;
    tool->getVolumeProperty().updateDepth();
    tool->getVolumeProperty().rememberView();
    graphicObject = owned.release();
    addTool(*document, graphicObject);
    return true;
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/VolumeSelection.h"

#include "platform/document/Document.h"
#include "platform/ui/Application.h"
#include "platform/view/GLView.h"
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

UPoint3<float> VolumeSelection::sketchPoint(QPoint position, float sketchDepth) const
{
    UPoint3<float> point =
        m_view->getEyePointOnScreen(UPoint2<float>(float(position.x()), float(position.y())));
    point.Z() = sketchDepth;
    m_view->getWCSPointFromEyePoint(point);
    return point;
}

bool VolumeSelection::startTool(VolumeGraphicObject* tool)
{
    std::unique_ptr<VolumeGraphicObject> owned(tool);
    Base::Document* const document =
        Application::Instance ? Application::Instance->activeDocument() : nullptr;
    if (!document)
        return false;
    tool->getVolumeProperty().updateDepth();
    tool->getVolumeProperty().rememberView();
    graphicObject = owned.release();
    addTool(*document, graphicObject);
    return true;
}

}  // namespace Freecut

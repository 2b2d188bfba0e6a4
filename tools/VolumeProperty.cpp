// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/VolumeProperty.h"

#include "display/GraphicViewProvider.h"
#include "platform/document/Document.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/view/GLView.h"
#include "tools/GraphicObject.h"
#include "tools/SceneBox.h"
#include "tools/ViewAxes.h"

#include <algorithm>
#include <array>

namespace Freecut {

namespace {

/// Room that a tool has to spare at each end, as a share of the scene's depth.
constexpr double spareDepth = 0.01;

struct DepthRange
{
    float low;
    float high;
};

/// The eye-space depths between which a box lies.
DepthRange depthsOf(UBox3<float> const& box, Base::GLView const& view)
{
    std::vector<float> depths;
    for (UPoint3<float> corner : cornersOf(box)) {
        view.getEyePointFromWCSPoint(corner);
        depths.push_back(corner.Z());
    }
    auto const [low, high] = std::minmax_element(depths.begin(), depths.end());
    return {*low, *high};
}

/// The world point of the view's axis at an eye-space depth.
UPoint3<float> axisPoint(Base::GLView const& view, float depth)
{
    UPoint3<float> point(0, 0, depth);
    view.getWCSPointFromEyePoint(point);
    return point;
}

}  // namespace

void VolumeProperty::storeEyePoints()
{
    Base::GLView const* const view = eyeView();
    if (view && isContainedIn("Freecut::PolygonGraphicObject"))
        eyeKeyPoints = eyeImages(*view, keyPoints);
}

std::vector<UPoint3<float>> VolumeProperty::getEyePoints() const
{
    return eyeKeyPoints;
}

void VolumeProperty::setCommonParameters(bool newClearanceEnabled, int newClearanceDirection,
                                         float newClearance, bool newCutTillEnabled,
                                         float newCutTillValue, unsigned newFillAlpha,
                                         bool newShowCoordinate, int newViewIndex)
{
    clearanceEnabled = newClearanceEnabled;
    clearanceDirection = newClearanceDirection;
    clearance = newClearance;
    cutTillEnabled = newCutTillEnabled;
    cutTillValue = newCutTillValue;
    fillAlpha = newFillAlpha;
    showCoordinate = newShowCoordinate;
    viewIndex = newViewIndex;
}

void VolumeProperty::updateDepth()
{
    Base::Document const* const document = activeDocument();
    Base::GLView const* const view = document ? document->getView() : nullptr;
    if (!view)
        return;
    DepthRange const depths = depthsOf(boxOfAllParts(*document), *view);
    double const margin = (double(depths.high) - double(depths.low)) * spareDepth;
    sketchDepth = float(depths.high + margin);
    UPoint3<float> const top = axisPoint(*view, sketchDepth);
    UPoint3<float> bottom = top;
    if (cutTillEnabled && isAxisView(viewIndex))
        bottom[axisAlongView(viewIndex)] = cutTillValue;
    else
        bottom = axisPoint(*view, float(depths.low - margin));
    extrudeVector = top - bottom;
}

void VolumeProperty::rememberView()
{
    Base::Document const* const document = activeDocument();
    Base::GLView const* const view = document ? document->getView() : nullptr;
    if (!view)
        return;
    lastRef = view->getViewRefPoint();
    lastEye = lastRef + view->getViewDirection();
    lastUp = view->getViewUpDirection();
}

void VolumeProperty::saveCamera(UPoint3<float> const& eye, UPoint3<float> const& ref,
                                UVector3<float> const& up)
{
    savedEye = eye;
    savedRef = ref;
    savedUp = up;
}

void VolumeProperty::loadCamera(UPoint3<float>& eye, UPoint3<float>& ref, UVector3<float>& up) const
{
    eye = savedEye;
    ref = savedRef;
    up = savedUp;
}

Base::GLView* VolumeProperty::eyeView() const
{
    Base::DocumentObject const* const tool = getContainer();
    Base::Document const* document = tool ? tool->getDocument() : nullptr;
    if (!document)
        document = activeDocument();
    return document ? document->getView() : nullptr;
}

std::vector<UPoint3<float>> VolumeProperty::eyeImages(Base::GLView const& view,
                                                      std::vector<UPoint3<float>> points)
{
    for (UPoint3<float>& point : points)
        view.getEyePointFromWCSPoint(point);
    return points;
}

void VolumeProperty::updateGeometryOf(char const* className)
{
    if (!isContainedIn(className))
        return;
    if (auto* const provider = static_cast<GraphicObject*>(getContainer())->getViewProvider())
        provider->updateGeometry();
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ConnectorShaping.h"

#include "connectors/PlaneGrid.h"

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Points = std::vector<Point>;

ConnectorLook lookOf(ChosenConnector const& connector, bool isPin)
{
    if (!connector.stands())
        return ConnectorLook::Ghost;
    if (connector.leavesPart)
        return ConnectorLook::Leaving;
    return isPin ? ConnectorLook::Pin : ConnectorLook::Hole;
}

void appendPins(ConnectorShapes& shapes, PinHoleParas const& paras, UVector3<float> const& normal,
                std::vector<ChosenConnector> const& connectors)
{
    float const above = paras.height + (paras.isPin ? 0 : paras.topclearance);
    float const below = paras.isPin ? 0 : above;
    float const radius = paras.radius + (paras.isPin ? 0 : paras.sideclearance);
    for (ChosenConnector const& connector : connectors)
        shapes.cylinders.push_back({connector.position - normal * below,
                                    connector.position + normal * above, radius,
                                    lookOf(connector, paras.isPin)});
}

/// An outline at the plane and at its height, with a line between the two at each place that leaves
/// the part.
void appendOutline(ConnectorShapes& shapes, POLYGON::Polygons const& outline, Points const& leaving,
                   PlaneFrame const& frame, float height, ConnectorLook look)
{
    UVector3<float> const up = frame.normal() * height;
    ConnectorLook const shown = leaving.empty() ? look : ConnectorLook::Leaving;
    for (ClipperLib::Path const& path : outline.getPaths()) {
        Points const ring = PlaneGrid::pointsOf(path, frame);
        Points raised;
        for (Point const& p : ring)
            raised.push_back(p + up);
        shapes.lines.push_back({ring, look});
        shapes.lines.push_back({raised, shown});
    }
    for (Point const& p : leaving)
        shapes.lines.push_back({{p, p + up}, ConnectorLook::Leaving});
}

}  // namespace

void appendShapes(ConnectorShapes& shapes, SurveyRequest const& request,
                  SectionSurvey const& survey)
{
    PlaneFrame const& frame = request.planes.frame();
    if (auto const* const pins = std::get_if<PinHoleParas>(&request.connectors))
        appendPins(shapes, *pins, frame.normal(), survey.connectors);
    if (auto const* const joint = std::get_if<LapJointParas>(&request.connectors)) {
        appendOutline(shapes, survey.notch, survey.leaving.notch, frame,
                      joint->notchDepth + joint->backClearance, ConnectorLook::Hole);
        appendOutline(shapes, survey.tongue, survey.leaving.tongue, frame, joint->notchDepth,
                      ConnectorLook::Pin);
    }
}

}  // namespace Freecut

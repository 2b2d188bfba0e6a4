// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/SectionSurvey.h"

#include <optional>
#include <span>

// What a click means for the connectors that stand in the view. No widget is needed for it.
namespace Freecut::ConnectorPicking {

using Point = UPoint3<float>;

/// The line of sight through a place on the screen.
struct Sight
{
    Point point;
    /// Towards the eye, of length 1.
    UVector3<float> direction;
};

/// Where a line of sight meets the section plane; nothing if it runs along it.
std::optional<Point> placeOnPlane(Sight const& sight, PlaneFrame const& frame);

/// The connector that a line of sight goes through, by its place in the survey's list. Of several
/// it is the one whose axis is nearest.
std::optional<std::size_t> connectorAt(Sight const& sight, PinHoleParas const& paras,
                                       PlaneFrame const& frame, SectionSurvey const& survey);

/// Whether a point of the plane lies on the section.
bool isOnSection(Point const& place, PlaneFrame const& frame, SectionSurvey const& survey);

/// The nearest point of the contours and centre lines within reach; nothing if there is none.
std::optional<Point> snapped(Point const& place, SectionSurvey const& survey, float reach);

}  // namespace Freecut::ConnectorPicking

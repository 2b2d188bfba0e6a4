// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ConnectorPicking.h"

#include <algorithm>
#include <cmath>

namespace Freecut::ConnectorPicking {

namespace {

using Vector = UVector3<float>;

/// From the line of sight to the nearest point of a segment; both in space.
float distanceOfAxis(Sight const& sight, Point const& bottom, Point const& top)
{
    // In the plane across the line of sight, where the line is a point.
    auto const flat = [&](Vector const& v) { return v - sight.direction * (v | sight.direction); };
    Vector const from = flat(bottom - sight.point), along = flat(top - bottom);
    float const square = along | along;
    float const share = square > 0 ? std::clamp(-(from | along) / square, 0.0f, 1.0f) : 0;
    return (from + along * share).GetLength();
}

Point nearestOn(Point const& a, Point const& b, Point const& p)
{
    Vector const along = b - a;
    float const square = along | along;
    float const share = square > 0 ? std::clamp(((p - a) | along) / square, 0.0f, 1.0f) : 0;
    return a + along * share;
}

}  // namespace

std::optional<Point> placeOnPlane(Sight const& sight, PlaneFrame const& frame)
{
    constexpr float least = 1e-4f;
    float const steepness = sight.direction | frame.normal();
    if (std::abs(steepness) < least)
        return {};
    float const way = ((frame.centre() - sight.point) | frame.normal()) / steepness;
    Point local = frame.toPlaneLocal(sight.point + sight.direction * way);
    local[2] = 0;
    return frame.fromPlaneLocal(local);
}

std::optional<std::size_t> connectorAt(Sight const& sight, PinHoleParas const& paras,
                                       PlaneFrame const& frame, SectionSurvey const& survey)
{
    Vector const above = frame.normal() * paras.height;
    std::optional<std::size_t> found;
    float nearest = paras.radius + paras.sideclearance;
    for (std::size_t i = 0; i < survey.connectors.size(); ++i) {
        Point const& p = survey.connectors[i].position;
        float const distance = distanceOfAxis(sight, paras.isPin ? p : p - above, p + above);
        if (distance <= nearest) {
            nearest = distance;
            found = i;
        }
    }
    return found;
}

bool isOnSection(Point const& place, PlaneFrame const& frame, SectionSurvey const& survey)
{
    Point const p = frame.toPlaneLocal(place);
    bool isInside = false;
    for (SectionContour const& contour : survey.contours)
        for (std::size_t i = 0; i < contour.size(); ++i) {
            Point const a = frame.toPlaneLocal(contour[i]);
            Point const b = frame.toPlaneLocal(contour[(i + 1) % contour.size()]);
            if ((a.Y() <= p.Y()) != (b.Y() <= p.Y()) &&
                p.X() < a.X() + (p.Y() - a.Y()) / (b.Y() - a.Y()) * (b.X() - a.X()))
                isInside = !isInside;
        }
    return isInside;
}

std::optional<Point> snapped(Point const& place, SectionSurvey const& survey, float reach)
{
    std::optional<Point> found;
    float nearest = reach;
    auto const lookAt = [&](Point const& a, Point const& b) {
        Point const candidate = nearestOn(a, b, place);
        if (float const distance = (candidate - place).GetLength(); distance <= nearest) {
            nearest = distance;
            found = candidate;
        }
    };
    for (SectionContour const& contour : survey.contours)
        for (std::size_t i = 0; i < contour.size(); ++i)
            lookAt(contour[i], contour[(i + 1) % contour.size()]);
    for (auto const& line : survey.centreLines)
        for (std::size_t i = 1; i < line.size(); ++i)
            lookAt(line[i - 1], line[i]);
    return found;
}

}  // namespace Freecut::ConnectorPicking

// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorSurvey.h"

#include "connectors/AxisRays.h"
#include "connectors/PlaneFrame.h"
#include "connectors/PlaneGrid.h"
#include "platform/services/POLYGON.h"

#include <QCoreApplication>
#include <QString>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Kind = CutRemark::Kind;
using Point = UPoint3<float>;
using Points = std::vector<Point>;

/// Rays around the axis of a pin or hole, besides the axis itself.
constexpr std::size_t rimCount = 8;
/// A connector may lack this much before it is worth a word.
constexpr double spare = 0.002;
/// Along the outline of a joint no more places than these are looked at.
constexpr std::size_t mostOutlineRays = 4000;

QString translated(char const* text)
{
    return QCoreApplication::translate("CutRemarks", text);
}

QString millimetres(double length)
{
    return QString::number(std::floor(length * 100) / 100);
}

/// The axis of a body and its rim.
void appendStarts(Points& starts, Point const& centre, float radius, PlaneFrame const& frame)
{
    starts.push_back(centre);
    for (std::size_t i = 0; i < rimCount; ++i) {
        float const angle = float(i) * 2 * std::numbers::pi_v<float> / rimCount;
        starts.push_back(centre + frame.direction1() * (radius * std::cos(angle)) +
                         frame.direction2() * (radius * std::sin(angle)));
    }
}

/// The positions whose bodies leave the material, and the least length that any of them has.
struct Leaving
{
    Points places;
    /// The places in the list of positions.
    std::vector<std::size_t> which;
    double least = 0;

    void note(Point const& place, std::size_t index, double length)
    {
        least = places.empty() ? length : std::min(least, length);
        places.push_back(place);
        which.push_back(index);
    }
};

/// wanted  how long each body is; reach tells how much of it a ray finds
template <typename Reach>
Leaving leavingOf(Points const& positions, double wanted, Reach const& reach)
{
    Leaving leaving;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        double least = wanted;
        for (std::size_t ray = i * (rimCount + 1); ray < (i + 1) * (rimCount + 1); ++ray)
            least = std::min(least, reach(ray));
        if (least < wanted - spare)
            leaving.note(positions[i], i, least);
    }
    return leaving;
}

/// Places all along the outlines.
Points outlineStarts(POLYGON::Polygons const& outlines, PlaneFrame const& frame)
{
    Points all;
    for (ClipperLib::Path const& path : outlines.getPaths()) {
        Points const points = PlaneGrid::pointsOf(path, frame);
        for (std::size_t i = 0; i < points.size(); ++i) {
            Point const& next = points[(i + 1) % points.size()];
            all.push_back(points[i]);
            all.push_back((points[i] + next) * 0.5f);
        }
    }
    std::size_t const stride = all.size() / mostOutlineRays + 1;
    Points starts;
    for (std::size_t i = 0; i < all.size(); i += stride)
        starts.push_back(all[i]);
    return starts;
}

/// An outline may go round the part on purpose; only what starts in the material can leave it.
///
/// first  the ray of the first start
Leaving leavingOutline(Points const& starts, double wanted, AxisRays const& rays, std::size_t first)
{
    Leaving leaving;
    for (std::size_t i = 0; i < starts.size(); ++i)
        if (double const length = rays.above(first + i); length > 0 && length < wanted - spare)
            leaving.note(starts[i], i, length);
    return leaving;
}

}  // namespace

std::vector<bool> ConnectorSurvey::ofPins(PinHoleParas const& paras, Points const& positions) const
{
    Points starts;
    for (Point const& position : positions)
        appendStarts(starts, position, paras.radius + paras.sideclearance, m_frame);
    AxisRays const rays(m_frame, starts, m_source, m_poll);
    double const depth = double(paras.height) + paras.topclearance;
    auto const above = [&](std::size_t ray) { return rays.above(ray); };
    auto const both = [&](std::size_t ray) { return std::min(rays.above(ray), rays.below(ray)); };

    Leaving const pins = leavingOf(positions, paras.height, above);
    if (paras.isPin && !pins.places.empty())
        add(Kind::ConnectorLeavesPart,
            translated(QT_TRANSLATE_NOOP("CutRemarks",
                                         "%1 of %2 pins leave the part: at one of them it "
                                         "goes on for only %3 mm above the plane."))
                .arg(pins.places.size())
                .arg(positions.size())
                .arg(millimetres(pins.least))
                .toStdString(),
            pins.places);
    Leaving const holes =
        paras.isPin ? leavingOf(positions, depth, above) : leavingOf(positions, depth, both);
    if (!holes.places.empty())
        add(Kind::ConnectorLeavesPart,
            translated(QT_TRANSLATE_NOOP("CutRemarks",
                                         "%1 of %2 holes open to the outside or into a "
                                         "cavity: at one of them the part goes on for only "
                                         "%3 mm."))
                .arg(holes.places.size())
                .arg(positions.size())
                .arg(millimetres(holes.least))
                .toStdString(),
            holes.places);
    if (paras.isPin && paras.faceclearance > paras.topclearance)
        add(Kind::FacesNeverMeet,
            translated(QT_TRANSLATE_NOOP("CutRemarks",
                                         "The faces never meet: the pins reach the ends of "
                                         "their holes before, for the gap between the faces "
                                         "is wider than the one above the pins."))
                .toStdString(),
            {});
    std::vector<bool> leaves(positions.size(), false);
    for (std::size_t const i : holes.which)
        leaves[i] = true;
    for (std::size_t const i : pins.which)
        leaves[i] = leaves[i] || paras.isPin;
    return leaves;
}

ConnectorSurvey::JointLeaving ConnectorSurvey::ofJoint(LapJointParas const& paras,
                                                       POLYGON::Polygons const& tongue,
                                                       POLYGON::Polygons const& notch) const
{
    Points const tongueStarts = outlineStarts(tongue, m_frame);
    Points const notchStarts = outlineStarts(notch, m_frame);
    Points starts = tongueStarts;
    starts.insert(starts.end(), notchStarts.begin(), notchStarts.end());
    // One pass over the part for both.
    AxisRays const rays(m_frame, starts, m_source, m_poll);
    Leaving const raised = leavingOutline(tongueStarts, paras.notchDepth, rays, 0);
    if (!raised.places.empty())
        add(Kind::ConnectorLeavesPart,
            translated(QT_TRANSLATE_NOOP("CutRemarks",
                                         "The tongue leaves the part: at one place it goes "
                                         "on for only %1 mm above the plane."))
                .arg(millimetres(raised.least))
                .toStdString(),
            {raised.places.front()});
    Leaving const hollow = leavingOutline(
        notchStarts, double(paras.notchDepth) + paras.backClearance, rays, tongueStarts.size());
    if (!hollow.places.empty())
        add(Kind::ConnectorLeavesPart,
            translated(QT_TRANSLATE_NOOP("CutRemarks",
                                         "The notch opens to the outside or into a cavity: "
                                         "at one place the part goes on for only %1 mm above "
                                         "the plane."))
                .arg(millimetres(hollow.least))
                .toStdString(),
            {hollow.places.front()});
    if (paras.frontClearance > paras.backClearance)
        add(Kind::FacesNeverMeet,
            translated(QT_TRANSLATE_NOOP("CutRemarks",
                                         "The faces never meet: the tongue reaches the end "
                                         "of its notch before, for the gap between the "
                                         "faces is wider than the one above the tongue."))
                .toStdString(),
            {});
    return {raised.places, hollow.places};
}

void ConnectorSurvey::add(Kind kind, std::string text, Points places) const
{
    m_remarks.push_back({m_object, kind, std::move(text), std::move(places)});
}

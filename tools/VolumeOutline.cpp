// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/VolumeOutline.h"

#include "tools/OutlineOffset.h"
#include "tools/RoundRing.h"
#include "tools/VolumeProperty.h"

#include <QCoreApplication>

#include <algorithm>
#include <future>
#include <iterator>

namespace Freecut {

namespace {

constexpr char const* tooManyCorners = QT_TRANSLATE_NOOP(
    "Tools",
    "The outline has too many corners for its clearance. Draw it with fewer crossings and corners, "
    "choose a smaller clearance or do not round its corners.");

/// Outlines up to here are moved to one side in less time than it takes to start a thread.
constexpr std::size_t fewPoints = 200;

bool goesInward(int clearanceDirection)
{
    return clearanceDirection == 0 || clearanceDirection == 2;
}

bool goesOutward(int clearanceDirection)
{
    return clearanceDirection == 1 || clearanceDirection == 2;
}

void appendLoops(std::vector<float>& buffer, Loops const& loops)
{
    for (Ring const& ring : loops)
        appendCoordinates(buffer, ring);
}

}  // namespace

bool VolumeOutline::Rounding::counts() const
{
    return isOn && radius >= leastLength;
}

bool VolumeOutline::hasClearance() const
{
    return m_record.getClearanceEnabled() && m_record.getClearance() >= leastLength;
}

Loops VolumeOutline::nominalWithoutRepeat() const
{
    return isRing() ? m_outlines.solidLoops : withoutLastPoints(m_outlines.solidLoops);
}

void VolumeOutline::update(GLCamera const& camera, bool viewChanged, bool isOpenGL33,
                           WorkPoll const& poll)
{
    m_outlines.clear();
    if (m_record.getKeyPoints().empty())
        return;
    if (viewChanged) {
        m_record.updateDepth();
        pinToScreen(SketchPlane(camera, m_record.getSketchDepth()));
    }
    try {
        derive(SketchPlane(camera, m_record.getSketchDepth()), poll);
    } catch (...) {
        m_outlines.clear();
        throw;
    }
    if (m_record.getPreviewOn())
        buildSolidBuffers(isOpenGL33);
}

void VolumeOutline::derive(SketchPlane const& plane, WorkPoll const& poll)
{
    deriveNominal(plane, poll);
    if (rounding().counts()) {
        m_outlines.roundedLoops = nominalWithoutRepeat();
        round(m_outlines.roundedLoops, poll);
    }
    if (hasClearance() && m_outlines.problem.empty())
        deriveClearance(plane, poll);
    if (isRing())
        chooseCaps();
    flatten();
}

void VolumeOutline::pinToScreen(SketchPlane const& plane)
{
    std::vector<UPoint3<float>> const eye = m_record.getEyePoints();
    std::vector<UPoint3<float>>& points = m_record.getKeyPoints();
    for (std::size_t i = 0; i < std::min(points.size(), eye.size()); ++i)
        points[i] = plane.project(eye[i]);
}

void VolumeOutline::round(Loops& loops, WorkPoll const& poll) const
{
    for (Ring& ring : loops)
        roundRing(ring, rounding().radius, poll);
}

void VolumeOutline::deriveClearance(SketchPlane const& plane, WorkPoll const& poll)
{
    OutlineOffset const offset(
        m_outlines.roundedLoops.empty() ? m_outlines.solidLoops : m_outlines.roundedLoops, plane,
        poll);
    double const clearance = m_record.getClearance();
    int const direction = m_record.getClearanceDirection();
    bool const isInward = goesInward(direction), isOutward = goesOutward(direction);
    bool const isParallel = isInward && isOutward && offset.pointCount() > fewPoints;
    std::future<bool> inward;
    if (isInward)
        inward = std::async(
            isParallel ? std::launch::async | std::launch::deferred : std::launch::deferred,
            [&] { return deriveMoved(m_outlines.innerLoops, offset, -clearance, poll); });
    bool isDone = !isOutward || deriveMoved(m_outlines.outerLoops, offset, clearance, poll);
    if (isInward)
        isDone = inward.get() && isDone;
    if (!isDone)
        refuseClearance();
}

bool VolumeOutline::deriveMoved(Loops& loops, OutlineOffset const& offset, double distance,
                                WorkPoll const& poll) const
{
    std::optional<Loops> moved = offset.moved(distance);
    if (!moved)
        return false;
    loops = std::move(*moved);
    keepPaths(loops);
    if (rounding().counts())
        round(loops, poll);
    return true;
}

void VolumeOutline::refuseClearance()
{
    Loops drawn = std::move(m_outlines.solidLoops);
    std::move(m_outlines.residualLoops.begin(), m_outlines.residualLoops.end(),
              std::back_inserter(drawn));
    m_outlines.refuse(QCoreApplication::translate("Tools", tooManyCorners).toStdString(),
                      std::move(drawn));
}

void VolumeOutline::keepPaths(Loops& paths) const
{
    if (isRing() && paths.size() > 1)
        paths.resize(1);
}

void VolumeOutline::chooseCaps()
{
    m_outlines.topLoops = innerOutline();
    m_outlines.bottomLoops = m_outlines.topLoops;
}

void VolumeOutline::flatten()
{
    appendLoops(m_outlines.outlineBuffer, withoutLastPoints(m_outlines.residualLoops));
    appendLoops(m_outlines.outlineBuffer, m_outlines.roundedLoops);
    appendLoops(m_outlines.outlineBuffer, nominalWithoutRepeat());
    appendLoops(m_outlines.innerBuffer, m_outlines.innerLoops);
    appendLoops(m_outlines.outerBuffer, m_outlines.outerLoops);
    appendLoops(m_outlines.teethBuffer, m_outlines.teethLoops);
}

void VolumeOutline::buildSolidBuffers(bool isOpenGL33)
{
    m_outlines.previewBuffer.clear();
    m_outlines.normalBuffer.clear();
    if (!isRing())
        chooseCaps();
    m_outlines.bottomLoops =
        translated(std::move(m_outlines.bottomLoops), -m_record.getExtrudeVector());
    SolidPreview preview(isOpenGL33, m_outlines.previewBuffer, m_outlines.normalBuffer);
    appendSolid(preview);
}

void VolumeOutline::appendSolid(SolidPreview& preview) const
{
    for (std::size_t i = 0; i < m_outlines.topLoops.size(); ++i)
        preview.addSides(m_outlines.topLoops[i], m_outlines.bottomLoops[i]);
    for (Ring const& bottom : m_outlines.bottomLoops)
        preview.addCaps(bottom, m_record.getExtrudeVector());
}

Loops VolumeOutline::innerOutline() const
{
    if (hasClearance() && goesInward(m_record.getClearanceDirection()))
        return m_outlines.innerLoops;
    return rounding().counts() ? m_outlines.roundedLoops : nominalWithoutRepeat();
}

Loops VolumeOutline::outerOutline() const
{
    if (!m_outlines.outerLoops.empty())
        return m_outlines.outerLoops;
    return rounding().isOn ? m_outlines.roundedLoops : nominalWithoutRepeat();
}

}  // namespace Freecut

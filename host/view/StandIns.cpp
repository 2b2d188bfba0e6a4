// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/StandIns.h"

#include "host/services/RecordArrays.h"
#include "host/view/DeviceWork.h"
#include "host/view/DrawTrace.h"
#include "host/view/StandIn.h"
#include "host/view/StandInShape.h"
#include "platform/jobs/BackgroundWork.h"

#include <QGuiApplication>

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr int restMs = 200;
/// What the parts of an exact picture may take, of the 60 ms of a smooth movement.
constexpr int slowMs = 25;
/// Parts that have less together are never drawn coarsely; a single one of them needs less.
constexpr std::size_t leastInView = 150000;
constexpr std::size_t leastInPart = 10000;
/// Of all parts together in a coarse picture.
constexpr std::size_t trianglesWhileMoving = std::size_t(1.25 * StandIn::wantedTriangles);
/// An exact picture whose parts take no longer is drawn at once.
constexpr double atOnceMs = 40;
constexpr std::size_t edgesCost = DrawTrace::edgesCost;
constexpr std::size_t bytesPerStep = 4 << 20;

bool hasFaces(SurfaceLook const& look)
{
    return (look.front & 255) || (look.back & 255);
}

std::size_t costOf(PaintedPart const& part)
{
    std::size_t const each =
        (hasFaces(part.look) ? 1 : 0) + ((part.look.edges & 255) ? edgesCost : 0);
    return part.shape->triangles() * each;
}

/// Null if the memory does not suffice: then all pictures are exact.
std::shared_ptr<StandIn const> standInFor(UMesh<float> const& mesh)
{
    try {
        std::function<void(int)> const none;
        StageProgress progress(none);
        return std::make_shared<StandIn>(copyArrays(mesh, progress));
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
}

}  // namespace

StandIns::StandIns(DeviceWork& work) : m_work(work)
{
    m_thread.setMaxThreadCount(1);
    m_restTimer.setSingleShot(true);
    m_restTimer.setInterval(restMs);
    connect(&m_restTimer, &QTimer::timeout, this, &StandIns::rest);
}

StandIns::~StandIns()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void StandIns::moved()
{
    m_isMoving = true;
    m_restTimer.start();
}

void StandIns::movedIfDragged()
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        moved();
}

void StandIns::rest()
{
    m_restTimer.stop();
    m_isMoving = false;
    if (m_isOwed)
        emit rested();
}

bool StandIns::isLarge() const
{
    return m_load.cost >= leastInView;
}

bool StandIns::isWorthIt() const
{
    return m_use == Use::Always || (m_use == Use::WhenSlow && m_isSlow);
}

bool StandIns::isCoarseDue(bool isPreparing) const
{
    return (m_isMoving || isPreparing) && isLarge() && isWorthIt();
}

bool StandIns::mayNeedSteps(Shapes const& shapes) const
{
    std::size_t triangles = 0;
    for (std::shared_ptr<PartShape> const& shape : shapes)
        triangles += shape->triangles();
    return m_use != Use::Never && triangles * (1 + edgesCost) >= leastInView;
}

bool StandIns::needsSteps(std::size_t cost) const
{
    if (m_use != Use::WhenSlow || cost < leastInView)
        return m_use == Use::Always && cost >= leastInView;
    return !m_msPerCost || *m_msPerCost * double(cost) > atOnceMs;
}

bool StandIns::areReady(Shapes const& shapes)
{
    bool areAll = true;
    for (std::shared_ptr<PartShape> const& shape : shapes) {
        if (isWorthIt() && isWanted(*shape))
            make(shape);
        bool const isLacking = !shape->isStandInAsked || shape->isStandInComing;
        areAll = areAll && (shape->triangles() < leastInPart || !isLacking);
    }
    return areAll;
}

void StandIns::measured(double ms, std::size_t cost)
{
    m_isSlow = ms > slowMs;
    m_msPerCost = ms / double(std::max<std::size_t>(cost, 1));
}

void StandIns::beginParts(DrawDevice& device)
{
    m_loadNow = {};
    m_painted.clear();
    if (isTimed())
        device.finish();
    m_partsTime.start();
}

void StandIns::endParts(DrawDevice& device)
{
    m_load = m_loadNow;
    if (isTimed()) {
        device.finish();
        measured(double(m_partsTime.nsecsElapsed()) / 1e6, m_load.cost);
    }
    for (std::shared_ptr<PartShape> const& shape : m_painted)
        if (isLarge() && isWorthIt() && isWanted(*shape))
            make(shape);
    m_painted.clear();
}

void StandIns::count(PaintedPart const& part)
{
    m_loadNow.triangles += part.shape->triangles();
    m_loadNow.cost += costOf(part);
    m_painted.push_back(part.shape);
}

// Its share by the last picture.
std::size_t StandIns::allowedFor(PaintedPart const& part) const
{
    double const share =
        double(part.shape->triangles()) / double(std::max<std::size_t>(m_load.triangles, 1));
    double const each = hasFaces(part.look) ? 1 : double(edgesCost);
    return std::size_t(std::min(share, 1.0) * double(trianglesWhileMoving) / each);
}

bool StandIns::paint(DrawDevice& device, PaintedPart& part, QMatrix4x4 const& toClip,
                     QMatrix4x4 const& toEye)
{
    count(part);
    part.coarseness = 0;
    bool const isNew = !std::exchange(part.shape->wasPainted, true);
    if (!isCoarse()) {
        // What is new takes time once to be brought to the device, which does not count.
        if (isNew && m_manner == Manner::Exact && m_loadNow.cost >= leastInView) {
            device.finish();
            m_partsTime.start();
        }
        return false;
    }
    SurfaceLook look = part.look;
    if (hasFaces(look))
        look.edges = 0;
    std::size_t const allowed = allowedFor(part);
    StandInShape const* const standIn = part.shape->standIn.get();
    bool const isLacking = !standIn && part.shape->triangles() >= leastInPart;
    if (m_manner == Manner::CoarseOrNot && isLacking)
        return true;
    if (!standIn || part.shape->triangles() <= allowed) {
        device.draw(*part.shape->geometry, look, toClip, toEye);
        return true;
    }
    StandInShape::Choice const choice = standIn->choose(toClip, allowed);
    part.coarseness = choice.cell;
    device.draw(*choice.geometry, look, toClip, toEye, choice.ranges);
    return true;
}

bool StandIns::isWanted(PartShape const& shape) const
{
    return !shape.isStandInAsked && shape.triangles() >= leastInPart;
}

void StandIns::make(std::shared_ptr<PartShape> const& shape)
{
    shape->isStandInAsked = true;
    PartShape::Mesh mesh = shape->mesh.lock();
    if (!mesh)
        return;
    shape->isStandInComing = true;
    ++m_running;
    m_thread.start(
        [this, asked = std::weak_ptr<PartShape>(shape), held = std::move(mesh)]() mutable {
            BackgroundWork::giveWay();
            // Who has taken the part away meanwhile does not need it.
            auto made = held.use_count() > 1 ? standInFor(*held) : nullptr;
            held.reset();
            m_made.put({std::move(asked), std::move(made)});
            QMetaObject::invokeMethod(this, &StandIns::enterMade, Qt::QueuedConnection);
        });
}

void StandIns::enterMade()
{
    for (Made& made : m_made.takeAll())
        enter(made.shape, std::move(made.standIn));
}

void StandIns::enter(std::weak_ptr<PartShape> const& shape, std::shared_ptr<StandIn const> made)
{
    --m_running;
    std::shared_ptr<PartShape> const asked = shape.lock();
    if (asked && (!made || asked->mesh.expired()))
        asked->isStandInComing = false;
    if (!asked || !asked->isStandInComing)
        return;
    auto const standIn = std::make_shared<StandInShape>(made, *asked->geometry);
    m_work.add([this, shape, standIn](DrawDevice& device) {
        std::shared_ptr<PartShape> const target = shape.lock();
        if (target && !standIn->upload(device, bytesPerStep))
            return false;
        if (!target)
            return true;
        target->standIn = standIn;
        target->isStandInComing = false;
        emit arrived();
        return true;
    });
}

bool StandIns::isWorking() const
{
    return m_running > 0 || !m_work.isEmpty();
}

void StandIns::releaseGL()
{
    m_painted.clear();
    m_load = {};
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartPreparer.h"

#include "platform/jobs/BackgroundWork.h"

#include <QCoreApplication>

#include <new>
#include <utility>

namespace {

/// A million triangles take about 0.2 s.
constexpr std::size_t mostAtOnce = 200000;

std::shared_ptr<PreparedPart> preparedPart(PartPreparer::Mesh const& mesh)
{
    return std::make_shared<PreparedPart>(mesh);
}

}  // namespace

PartPreparer::PartPreparer() : PartPreparer(preparedPart) {}

PartPreparer::PartPreparer(Make make) : m_make(std::move(make))
{
    m_thread.setMaxThreadCount(1);
}

PartPreparer::~PartPreparer()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void PartPreparer::beginPicture()
{
    m_granted = 0;
    // What the last picture has left is of a part that is shown no more.
    for (auto item = m_entries.begin(); item != m_entries.end();) {
        Entry& entry = item->second;
        bool const hasEnded = entry.result || entry.hasFailed;
        if (hasEnded && std::exchange(entry.wasOffered, true))
            item = m_entries.erase(item);
        else
            ++item;
    }
}

bool PartPreparer::takesAtOnce(Mesh const& mesh)
{
    auto const found = m_entries.find(mesh.get());
    bool const isAsked = found != m_entries.end() && found->second.mesh.lock() == mesh;
    std::size_t const triangles = mesh->triangles.size();
    if (isAsked || m_granted + triangles > mostAtOnce)
        return false;
    m_granted += triangles;
    return true;
}

std::shared_ptr<PreparedPart> PartPreparer::take(Mesh const& mesh)
{
    if (auto result = takeReady(mesh))
        return result;
    Entry& entry = m_entries[mesh.get()];
    // A new mesh may lie where a former one was.
    if (entry.request == 0 || entry.mesh.lock() != mesh)
        begin(mesh, entry);
    else
        entry.wasOffered = false;
    return nullptr;
}

std::shared_ptr<PreparedPart> PartPreparer::takeReady(Mesh const& mesh)
{
    auto const found = m_entries.find(mesh.get());
    if (found == m_entries.end() || !found->second.result)
        return nullptr;
    std::shared_ptr<PreparedPart> result = std::move(found->second.result);
    m_entries.erase(found);
    return result->tree->isOf(mesh) ? std::move(result) : nullptr;
}

void PartPreparer::forget(UMesh<float> const* mesh)
{
    m_entries.erase(mesh);
}

void PartPreparer::begin(Mesh const& mesh, Entry& entry)
{
    entry = {};
    entry.mesh = mesh;
    entry.request = ++m_lastRequest;
    ++m_running;
    m_thread.start([this, request = entry.request, held = Mesh(mesh)]() mutable {
        BackgroundWork::giveWay();
        m_ready.put(make(std::move(held), request));
        QMetaObject::invokeMethod(this, &PartPreparer::enterReady, Qt::QueuedConnection);
    });
}

// Lets go of the mesh.
PartPreparer::Ready PartPreparer::make(Mesh mesh, unsigned long request) const
{
    Ready ready{mesh.get(), request, false, nullptr};
    // Who has taken the part away meanwhile does not need it.
    if (mesh.use_count() == 1)
        return ready;
    try {
        ready.result = m_make(mesh);
    } catch (std::bad_alloc const&) {
        ready.hasFailed = true;
    }
    return ready;
}

void PartPreparer::enterReady()
{
    for (Ready& ready : m_ready.takeAll())
        enter(std::move(ready));
}

void PartPreparer::enter(Ready ready)
{
    --m_running;
    auto const found = m_entries.find(ready.mesh);
    bool const isAsked = found != m_entries.end() && found->second.request == ready.request;
    bool const isOfUse = (ready.result || ready.hasFailed) && isAsked;
    if (isAsked && (!isOfUse || found->second.mesh.expired())) {
        m_entries.erase(found);
    } else if (isAsked) {
        found->second.result = std::move(ready.result);
        found->second.hasFailed = ready.hasFailed;
    }
    emit prepared();
    if (isOfUse && ready.hasFailed)
        emit failed();
}

void PartPreparer::finish()
{
    m_thread.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartPreparer.h"

#include <QCoreApplication>

#include <utility>

namespace {

/// A million triangles take about 0.2 s.
constexpr std::size_t mostAtOnce = 200000;

}  // namespace

PartPreparer::PartPreparer()
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
    for (auto item = m_entries.begin(); item != m_entries.end();)
        if (item->second.result && std::exchange(item->second.wasOffered, true))
            item = m_entries.erase(item);
        else
            ++item;
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
    entry.mesh = mesh;
    entry.request = ++m_lastRequest;
    entry.wasOffered = false;
    entry.result.reset();
    ++m_running;
    m_thread.start([this, request = entry.request, held = Mesh(mesh)]() mutable {
        UMesh<float> const* const key = held.get();
        // Who has taken the part away meanwhile does not need it.
        auto result = held.use_count() > 1 ? std::make_shared<PreparedPart>(held) : nullptr;
        held.reset();
        m_ready.put({key, request, std::move(result)});
        QMetaObject::invokeMethod(this, &PartPreparer::enterReady, Qt::QueuedConnection);
    });
}

void PartPreparer::enterReady()
{
    for (Ready& ready : m_ready.takeAll())
        enter(ready.mesh, ready.request, std::move(ready.result));
}

void PartPreparer::enter(UMesh<float> const* mesh, unsigned long request,
                         std::shared_ptr<PreparedPart> result)
{
    --m_running;
    auto const found = m_entries.find(mesh);
    bool const isAsked = found != m_entries.end() && found->second.request == request;
    if (isAsked && (!result || found->second.mesh.expired()))
        m_entries.erase(found);
    else if (isAsked)
        found->second.result = std::move(result);
    emit prepared();
}

void PartPreparer::finish()
{
    m_thread.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/RecordArrays.h"
#include "host/view/MeshViewProvider.h"
#include "host/view/ViewScene.h"
#include "platform/view/GLView.h"

#include <new>

// Where a part's provider has from what it draws and picks with: its own, that of another part with
// the same mesh, or what was made on another thread.
namespace Mesh {

namespace {

/// A million triangles take about 0.2 s to sort.
constexpr std::size_t mostForHover = 100000;

MeshArrays copyOf(UMesh<float> const& mesh)
{
    std::function<void(int)> const none;
    StageProgress progress(none);
    return copyArrays(mesh, progress);
}

}  // namespace

bool ViewProvider::hasShapeOf(PartShape::Mesh const& mesh) const
{
    return m_painted.shape && m_painted.shape->isOf(mesh);
}

bool ViewProvider::hasTreeOf(PartShape::Mesh const& mesh) const
{
    return m_tree && m_tree->isOf(mesh);
}

ViewProvider const* ViewProvider::twin(bool (ViewProvider::*has)(PartShape::Mesh const&) const,
                                       PartShape::Mesh const& mesh) const
{
    if (!m_view)
        return nullptr;
    for (Base::ViewProvider const* const provider : m_view->scene().providers()) {
        auto const* const other = dynamic_cast<ViewProvider const*>(provider);
        if (other && other != this && (other->*has)(mesh))
            return other;
    }
    return nullptr;
}

void ViewProvider::take(PreparedPart& prepared, PartShape::Mesh const& mesh) const
{
    m_tree = prepared.tree;
    if (!hasShapeOf(mesh))
        m_prepared = std::move(prepared.surface);
}

// False if it is not ready.
bool ViewProvider::findShape(DrawDevice& device, PartShape::Mesh const& mesh)
{
    if (hasShapeOf(mesh))
        return true;
    if (ViewProvider const* const other = twin(&ViewProvider::hasShapeOf, mesh))
        m_painted.shape = other->m_painted.shape;
    else if (findComing(mesh))
        m_painted.shape = m_coming->shape();
    else if (!m_coming && findSurface(mesh) && !beginComing(device, mesh))
        m_painted.shape = std::make_shared<PartShape>(device, *m_prepared, mesh);
    else
        return false;
    m_coming.reset();
    m_prepared.reset();
    return true;
}

bool ViewProvider::hasComing(PartShape::Mesh const& mesh) const
{
    return m_coming && m_coming->isOf(mesh);
}

// False if it is not there yet, or nothing is on its way.
bool ViewProvider::findComing(PartShape::Mesh const& mesh)
{
    if (!hasComing(mesh)) {
        ViewProvider const* const other = twin(&ViewProvider::hasComing, mesh);
        m_coming = other ? other->m_coming : nullptr;
    }
    return m_coming && m_coming->shape();
}

// False if the prepared surface is so small that it is brought over at once.
bool ViewProvider::beginComing(DrawDevice& device, PartShape::Mesh const& mesh)
{
    if (!ComingShape::isWorthIt(*m_prepared))
        return false;
    m_coming = std::make_shared<ComingShape>(device, std::move(m_prepared), mesh);
    m_view->scene().deviceWork().add([coming = m_coming, view = m_view](DrawDevice&) {
        if (!coming->step())
            return false;
        view->update();
        return true;
    });
    return true;
}

bool ViewProvider::findSurface(PartShape::Mesh const& mesh)
{
    // The tree tells whose mesh the prepared surface is of.
    if (m_prepared && hasTreeOf(mesh))
        return true;
    PartPreparer& preparer = m_view->scene().preparer();
    if (preparer.takesAtOnce(mesh)) {
        m_prepared = std::make_unique<PartSurface>(copyOf(*mesh));
        return true;
    }
    auto const made = preparer.take(mesh);
    if (made)
        take(*made, mesh);
    return made != nullptr;
}

// Without making one.
bool ViewProvider::takeTree(PartShape::Mesh const& mesh) const
{
    if (hasTreeOf(mesh))
        return true;
    ViewProvider const* const other = twin(&ViewProvider::hasTreeOf, mesh);
    if (other)
        m_tree = other->m_tree;
    return other != nullptr;
}

bool ViewProvider::isPickReady() const
{
    MeshKernel const* const shown = kernel();
    return !shown || takeTree(shown->readMesh());
}

void ViewProvider::makePickReady() const
{
    MeshKernel const* const shown = kernel();
    if (shown && shown->readMesh()->triangles.size() <= mostForHover)
        tree(shown->readMesh());
}

// False if it is not ready.
bool ViewProvider::findTree(PartShape::Mesh const& mesh) const
{
    if (takeTree(mesh))
        return true;
    PartPreparer& preparer = m_view->scene().preparer();
    if (preparer.takesAtOnce(mesh)) {
        m_tree = std::make_shared<PickTree>(mesh, copyOf(*mesh));
        return true;
    }
    auto const made = preparer.take(mesh);
    if (made)
        take(*made, mesh);
    return made != nullptr;
}

// Null if the memory does not suffice.
PickTree const* ViewProvider::tree(PartShape::Mesh const& mesh) const
{
    if (takeTree(mesh))
        return m_tree.get();
    if (auto const made = m_view ? m_view->scene().preparer().takeReady(mesh) : nullptr) {
        take(*made, mesh);
        return m_tree.get();
    }
    try {
        m_tree = std::make_shared<PickTree>(mesh, copyOf(*mesh));
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
    return m_tree.get();
}

}  // namespace Mesh

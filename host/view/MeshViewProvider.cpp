// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MeshViewProvider.h"

#include "host/view/Transforms.h"
#include "host/view/ViewScene.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/GLView.h"

namespace Mesh {

namespace {

constexpr unsigned partColor = 0xbccad8ff;
constexpr unsigned selectedColor = 0xf29b38ff;
constexpr unsigned candidateColor = 0xe5c07bff;
constexpr unsigned backColor = 0xb04a5aff;
constexpr unsigned edgeColor = 0x20262c90;
constexpr unsigned ghostAlpha = 0x40;

unsigned withAlpha(unsigned rgba, unsigned alpha)
{
    return (rgba & 0xffffff00) | alpha;
}

}  // namespace

constinit Base::Type ViewProvider::classTypeId;

void ViewProvider::init()
{
    initSubclass(classTypeId, "Mesh::ViewProvider", "Base::ViewProvider", create);
}

void* ViewProvider::create()
{
    return static_cast<BaseClass*>(new ViewProvider);
}

ViewProvider::~ViewProvider()
{
    if (m_surface)
        m_view->makeCurrent();
}

Base::Type ViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string ViewProvider::getClassName() const
{
    return "Mesh::ViewProvider";
}

DocumentObject const* ViewProvider::part() const
{
    return dynamic_cast<DocumentObject const*>(m_object);
}

MeshKernel const* ViewProvider::kernel() const
{
    DocumentObject const* const shown = part();
    MeshKernel const* const kernel = shown ? shown->meshProperty->getMesh() : nullptr;
    return kernel && kernel->readMesh() ? kernel : nullptr;
}

void ViewProvider::updateRenderData()
{
    m_surfaceMesh.reset();
    m_tree.reset();
    Base::ViewProvider::updateRenderData();
}

bool ViewProvider::isGhost() const
{
    return m_object && !isShow() && m_object->isSemiVisible();
}

bool ViewProvider::isTransparent() const
{
    unsigned const color = getObjectColor();
    return isGhost() || (color != 0 && (color & 255) != 255);
}

bool ViewProvider::isSurfaceOf(MeshKernel const& kernel) const
{
    auto const mesh = kernel.readMesh();
    return m_surface && m_surfaceMesh.lock() == mesh &&
           mesh->triangles.size() == m_surfaceTriangles;
}

void ViewProvider::upload(DrawDevice& device, MeshKernel const& kernel)
{
    std::function<void(int)> const none;
    StageProgress progress(none);
    PartSurface const surface(copyArrays(kernel, Frame::Local, progress));
    m_surface = device.upload(surface);
    m_surfaceMesh = kernel.readMesh();
    m_surfaceTriangles = kernel.readMesh()->triangles.size();
    m_deviceBytes = surface.vertices.size() * sizeof(PartSurface::Vertex) +
                    surface.indices.size() * sizeof(std::uint32_t);
}

SurfaceLook ViewProvider::look(MeshKernel const& kernel) const
{
    SurfaceLook look;
    look.isMirrored = kernel.getMatrix().linearDeterminant() < 0;
    unsigned const own = getObjectColor();
    look.front = own ? own : partColor;
    look.back = withAlpha(backColor, look.front & 255);
    if (m_object->isSelected())
        look.front = withAlpha(selectedColor, look.front & 255);
    else if (m_object->isSemiSelected())
        look.front = withAlpha(candidateColor, look.front & 255);
    if (isGhost()) {
        look.front = withAlpha(look.front, ghostAlpha);
        look.back = withAlpha(look.front, ghostAlpha);
    }
    if (getRenderMode() != Shaded)
        look.edges = edgeColor;
    if (getRenderMode() == Edges)
        look = {0, 0, m_object->isSelected() ? selectedColor : edgeColor, look.isMirrored};
    return look;
}

void ViewProvider::paintGL()
{
    DrawDevice* const device = m_view->scene().device();
    MeshKernel const* const shown = kernel();
    if (!device || !shown)
        return;
    if (!isSurfaceOf(*shown))
        upload(*device, *shown);
    QMatrix4x4 const toWorld = toQt(shown->getMatrix());
    GLCamera const& camera = *m_view->getCamera();
    QMatrix4x4 const toEye = camera.getModelViewMatrix() * toWorld;
    device->draw(*m_surface, look(*shown), camera.getProjectionMatrix() * toEye, toEye);
}

std::optional<ViewProvider::Hit> ViewProvider::firstHit(PickTree::Ray const& ray) const
{
    MeshKernel const* const shown = kernel();
    if (!shown || shown->readMesh()->triangles.empty())
        return {};
    if (!m_tree || !m_tree->isOf(*shown))
        m_tree = std::make_unique<PickTree>(*shown);
    // A reflection turns the ray and the corners alike, so fronts stay fronts.
    PickTree::Ray const local = placedBack(ray, shown->getMatrix());
    auto const hit = m_tree->firstHit(*shown->readMesh(), local);
    if (!hit)
        return {};
    return Hit{shown->readMesh()->triangles[hit->triangle],
               ray.origin + ray.direction * hit->distance, hit->distance};
}

}  // namespace Mesh

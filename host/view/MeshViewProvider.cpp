// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MeshViewProvider.h"

#include "host/view/Transforms.h"
#include "host/view/ViewColors.h"
#include "host/view/ViewScene.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/MeshGLView.h"

#include <algorithm>
#include <cmath>

namespace Mesh {

namespace {

constexpr unsigned ghostAlpha = 0x40;
/// Edges have their full colour if they are this long, in pixels, on average.
constexpr double plainEdges = 8;
constexpr double faintestEdges = 0.12;

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

void ViewProvider::usePrepared(PreparedPart prepared)
{
    MeshKernel const* const shown = kernel();
    if (!shown || !prepared.isOf(*shown))
        return;
    m_tree = std::move(prepared.tree);
    if (!isSurfaceOf(*shown)) {
        m_prepared = std::move(prepared.surface);
        m_surfaceMesh.reset();
    }
}

void ViewProvider::updateRenderData()
{
    m_prepared.reset();
    m_capSection.reset();
    m_lineSection.reset();
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
    // The tree tells whose mesh the prepared surface is of.
    if (!m_prepared || !m_tree || !m_tree->isOf(kernel)) {
        std::function<void(int)> const none;
        StageProgress progress(none);
        m_prepared = std::make_unique<PartSurface>(copyArrays(kernel, Frame::Local, progress));
    }
    m_surface = device.upload(*m_prepared);
    m_meanEdge = m_prepared->meanEdge;
    m_isSolid = m_prepared->isSolid;
    m_surfaceMesh = kernel.readMesh();
    m_surfaceTriangles = kernel.readMesh()->triangles.size();
    m_deviceBytes = m_prepared->vertices.size() * sizeof(PartSurface::Vertex) +
                    m_prepared->indices.size() * sizeof(std::uint32_t);
    m_prepared.reset();
}

unsigned ViewProvider::edgeColor(MeshKernel const& kernel) const
{
    double viewWidth, viewHeight;
    m_view->getCamera()->get_view_rect(viewWidth, viewHeight);
    double const scale = std::cbrt(std::abs(double(kernel.getMatrix().linearDeterminant())));
    double const pixels = m_meanEdge * scale * m_view->height() / viewHeight;
    // Where edges stand so close that they would cover the part, they let it shine through.
    unsigned const full = viewColors().edges & 255;
    double const share = std::clamp(pixels / plainEdges, faintestEdges, 1.0);
    return withAlpha(viewColors().edges, unsigned(std::lround(full * share)));
}

SurfaceLook ViewProvider::look(MeshKernel const& kernel) const
{
    SurfaceLook look;
    ViewColors const& colors = viewColors();
    look.isMirrored = kernel.getMatrix().linearDeterminant() < 0;
    look.cut = cutPlane(kernel);
    unsigned const own = getObjectColor();
    look.front = own ? own : colors.part;
    look.back = withAlpha(colors.backFace, look.front & 255);
    if (m_object->isSelected())
        look.front = withAlpha(colors.selected, look.front & 255);
    else if (m_object->isSemiSelected())
        look.front = withAlpha(colors.candidate, look.front & 255);
    if (isGhost()) {
        look.front = withAlpha(look.front, ghostAlpha);
        look.back = withAlpha(look.front, ghostAlpha);
    }
    // In perspective the eye may be inside.
    look.isSolid = m_isSolid && (look.front & 255) == 255 && (!look.cut || hasCaps()) &&
                   m_view->getCamera()->projection() == GLCamera::Projection::Parallel;
    look.isMarked = m_object->isSelected() && !isGhost();
    if (getRenderMode() != Shaded)
        look.edges = edgeColor(kernel);
    if (getRenderMode() == Edges) {
        look.front = look.back = 0;
        look.edges = m_object->isSelected() ? colors.selected : colors.edges;
    }
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
    QMatrix4x4 const toClip = camera.getProjectionMatrix() * toEye;
    SurfaceLook const drawn = look(*shown);
    device->draw(*m_surface, drawn, toClip, toEye);
    if (drawn.cut && !isTransparent())
        paintCap(drawn, toClip);
}

PickTree const& ViewProvider::tree(MeshKernel const& kernel) const
{
    if (!m_tree || !m_tree->isOf(kernel))
        m_tree = std::make_unique<PickTree>(kernel);
    return *m_tree;
}

std::optional<ViewProvider::Hit> ViewProvider::firstHit(PickTree::Ray const& ray) const
{
    MeshKernel const* const shown = kernel();
    if (!shown || shown->readMesh()->triangles.empty())
        return {};
    // A reflection turns the ray and the corners alike, so fronts stay fronts.
    PickTree::Ray const local = placedBack(ray, shown->getMatrix());
    auto const hit = tree(*shown).firstHit(*shown->readMesh(), local);
    if (!hit)
        return {};
    return Hit{shown->readMesh()->triangles[hit->triangle],
               ray.origin + ray.direction * hit->distance, hit->distance};
}

}  // namespace Mesh

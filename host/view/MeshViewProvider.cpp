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

/// A third of the way to white.
unsigned lit(unsigned rgba)
{
    unsigned lighter = rgba & 255;
    for (int shift = 8; shift <= 24; shift += 8) {
        unsigned const level = rgba >> shift & 255;
        lighter |= (level + (255 - level) / 3) << shift;
    }
    return lighter;
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
    if (!m_painted.shape && !m_coming)
        return;
    m_view->scene().makeCurrent();
    m_coming.reset();
    if (m_painted.shape && isShow())
        m_view->scene().keepForNow(std::move(m_painted));
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
    take(prepared, shown->readMesh());
}

void ViewProvider::releaseGL()
{
    m_painted.shape.reset();
    m_coming.reset();
}

void ViewProvider::updateRenderData()
{
    if (m_coming)
        m_coming->forget();
    m_prepared.reset();
    m_capSection.reset();
    m_lineSection.reset();
    m_tree.reset();
    if (m_painted.shape) {
        m_view->scene().preparer().forget(m_painted.shape->mesh.lock().get());
        m_painted.shape->mesh.reset();
    }
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

unsigned ViewProvider::edgeColor(MeshKernel const& kernel) const
{
    double viewWidth, viewHeight;
    m_view->getCamera()->get_view_rect(viewWidth, viewHeight);
    double const scale = std::cbrt(std::abs(double(kernel.getMatrix().linearDeterminant())));
    double const pixels = m_painted.shape->meanEdge * scale * m_view->height() / viewHeight;
    // Where edges stand so close that they would cover the part, they let it shine through.
    unsigned const full = viewColors().edges & 255;
    double const share = std::clamp(pixels / plainEdges, faintestEdges, 1.0);
    return withAlpha(viewColors().edges, unsigned(std::lround(full * share)));
}

/// The mouse is over it, and a click would select it.
bool ViewProvider::isLit() const
{
    auto const* const view = dynamic_cast<GLView const*>(m_view);
    return view && view->hoveredPart() == part();
}

SurfaceLook ViewProvider::look(MeshKernel const& kernel) const
{
    SurfaceLook look;
    ViewColors const& colors = viewColors();
    look.isMirrored = kernel.getMatrix().linearDeterminant() < 0;
    look.cut = cutPlane(kernel);
    unsigned const own = getObjectColor();
    look.front = own ? own : m_view->scene().tints().colorOf(m_object);
    look.back = withAlpha(colors.backFace, look.front & 255);
    if (m_object->isSelected())
        look.front = withAlpha(colors.selected, look.front & 255);
    else if (m_object->isSemiSelected())
        look.front = withAlpha(colors.candidate, look.front & 255);
    if (isLit())
        look.front = lit(look.front);
    if (isGhost()) {
        look.front = withAlpha(look.front, ghostAlpha);
        look.back = withAlpha(look.front, ghostAlpha);
    }
    // In perspective the eye may be inside.
    look.isSolid = m_painted.shape->isSolid && (look.front & 255) == 255 &&
                   (!look.cut || hasCaps()) &&
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

QMatrix4x4 ViewProvider::toShownPlace(MeshKernel const& kernel) const
{
    QMatrix4x4 place;
    place.translate(float(m_apart.X()), float(m_apart.Y()), float(m_apart.Z()));
    return place * toQt(kernel.getMatrix());
}

void ViewProvider::prepareToPaint(DrawDevice& device)
{
    if (MeshKernel const* const shown = kernel())
        findShape(device, shown->readMesh());
}

void ViewProvider::paintGL()
{
    DrawDevice* const device = m_view->scene().device();
    MeshKernel const* const shown = kernel();
    if (!device || !shown)
        return;
    if (!findShape(*device, shown->readMesh())) {
        if (m_painted.shape)
            m_view->scene().paint(m_painted);
        return;
    }
    if (m_view->scene().isHeldBack(m_painted))
        return;
    m_painted.look = look(*shown);
    m_painted.toWorld = toShownPlace(*shown);
    m_view->scene().paint(m_painted);
    if (m_painted.look.cut && !isTransparent())
        paintCap(m_painted.look, m_view->scene().toClip() * m_painted.toWorld);
}

std::optional<ViewProvider::Hit> ViewProvider::firstHit(PickTree::Ray const& ray) const
{
    MeshKernel const* const shown = kernel();
    if (!shown || shown->readMesh()->triangles.empty())
        return {};
    // A reflection turns the ray and the corners alike, so fronts stay fronts.
    PickTree::Ray const local = placedBack(ray, shown->getMatrix());
    PickTree const* const sorted = tree(shown->readMesh());
    auto const hit = sorted ? sorted->firstHit(*shown->readMesh(), local) : std::nullopt;
    if (!hit)
        return {};
    return Hit{shown->readMesh()->triangles[hit->triangle],
               ray.origin + ray.direction * hit->distance, hit->distance};
}

}  // namespace Mesh

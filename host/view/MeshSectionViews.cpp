// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MeshViewProvider.h"
#include "host/view/Transforms.h"
#include "host/view/ViewColors.h"
#include "host/view/ViewScene.h"
#include "host/view/WideLines.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/MeshGLView.h"

#include <algorithm>
#include <cmath>

// What a part's provider draws of sections: caps where the view cuts the part, and the line at a
// height.
namespace Mesh {

namespace {

// In pixels that are independent of the device's ratio.
constexpr float capLineWidth = 1.5f;
constexpr float sectionLineWidth = 2.5f;
constexpr float hatchPitch = 9;
/// Lines are drawn nearer than the surface that they lie on, by this many pixels' width.
constexpr double nearerBy = 1.5;
constexpr unsigned hiddenAlpha = 0x48;

unsigned mixed(unsigned a, unsigned b, double share)
{
    unsigned result = 0xff;
    for (int const shift : {24, 16, 8}) {
        double const from = a >> shift & 255, to = b >> shift & 255;
        result |= unsigned(std::lround(from + (to - from) * share)) << shift;
    }
    return result;
}

double scaleOf(MeshKernel const& kernel)
{
    return std::cbrt(std::abs(double(kernel.getMatrix().linearDeterminant())));
}

}  // namespace

std::optional<ViewPlane> ViewProvider::cutPlane(MeshKernel const& kernel) const
{
    auto const* const view = dynamic_cast<GLView const*>(m_view);
    if (!view || !view->liveCut())
        return {};
    LiveCut const& cut = *view->liveCut();
    return placedBack(planeThrough(cut.point, cut.normal), kernel.getMatrix());
}

bool ViewProvider::hasCaps() const
{
    auto const* const view = dynamic_cast<GLView const*>(m_view);
    return view && view->liveCut() && view->liveCut()->hasCaps;
}

PartSection const* ViewProvider::section(std::unique_ptr<PartSection>& kept,
                                         ViewPlane const& plane) const
{
    MeshKernel const* const shown = kernel();
    if (!shown || shown->readMesh()->triangles.empty() || plane.normal == UVector3<double>())
        return nullptr;
    PartShape::Mesh const mesh = shown->readMesh();
    if (!kept || !kept->isOf(mesh, plane)) {
        if (!findTree(mesh))
            return nullptr;
        kept = std::make_unique<PartSection>(*m_tree, mesh, plane);
    }
    return kept.get();
}

void ViewProvider::paintLines(PartSection::Points const& lines, unsigned rgba, float width)
{
    GLCamera const& camera = *m_view->getCamera();
    double viewWidth, viewHeight;
    camera.get_view_rect(viewWidth, viewHeight);
    QMatrix4x4 nearer;
    // A stand-in may lie that much nearer than the part.
    double const coarseness = m_painted.coarseness * scaleOf(*kernel());
    nearer.translate(0, 0, float(std::max(nearerBy * viewHeight / m_view->height(), coarseness)));
    QMatrix4x4 const toClip = camera.getProjectionMatrix() * nearer * camera.getModelViewMatrix() *
                              toShownPlace(*kernel());
    auto const points = wideLines(lines, toClip, m_view->size(), width, (rgba & 255) == 255);
    DrawRun const run = {GL_TRIANGLES, 0, int(points.size()), rgba};
    if (!points.empty())
        m_view->scene().drawOnce(points, std::span(&run, 1), QMatrix4x4());
}

void ViewProvider::paintCap(SurfaceLook const& look, QMatrix4x4 const& toClip)
{
    PartSection const* const shown = section(m_capSection, *look.cut);
    if (!shown)
        return;
    if (hasCaps() && !shown->cap.empty() && (look.front & 255)) {
        DrawDevice& device = *m_view->scene().device();
        auto const points = device.upload(shown->cap);
        CapLook cap;
        cap.fill = mixed(look.front, 0xffffffff, 0.25);
        cap.hatch = mixed(look.front, 0x000000ff, 0.35);
        cap.hatchPitch = hatchPitch * float(m_view->scene().pixelRatio());
        cap.isMarked = look.isMarked;
        device.drawCap(*points, int(shown->cap.size()) - 4, cap, toClip);
    }
    paintLines(shown->lines, mixed(look.front, 0x000000ff, 0.7), capLineWidth);
}

void ViewProvider::paintSectionLine(SectionPlane const& plane)
{
    paintLineIn(planeThrough(plane.point, plane.normal), LineLook::Plain, m_lineSection);
}

void ViewProvider::paintHeightLine(float height, LineLook look)
{
    paintLineIn({{0, 0, 1}, height}, look, m_heightSection);
}

void ViewProvider::paintLineIn(ViewPlane const& plane, LineLook look,
                               std::unique_ptr<PartSection>& kept)
{
    MeshKernel const* const shown = kernel();
    if (!shown || !isShow())
        return;
    PartSection const* const found = section(kept, placedBack(plane, shown->getMatrix()));
    if (!found)
        return;
    auto const cut = cutPlane(*shown);
    PartSection::Points const& lines = cut ? linesBelow(found->lines, *cut) : found->lines;
    unsigned const color = viewColors().sectionLine;
    DrawDevice& device = *m_view->scene().device();
    device.setDepthTest(false);
    paintLines(lines, (color & ~0xffu) | hiddenAlpha, sectionLineWidth);
    device.setDepthTest(true);
    if (look == LineLook::Plain)
        paintLines(lines, color, sectionLineWidth);
}

}  // namespace Mesh

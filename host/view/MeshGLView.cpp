// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/MeshGLView.h"

#include "host/view/BuildPlate.h"
#include "host/view/FreeGroundSelection.h"
#include "host/view/MeshViewProvider.h"
#include "host/view/OrientationCube.h"
#include "host/view/PickReadiness.h"
#include "host/view/ViewScene.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/NavigationStyle.h"

#include <QMouseEvent>

#include <algorithm>

namespace Mesh {

constinit Base::Type GLView::classTypeId;

void GLView::init()
{
    initSubclass(classTypeId, "Mesh::GLView", "Base::GLView", nullptr);
}

GLView::GLView(QWidget* parent) : Base::GLView(parent)
{
    navigationStyle()->setRestingTool(std::make_unique<FreeGroundSelection>());
    scene().setTopmost([this] { OrientationCube::paint(*this, m_hoveredView); });
}

Base::Type GLView::getTypeId() const
{
    return classTypeId;
}

std::string GLView::getClassName() const
{
    return "Mesh::GLView";
}

bool GLView::pickPoint(QPoint position, Pick& pick, bool onlySelected, bool onlyFront,
                       bool alsoGhosts) const
{
    setDepthRange();
    PickTree::Ray ray;
    getCamera()->sightRay(position.x(), position.y(), ray.origin, ray.direction);
    ray.onlyFront = onlyFront;
    std::optional<ViewProvider::Hit> first;
    for (Base::ViewProvider const* const provider : scene().providers()) {
        auto const* const shown = dynamic_cast<ViewProvider const*>(provider);
        if (!shown || !(shown->isShow() || (alsoGhosts && shown->isGhost())) ||
            (onlySelected && !shown->getObject()->isSelected()))
            continue;
        // To where the part is, from where it is drawn.
        PickTree::Ray toPart = ray;
        toPart.origin = ray.origin - shown->apart();
        if (m_liveCut)
            toPart.limitBelow(planeThrough(m_liveCut->point, m_liveCut->normal));
        auto const hit = shown->firstHit(toPart);
        if (!hit || (first && first->distance <= hit->distance))
            continue;
        first = hit;
        pick.part = dynamic_cast<DocumentObject*>(shown->getObject());
    }
    if (!first)
        return false;
    pick.triangle = first->triangle;
    pick.point = {float(first->point.X()), float(first->point.Y()), float(first->point.Z())};
    return true;
}

bool GLView::pickFace(QPoint position, DocumentObject*& part, UTriangle<float>*& triangle,
                      bool onlySelected, bool onlyFront, bool alsoGhosts) const
{
    Pick pick;
    if (!pickPoint(position, pick, onlySelected, onlyFront, alsoGhosts))
        return false;
    part = pick.part;
    triangle = pick.triangle;
    return true;
}

void GLView::setPlateSize(float widthMm, float depthMm)
{
    m_plateWidth = widthMm;
    m_plateDepth = depthMm;
    redraw();
}

void GLView::setPlateVisible(bool visible)
{
    m_isPlateVisible = visible;
    redraw();
}

UBox3<float> GLView::getPartsBox() const
{
    UBox3<float> box;
    for (Base::ViewProvider const* const provider : scene().providers())
        if (dynamic_cast<ViewProvider const*>(provider) && provider->isShow())
            box.Add(provider->getObject()->getBoundingBox());
    return box;
}

void GLView::setLiveCut(std::optional<LiveCut> const& cut)
{
    if (cut == m_liveCut)
        return;
    m_liveCut = cut;
    scene().standIns().movedIfDragged();
    redraw();
}

void GLView::setDrawnApart(double share)
{
    if (share == m_drawnApart)
        return;
    m_drawnApart = share;
    scene().standIns().movedIfDragged();
    redraw();
}

void GLView::setPartsTinted(bool isTinted)
{
    m_arePartsTinted = isTinted;
    redraw();
}

void GLView::setSectionHeight(std::optional<float> height)
{
    if (height == m_sectionHeight)
        return;
    m_sectionHeight = height;
    scene().standIns().movedIfDragged();
    redraw();
}

void GLView::setSectionPlane(std::optional<SectionPlane> const& plane)
{
    if (plane == m_sectionPlane)
        return;
    m_sectionPlane = plane;
    scene().standIns().movedIfDragged();
    redraw();
}

UPoint3<float> GLView::turningPoint(QPoint position) const
{
    Pick pick;
    return pickPoint(position, pick) ? pick.point : Base::GLView::turningPoint(position);
}

void GLView::clicked(QMouseEvent* event)
{
    Base::Document* const document = getDocument();
    if (event->button() == Qt::RightButton && document)
        askForMenu(event->pos());
    if (event->button() != Qt::LeftButton || !document)
        return;
    bool const isAdding = event->modifiers() & Qt::ControlModifier;
    Pick pick;
    if (pickPoint(event->pos(), pick))
        pick.part->setSelected(!(isAdding && pick.part->isSelected()), true, !isAdding);
    else if (!isAdding)
        document->clearSelection();
}

// A menu is about what is under the mouse.
void GLView::askForMenu(QPoint position)
{
    Pick pick;
    bool const isOnPart = pickPoint(position, pick);
    if (isOnPart && !pick.part->isSelected())
        pick.part->setSelected(true, true, true);
    emit contextMenuRequested(position, isOnPart);
}

bool GLView::canHover() const
{
    if (navigationStyle()->mouseModel() || scene().standIns().isSlow())
        return false;
    return arePicksQuick(scene());
}

DocumentObject const* GLView::hoveredPart() const
{
    return navigationStyle()->mouseModel() ? nullptr : m_hoveredPart;
}

void GLView::hoverPart(DocumentObject const* part)
{
    if (part == m_hoveredPart)
        return;
    m_hoveredPart = part;
    emit hoveredPartChanged();
    redraw();
}

void GLView::hoverPartAt(QPoint position)
{
    Pick pick;
    bool const isOnPart = canHover() && m_hoveredView < 0 && pickPoint(position, pick);
    hoverPart(isOnPart ? pick.part : nullptr);
}

void GLView::hover(int standardView)
{
    if (standardView == m_hoveredView)
        return;
    m_hoveredView = standardView;
    redraw();
}

void GLView::mousePressEvent(QMouseEvent* event)
{
    bool const isFirst = event->buttons() == event->button();
    m_pressedView = isFirst && event->button() == Qt::LeftButton
                        ? OrientationCube::viewAt(*this, event->pos())
                        : -1;
    if (m_pressedView < 0)
        Base::GLView::mousePressEvent(event);
}

void GLView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (OrientationCube::viewAt(*this, event->pos()) < 0)
        Base::GLView::mouseDoubleClickEvent(event);
    else
        mousePressEvent(event);
}

void GLView::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        m_pressedView = -1;
    scene().standIns().moved();
    if (event->buttons() == Qt::NoButton) {
        hover(OrientationCube::viewAt(*this, event->pos()));
        hoverPartAt(event->pos());
    }
    if (m_pressedView < 0)
        Base::GLView::mouseMoveEvent(event);
}

void GLView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_pressedView < 0) {
        Base::GLView::mouseReleaseEvent(event);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    if (OrientationCube::viewAt(*this, event->pos()) == m_pressedView)
        OnViewType(m_pressedView);
    m_pressedView = -1;
    hover(OrientationCube::viewAt(*this, event->pos()));
}

void GLView::leaveEvent(QEvent* event)
{
    hover(-1);
    hoverPart(nullptr);
    Base::GLView::leaveEvent(event);
}

UBox3<float> GLView::surroundingsBox() const
{
    if (!m_isPlateVisible)
        return {};
    UPoint3<float> const corner(m_plateWidth / 2, m_plateDepth / 2, 0);
    return {UPoint3<float>() - (corner - UPoint3<float>()), corner};
}

void GLView::paintSurroundings()
{
    if (!m_isPlateVisible)
        return;
    double viewWidth, viewHeight;
    getCamera()->get_view_rect(viewWidth, viewHeight);
    paintBuildPlate(scene(), m_plateWidth, m_plateDepth, height() / viewHeight);
}

void GLView::paintOverlay()
{
    // Two lines alike would leave it open which of them is about to be cut.
    auto const heightLook =
        m_sectionPlane ? ViewProvider::LineLook::Pale : ViewProvider::LineLook::Plain;
    for (Base::ViewProvider* const provider : scene().providers()) {
        auto* const shown = dynamic_cast<ViewProvider*>(provider);
        if (shown && m_sectionHeight)
            shown->paintHeightLine(*m_sectionHeight, heightLook);
        if (shown && m_sectionPlane)
            shown->paintSectionLine(*m_sectionPlane);
    }
    if (scene().frame())
        return;
    paintAxes(scene(), width(), height());
}

}  // namespace Mesh

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DrawTrace.h"
#include "host/view/MeshViewProvider.h"
#include "host/view/PartSpread.h"
#include "host/view/PictureFrame.h"
#include "host/view/ViewScene.h"
#include "platform/view/GLGraphicsItem.h"
#include "platform/view/GLView.h"
#include "platform/view/GraphicViewProvider.h"
#include "platform/view/MeshGLView.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <utility>

// How a picture comes about: in what order things are painted, and whether at once, coarsely or in
// steps.
namespace {

enum class Turn
{
    Opaque,
    Transparent,
    Tool
};

Turn turnOf(Base::ViewProvider const* provider)
{
    if (dynamic_cast<Base::GraphicViewProvider const*>(provider))
        return Turn::Tool;
    return provider->isTransparent() ? Turn::Transparent : Turn::Opaque;
}

/// A part that is hidden may still show as a ghost.
bool isPainted(Base::ViewProvider const* provider)
{
    if (provider->isShow())
        return true;
    auto const* const part = dynamic_cast<Mesh::ViewProvider const*>(provider);
    return part && part->isGhost();
}

/// Without them for most of the triangles, as with many small parts, a coarse picture takes as long as
/// the exact one.
bool haveStandIns(StandIns::Shapes const& shapes)
{
    std::size_t with = 0, without = 0;
    for (std::shared_ptr<PartShape> const& shape : shapes)
        (shape->standIn ? with : without) += shape->triangles();
    return with > without;
}

}  // namespace

// Before anything is painted, so that all of the picture goes by what is ready.
void ViewScene::prepareParts()
{
    for (Base::ViewProvider* const provider : m_providers)
        if (auto* const part = dynamic_cast<Mesh::ViewProvider*>(provider); part && isPainted(part))
            part->prepareToPaint(*m_device);
    if (!isPreparing())
        m_leaving.clear();
}

void ViewScene::arrangeParts()
{
    auto const* const view = dynamic_cast<Mesh::GLView const*>(m_view);
    spreadParts(m_providers, view ? view->drawnApart() : 0);
    m_tints.setOn(view && view->arePartsTinted());
}

std::vector<std::shared_ptr<PartShape>> ViewScene::shownShapes() const
{
    std::vector<std::shared_ptr<PartShape>> shapes;
    for (Base::ViewProvider const* const provider : m_providers) {
        auto const* const part = dynamic_cast<Mesh::ViewProvider const*>(provider);
        if (part && isPainted(part) && part->shape())
            shapes.push_back(part->shape());
    }
    for (PaintedPart const& part : m_leaving)
        shapes.push_back(part.shape);
    return shapes;
}

void ViewScene::paintPicture(Paint const& ground, Paint const& rest)
{
    arrangeParts();
    m_preparer.beginPicture();
    prepareParts();
    Way const way = wayOfPicture(ground);
    m_isKept = way == Way::Kept && hasPicture();
    m_standIns.setOwed(way == Way::Coarse || way == Way::Kept);
    if (m_isKept)
        return;
    if (way == Way::Finished) {
        m_isSampled = m_samples.begin(pixelSize());
        paintRest(rest);
        m_steps.drop();
    } else {
        using Manner = StandIns::Manner;
        m_standIns.setManner(way == Way::AtOnce   ? Manner::Exact
                             : way == Way::Coarse ? Manner::Coarse
                                                  : Manner::CoarseOrNot);
        paintWhole(ground, rest);
    }
    // What is drawn in a frame leaves the widget without a picture.
    m_pictureTarget = m_frame ? 0 : m_view->defaultFramebufferObject();
    m_pictureSize = pixelSize();
}

ViewScene::Way ViewScene::wayOfPicture(Paint const& ground)
{
    bool const isMovement = m_standIns.isCoarseDue(isPreparing());
    if (!m_isForScreen)
        return isMovement ? Way::Coarse : Way::AtOnce;
    bool const areReady = m_standIns.areReady(shownShapes());
    if (isMovement)
        return areReady ? Way::Coarse : Way::Kept;
    DrawTrace whole(0, 0);
    if (m_standIns.mayNeedSteps(shownShapes()))
        trace(whole, ground);
    if (m_steps.isWhole(whole.fingerprint()))
        return Way::Finished;
    if (!m_standIns.needsSteps(whole.cost()) || !m_samples.isPossible()) {
        m_steps.drop();
        return Way::AtOnce;
    }
    m_ground = ground;
    m_steps.begin(whole.fingerprint(), whole.cost());
    bool const canBeCoarse = areReady && m_standIns.isMeasured() && haveStandIns(shownShapes());
    return canBeCoarse ? Way::Coarse : Way::Kept;
}

void ViewScene::setResizing(bool isResizing)
{
    m_isResizing = isResizing;
    m_pictureSize = {};
}

bool ViewScene::hasPicture() const
{
    return m_pictureTarget == m_view->defaultFramebufferObject() && m_pictureSize == pixelSize();
}

void ViewScene::clearPicture()
{
    QOpenGLFunctions& gl = *m_view->context()->functions();
    bool const isFlat = m_frame && m_frame->flatGround();
    QColor const ground = isFlat ? *m_frame->flatGround() : QColor(Qt::black);
    gl.glClearColor(float(ground.redF()), float(ground.greenF()), float(ground.blueF()), 1);
    gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    gl.glDepthMask(GL_TRUE);
    gl.glStencilMask(0xff);
    gl.glClearStencil(0);
    gl.glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

// With several samples for each pixel, or at once in the widget if it is a coarse one.
void ViewScene::paintWhole(Paint const& ground, Paint const& rest)
{
    m_isSampled = !m_standIns.isCoarse() && (!m_frame || m_frame->isSampled()) &&
                  m_samples.begin(pixelSize());
    if (m_isSampled)
        m_steps.lose();
    beginFrame();
    clearPicture();
    paintGroundAndParts(ground);
    paintRest(rest);
}

void ViewScene::beginFrame()
{
    if (!m_frame)
        return;
    if (!m_isSampled)
        m_frame->bind();
    m_view->context()->functions()->glViewport(0, 0, pixelSize().width(), pixelSize().height());
}

void ViewScene::endFrame()
{
    if (m_frame)
        m_view->context()->functions()->glBindFramebuffer(GL_FRAMEBUFFER,
                                                          m_view->defaultFramebufferObject());
}

void ViewScene::paintGroundAndParts(Paint const& ground)
{
    m_device->resetState();
    m_marked.clear();
    ground();
    m_standIns.beginParts(*m_device);
    paintProviders(false);
    m_standIns.endParts(*m_device);
}

void ViewScene::paintRest(Paint const& rest)
{
    paintProviders(true);
    rest();
    if (!m_frame)
        paintItems();
    if (std::exchange(m_isSampled, false))
        m_samples.end(goal());
    // What was blended has left an alpha of its own, by which the window would shine through. Where
    // there is one sample for each pixel, that takes least.
    QOpenGLFunctions& gl = *m_view->context()->functions();
    gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    gl.glClearColor(0, 0, 0, 1);
    gl.glClear(GL_COLOR_BUFFER_BIT);
    gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    endFrame();
}

GLuint ViewScene::target() const
{
    return m_isSampled ? m_samples.target() : goal();
}

void ViewScene::paintLeaving()
{
    for (PaintedPart& part : m_leaving) {
        m_device->resetState();
        paint(part);
    }
}

void ViewScene::paintProviders(bool areTools)
{
    using Turns = std::vector<Turn>;
    for (Turn const turn : areTools ? Turns{Turn::Tool} : Turns{Turn::Opaque, Turn::Transparent}) {
        // A provider may add objects while it paints.
        std::vector<Base::ViewProvider*> const providers = m_providers;
        for (Base::ViewProvider* const provider : providers)
            if (turnOf(provider) == turn && isPainted(provider)) {
                m_device->resetState();
                provider->paintGL();
            }
        if (turn == Turn::Opaque)
            paintLeaving();
    }
    m_device->resetState();
}

void ViewScene::paintItems()
{
    std::vector<Base::GLGraphicsItem*> const items = m_items;
    for (Base::GLGraphicsItem* const item : items) {
        m_device->resetState();
        item->paintGL();
    }
    m_device->resetState();
    if (m_paintTopmost)
        m_paintTopmost();
    m_device->resetState();
}

void ViewScene::trace(DrawTrace& trace, Paint const& ground)
{
    m_standIns.setManner(StandIns::Manner::InSteps);
    m_device->setTrace(&trace);
    paintGroundAndParts(ground);
    m_device->setTrace(nullptr);
}

PictureSteps::Outcome ViewScene::drawStep(std::size_t from, std::size_t to)
{
    using Outcome = PictureSteps::Outcome;
    // The first steps tell whether stand-ins are needed.
    if (m_standIns.isMoving() && m_standIns.isMeasured())
        return Outcome::NotNow;
    m_view->makeCurrent();
    arrangeParts();
    QSize const size = pixelSize();
    DrawTrace step(from, to);
    if (m_samples.begin(size)) {
        m_view->context()->functions()->glViewport(0, 0, size.width(), size.height());
        if (from == 0)
            clearPicture();
        trace(step, m_ground);
        m_device->finish();
    }
    m_view->doneCurrent();
    bool const isSame = step.fingerprint() == m_steps.fingerprint();
    if (!isSame)
        askForPicture();
    return isSame ? Outcome::Drawn : Outcome::Changed;
}

void ViewScene::stepDrawn(double ms, std::size_t cost)
{
    m_standIns.measured(ms, cost);
    static_cast<void>(m_standIns.areReady(shownShapes()));
    if (!m_steps.isWorking())
        askForPicture();
}

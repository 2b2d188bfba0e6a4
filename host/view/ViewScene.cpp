// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ViewScene.h"

#include "host/view/MeshViewProvider.h"
#include "host/view/PictureFrame.h"
#include "platform/document/DocumentObject.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLGraphicsItem.h"
#include "platform/view/GLView.h"
#include "platform/view/GraphicViewProvider.h"
#include "platform/view/MeshGLView.h"

#include <QCoreApplication>
#include <QOpenGLContext>
#include <QStatusBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

bool isTool(Base::ViewProvider const* provider)
{
    return dynamic_cast<Base::GraphicViewProvider const*>(provider) != nullptr;
}

/// What is drawn coarsely may lie that much outside.
UBox3<float> grown(UBox3<float> box, float by)
{
    UVector3<float> const margin(by, by, by);
    if (!box.Isnullptr())
        box = {box.min - margin, box.max + margin};
    return box;
}

constexpr int messageMilliseconds = 20000;

// A message box would stand before each picture.
void tellPartIsNotShown()
{
    QString const text = QCoreApplication::translate(
        "GLView",
        "There is not enough free memory to show a part. Close other programs, then hide the part "
        "and show it again.");
    Base::ConsoleSingleton::Instance().Log(text.toStdString());
    if (MainWindow* const window = MainWindow::getInstance())
        window->statusBar()->showMessage(text, messageMilliseconds);
}

}  // namespace

ViewScene::ViewScene(Base::GLView* view)
    : m_view(view),
      m_deviceWork(*view),
      m_standIns(m_deviceWork),
      m_steps([this](auto from, auto to) { return drawStep(from, to); },
              [this](double ms, std::size_t cost) { stepDrawn(ms, cost); })
{
    QObject::connect(&m_standIns, &StandIns::rested, &m_standIns, [this] { askForPicture(); });
    QObject::connect(&m_preparer, &PartPreparer::prepared, &m_preparer,
                     [this] { askForPicture(); });
    QObject::connect(&m_preparer, &PartPreparer::failed, &m_preparer, tellPartIsNotShown);
    QObject::connect(&m_standIns, &StandIns::arrived, &m_standIns, [this] {
        if (m_isKept)
            askForPicture();
    });
}

void ViewScene::setDocument(Base::Document* document)
{
    if (document == m_document)
        return;
    disconnect_all();
    if (m_document)
        m_document->setView(nullptr);
    dropLeaving();
    m_document = document;
    if (!document)
        return;
    document->signalNewObject.connect(this, &ViewScene::objectChanged);
    document->signalDelObject.connect(this, &ViewScene::objectDeleted);
    document->signalObjectChanged.connect(this, &ViewScene::objectChanged);
    document->signalObjectSelectionChanged.connect(this, &ViewScene::askForPicture);
    document->signalDocumentDeleted.connect(this, &ViewScene::documentDeleted);
    document->setView(m_view);
}

void ViewScene::documentDeleted()
{
    // While the tool can still take out what it has put in.
    m_view->stopSelection();
    m_document = nullptr;
}

void ViewScene::askForPicture()
{
    m_view->update();
}

void ViewScene::add(Base::ViewProvider* provider)
{
    m_providers.push_back(provider);
    if (isInitialized())
        provider->initGL();
    askForPicture();
}

void ViewScene::remove(Base::ViewProvider* provider)
{
    if (std::erase(m_providers, provider))
        askForPicture();
}

void ViewScene::add(Base::GLGraphicsItem* item)
{
    m_items.push_back(item);
    if (isInitialized()) {
        makeCurrent();
        item->initGL();
    }
    askForPicture();
}

void ViewScene::remove(Base::GLGraphicsItem* item)
{
    if (std::erase(m_items, item))
        askForPicture();
}

void ViewScene::makeCurrent()
{
    if (!QOpenGLContext::currentContext() || QOpenGLContext::currentContext() != m_view->context())
        m_view->makeCurrent();
}

void ViewScene::initialize()
{
    m_device = DrawDevice::create();
    if (!m_device)
        return;
    for (Base::ViewProvider* const provider : m_providers)
        provider->initGL();
    for (Base::GLGraphicsItem* const item : m_items)
        item->initGL();
    makeCurrent();
}

void ViewScene::release()
{
    for (Base::ViewProvider* const provider : m_providers)
        if (auto* const part = dynamic_cast<Mesh::ViewProvider*>(provider))
            part->releaseGL();
    m_leaving.clear();
    m_steps.drop();
    m_pictureSize = {};
    m_samples.release();
    m_standIns.releaseGL();
    m_deviceWork.clear();
    m_device.reset();
}

bool ViewScene::hasSelection() const
{
    return std::any_of(m_providers.begin(), m_providers.end(), [](auto const* provider) {
        return dynamic_cast<Mesh::ViewProvider const*>(provider) && provider->isShow() &&
               provider->getObject()->isSelected();
    });
}

bool ViewScene::hasTools() const
{
    return std::any_of(m_providers.begin(), m_providers.end(), isTool);
}

bool ViewScene::isPreparing() const
{
    return m_preparer.isWorking() ||
           std::any_of(m_providers.begin(), m_providers.end(), [](auto const* provider) {
               auto const* const part = dynamic_cast<Mesh::ViewProvider const*>(provider);
               return part && part->isComing();
           });
}

bool ViewScene::isHeldBack(PaintedPart const& part) const
{
    return !part.shape->wasPainted && !m_leaving.empty() && isPreparing();
}

void ViewScene::finishPreparing()
{
    m_preparer.finish();
    m_deviceWork.finish();
}

void ViewScene::dropLeaving()
{
    if (m_leaving.empty())
        return;
    makeCurrent();
    m_leaving.clear();
}

void ViewScene::paint(PaintedPart& part)
{
    GLCamera const& camera = *m_view->getCamera();
    QMatrix4x4 const toEye = camera.getModelViewMatrix() * part.toWorld;
    QMatrix4x4 const clip = camera.getProjectionMatrix() * toEye;
    if (!m_standIns.paint(*m_device, part, clip, toEye))
        m_device->draw(*part.shape->geometry, part.look, clip, toEye);
    if (part.look.isMarked)
        m_marked.add(grown(part.shape->box, float(part.coarseness)), clip);
}

void ViewScene::drawOutline(float width, unsigned rgba)
{
    float const reach = width * float(pixelRatio());
    // A pixel more for what is between two of them.
    int const margin = int(std::ceil(reach)) + 1;
    m_device->drawOutline(
        target(), pixelSize(), reach, rgba,
        {m_marked.inPicture(pixelSize(), margin), m_marked.inPicture(pixelSize(), 2 * margin)});
}

QSize ViewScene::logicalSize() const
{
    return m_frame ? m_frame->logicalSize() : m_view->size();
}

double ViewScene::pixelRatio() const
{
    return m_frame ? m_frame->pixelRatio() : m_view->devicePixelRatioF();
}

QSize ViewScene::pixelSize() const
{
    return m_frame ? m_frame->pixels() : m_view->size() * m_view->devicePixelRatioF();
}

GLuint ViewScene::goal() const
{
    return m_frame ? m_frame->handle() : m_view->defaultFramebufferObject();
}

void ViewScene::drawOnce(std::vector<UPoint3<float>> const& points, std::span<DrawRun const> runs,
                         QMatrix4x4 const& toClip)
{
    auto const geometry = m_device->upload(points);
    m_device->draw(*geometry, runs, toClip);
}

QMatrix4x4 ViewScene::toClip() const
{
    GLCamera const& camera = *m_view->getCamera();
    return camera.getProjectionMatrix() * camera.getModelViewMatrix();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/GLView.h"

#include "host/view/ContextChoice.h"
#include "host/view/DrawValues.h"
#include "host/view/PictureFrame.h"
#include "host/view/ViewColors.h"
#include "host/view/ViewPicture.h"
#include "host/view/ViewScene.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/Theme.h"
#include "platform/view/NavigationStyle.h"
#include "platform/view/PointPickerMesh.h"
#include "platform/view/ViewProvider.h"

#include <QMouseEvent>
#include <QOpenGLContext>

#include <algorithm>
#include <cmath>

// The view as a widget: what it holds, how it paints, where its events go.
namespace Base {

namespace {

/// The width of the line around what is selected.
constexpr double outlineWidth = 2;

bool isSameView(GLCamera const& a, GLCamera const& b)
{
    return a.get_ref() == b.get_ref() && a.get_direction() == b.get_direction() &&
           a.get_vecUp() == b.get_vecUp();
}

}  // namespace

constinit Type GLView::classTypeId;

void GLView::init()
{
    initSubclass(classTypeId, "Base::GLView", "Base::BaseClass", nullptr);
}

GLView::GLView(QWidget* parent)
    : QOpenGLWidget(parent),
      m_camera(std::make_unique<GLCamera>()),
      m_scene(std::make_unique<ViewScene>(this)),
      m_navigation(std::make_unique<NavigationStyle>(this))
{
    // A picture stays where a new one takes its time.
    setUpdateBehavior(PartialUpdate);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

GLView::~GLView()
{
    m_navigation->setMouseModel(nullptr);
    m_scene->setDocument(nullptr);
    // Those of a document that has this view without its knowing.
    while (!m_scene->providers().empty()) {
        ViewProvider* const provider = m_scene->providers().back();
        provider->attachGLViewer(nullptr);
        m_scene->remove(provider);
    }
    releaseGL();
}

Type GLView::getTypeId() const
{
    return classTypeId;
}

std::string GLView::getClassName() const
{
    return "Base::GLView";
}

Document* GLView::getDocument() const
{
    return m_scene->document();
}

void GLView::setDocument(Document* document)
{
    if (document != getDocument())
        stopSelection();
    m_scene->setDocument(document);
    update();
}

void GLView::redraw()
{
    update();
}

NavigationStyle* GLView::navigationStyle() const
{
    return m_navigation.get();
}

std::string GLView::getInteractModeName() const
{
    AbstractMouseSelection const* const tool = m_navigation->mouseModel();
    return tool ? tool->getClassName() : std::string();
}

bool GLView::startSelection(std::string className)
{
    if (isToolLocked()) {
        emit signalToolRefused();
        return false;
    }
    std::unique_ptr<BaseClass> made(Type::createInstance(className));
    auto* const tool = dynamic_cast<AbstractMouseSelection*>(made.get());
    if (!tool)
        return false;
    static_cast<void>(made.release());
    m_navigation->setMouseModel(std::unique_ptr<AbstractMouseSelection>(tool));
    applyProjection();
    emit signalInteractModeChanged();
    return true;
}

void GLView::stopSelection()
{
    if (!m_navigation->mouseModel())
        return;
    m_navigation->setMouseModel(nullptr);
    applyProjection();
    emit signalInteractModeChanged();
}

void GLView::setToolLock(std::function<bool()> isLocked)
{
    m_isToolLocked = std::move(isLocked);
}

bool GLView::isToolLocked() const
{
    return m_navigation->mouseModel() && m_isToolLocked && m_isToolLocked();
}

bool GLView::isDrawnIn() const
{
    return m_navigation->mouseModel() || m_scene->hasTools();
}

void GLView::addGraphicsItem(GLGraphicsItem* item)
{
    m_scene->add(item);
}

void GLView::removeGraphicsItem(GLGraphicsItem* item)
{
    m_scene->remove(item);
}

void GLView::addViewProvider(ViewProvider* provider)
{
    m_scene->add(provider);
}

void GLView::removeViewProvider(ViewProvider* provider)
{
    m_scene->remove(provider);
}

void GLView::renderDataUpdated(ViewProvider*)
{
    update();
}

void GLView::clicked(QMouseEvent*) {}

void GLView::paintSurroundings() {}

void GLView::paintOverlay() {}

UBox3<float> GLView::surroundingsBox() const
{
    return {};
}

void GLView::paintPending()
{
    if (!isDrawnIn() || !isVisible() || !m_scene->isInitialized() ||
        isSameView(m_paintedCamera, *m_camera))
        return;
    // Not repaint(), which a window with OpenGL in it puts off until the next frame.
    makeCurrent();
    double const ratio = devicePixelRatioF();
    context()->functions()->glViewport(0, 0, int(width() * ratio), int(height() * ratio));
    paintGL();
    doneCurrent();
}

bool GLView::event(QEvent* event)
{
    // One of these comes before a context is made, also in another window.
    bool const comesBefore = event->type() == QEvent::Polish || event->type() == QEvent::Resize ||
                             event->type() == QEvent::Show;
    if (comesBefore && !context())
        setFormat(chooseContextFormat());
    if (event->type() == QEvent::Paint && m_scene->isResizing())
        return true;
    if (event->type() == QEvent::Resize)
        m_scene->setResizing(true);
    m_scene->setForScreen(event->type() == QEvent::Paint);
    bool const isTaken = QOpenGLWidget::event(event);
    m_scene->setForScreen(false);
    if (event->type() == QEvent::Resize) {
        m_scene->setResizing(false);
        update();
    }
    return isTaken;
}

void GLView::initializeGL()
{
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &GLView::releaseGL);
    m_scene->initialize();
    if (!m_scene->isInitialized())
        ConsoleSingleton::Instance().Log(
            "The view stays empty: install a driver for OpenGL 2.1 or later.");
}

void GLView::releaseGL()
{
    if (!context() || !m_scene->isInitialized())
        return;
    disconnect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &GLView::releaseGL);
    makeCurrent();
    m_scene->release();
    doneCurrent();
}

void GLView::paintGL()
{
    DrawDevice* const device = m_scene->device();
    if (!device) {
        context()->functions()->glClearColor(0, 0, 0, 1);
        context()->functions()->glClear(GL_COLOR_BUFFER_BIT);
        return;
    }
    auto const paintGround = [this] {
        setDepthRange();
        m_paintedCamera = *m_camera;
        if (m_scene->frame() && m_scene->frame()->flatGround())
            return;
        paintBackground();
        paintSurroundings();
    };
    m_scene->paintPicture(paintGround, [this, device] {
        AbstractMouseSelection* const tool = m_navigation->receiver();
        if (tool && !m_scene->frame())
            tool->draw();
        device->resetState();
        if (m_scene->hasSelection())
            m_scene->drawOutline(float(outlineWidth), viewColors().outline);
        paintOverlay();
    });
}

void GLView::paintBackground()
{
    // Bands from the lower edge to the upper one, thin enough for one level of brightness each.
    constexpr int bands = 64;
    QColor const low = themeColor("viewBottom"), high = themeColor("viewTop");
    std::vector<UPoint3<float>> points;
    std::vector<DrawRun> runs;
    for (int i = 0; i <= bands; ++i) {
        float const y = 2 * float(i) / bands - 1;
        points.insert(points.end(), {{-1, y, 0}, {1, y, 0}});
    }
    for (int i = 0; i < bands; ++i) {
        double const share = (i + 0.5) / bands;
        auto const mixed = [&](int from, int to) {
            return unsigned(std::lround(from + (to - from) * share));
        };
        unsigned const rgba = mixed(low.red(), high.red()) << 24 |
                              mixed(low.green(), high.green()) << 16 |
                              mixed(low.blue(), high.blue()) << 8 | 255;
        runs.push_back({GL_TRIANGLE_STRIP, 2 * i, 4, rgba});
    }
    m_scene->device()->setDepthTest(false);
    m_scene->device()->setDepthWriting(false);
    m_scene->drawOnce(points, runs, QMatrix4x4());
    m_scene->device()->resetState();
}

bool GLView::saveScreenshot(QString const& file, QString* reason)
{
    m_scene->standIns().rest();
    QImage picture = grabFramebuffer();
    while (m_scene->isPreparing()) {
        m_scene->finishPreparing();
        picture = grabFramebuffer();
    }
    return savePicture(picture.convertToFormat(QImage::Format_RGB32), file, reason);
}

void GLView::mousePressEvent(QMouseEvent* event)
{
    m_navigation->press(event);
}

void GLView::mouseMoveEvent(QMouseEvent* event)
{
    m_scene->standIns().moved();
    m_navigation->move(event);
}

void GLView::mouseReleaseEvent(QMouseEvent* event)
{
    m_navigation->release(event);
}

void GLView::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_navigation->doubleClick(event);
}

void GLView::wheelEvent(QWheelEvent* event)
{
    m_scene->standIns().moved();
    m_navigation->wheel(event);
    event->accept();
}

void GLView::keyPressEvent(QKeyEvent* event)
{
    if (!m_navigation->key(event))
        QOpenGLWidget::keyPressEvent(event);
}

void GLView::keyReleaseEvent(QKeyEvent* event)
{
    if (!m_navigation->key(event))
        QOpenGLWidget::keyReleaseEvent(event);
}

}  // namespace Base

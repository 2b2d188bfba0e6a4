// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/ViewProvider.h"

#include "platform/document/DocumentObject.h"
#include "platform/view/GLView.h"
#include "platform/view/GraphicViewProvider.h"

namespace Base {

constinit Type ViewProvider::classTypeId;

void ViewProvider::init()
{
    initSubclass(classTypeId, "Base::ViewProvider", "Base::BaseClass", nullptr);
}

ViewProvider::~ViewProvider()
{
    if (m_view)
        m_view->removeViewProvider(this);
}

Type ViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string ViewProvider::getClassName() const
{
    return "Base::ViewProvider";
}

void ViewProvider::attach(DocumentObject* object)
{
    m_object = object;
}

void ViewProvider::askForPicture() const
{
    if (m_view)
        m_view->update();
}

void ViewProvider::hide()
{
    m_isShown = false;
    askForPicture();
}

void ViewProvider::show()
{
    m_isShown = true;
    askForPicture();
}

bool ViewProvider::isShow() const
{
    return m_isShown;
}

void ViewProvider::attachGLViewer(GLView* view)
{
    if (view == m_view)
        return;
    if (m_view)
        m_view->removeViewProvider(this);
    m_view = view;
    if (view)
        view->addViewProvider(this);
}

void ViewProvider::initGL() {}

void ViewProvider::paintGL() {}

void ViewProvider::updateRenderData()
{
    if (m_view)
        m_view->renderDataUpdated(this);
}

bool ViewProvider::isTransparent() const
{
    return false;
}

void ViewProvider::setObjectColor(unsigned rgba)
{
    m_hasColor = true;
    m_color = rgba;
    askForPicture();
}

void ViewProvider::clearColor()
{
    m_hasColor = false;
    askForPicture();
}

unsigned ViewProvider::getObjectColor() const
{
    if (m_hasColor)
        return m_color;
    return m_object ? m_object->getColor() : 0;
}

void ViewProvider::setRenderMode(int mode)
{
    m_renderMode = mode;
    askForPicture();
}

constinit Type GraphicViewProvider::classTypeId;

void GraphicViewProvider::init()
{
    initSubclass(classTypeId, "Base::GraphicViewProvider", "Base::ViewProvider", nullptr);
}

Type GraphicViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string GraphicViewProvider::getClassName() const
{
    return "Base::GraphicViewProvider";
}

}  // namespace Base

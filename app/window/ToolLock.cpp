// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ToolLock.h"

#include "app/JobGuard.h"
#include "platform/view/GLView.h"

#include <QMouseEvent>

namespace {

/// Whether an event can be more to a tool than a look at what is under the mouse.
bool isForTools(QEvent const& event)
{
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return true;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove: {
            auto const& mouse = static_cast<QMouseEvent const&>(event);
            return mouse.button() == Qt::LeftButton || (mouse.buttons() & Qt::LeftButton);
        }
        default:
            return false;
    }
}

}  // namespace

ToolLock::ToolLock(Base::GLView& view) : QObject(&view), m_view(view)
{
    view.installEventFilter(this);
}

bool ToolLock::eventFilter(QObject* watched, QEvent* event)
{
    if (!isForTools(*event) || !JobGuard::instance()->isBusy() || !isModulesToolRunning())
        return QObject::eventFilter(watched, event);
    // A key may still be the window's.
    event->ignore();
    return true;
}

bool ToolLock::isModulesToolRunning() const
{
    std::string const tool = m_view.getInteractModeName();
    return !tool.empty() && tool != "Base::RectangleSelection" && tool != "Mesh::PointPickerMesh";
}

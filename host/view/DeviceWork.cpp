// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DeviceWork.h"

#include "host/view/ViewScene.h"
#include "platform/view/GLView.h"

DeviceWork::DeviceWork(Base::GLView& view) : m_view(view)
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { next(); });
}

void DeviceWork::add(Step step)
{
    m_steps.push_back(std::move(step));
    m_timer.start(0);
}

void DeviceWork::next()
{
    DrawDevice* const device = m_view.scene().device();
    if (m_steps.empty() || !device) {
        m_timer.stop();
        return;
    }
    m_view.makeCurrent();
    if (m_steps.front()(*device))
        m_steps.pop_front();
    m_view.doneCurrent();
}

void DeviceWork::finish()
{
    while (!m_steps.empty() && m_view.scene().device())
        next();
}

void DeviceWork::clear()
{
    m_steps.clear();
}

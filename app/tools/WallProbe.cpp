// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/WallProbe.h"

#include <memory>

WallProbe::WallProbe()
{
    m_thread.setMaxThreadCount(1);
}

WallProbe::~WallProbe()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void WallProbe::ask(MeshKernel const& part, Measuring::SurfacePoint const& at)
{
    m_thread.clear();
    int const number = ++m_number;
    m_thread.start([this, number, at, kernel = std::make_shared<MeshKernel const>(part)] {
        auto const thickness = Measuring::wallThickness(*kernel, at);
        QMetaObject::invokeMethod(
            this,
            [this, number, thickness] {
                if (number == m_number)
                    emit found(thickness.has_value(), thickness.value_or(0));
            },
            Qt::QueuedConnection);
    });
}

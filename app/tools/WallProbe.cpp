// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/WallProbe.h"

#include <memory>

WallProbe::WallProbe()
{
    m_thread.setMaxThreadCount(1);
}

WallProbe::~WallProbe()
{
    forget();
    m_thread.waitForDone();
}

void WallProbe::ask(MeshKernel const& part, Measuring::SurfacePoint const& at)
{
    forget();
    m_thread.start([this, unwanted = m_unwanted.get_token(), at,
                    kernel = std::make_shared<MeshKernel const>(part)] {
        auto const thickness = Measuring::wallThickness(*kernel, at, unwanted);
        QMetaObject::invokeMethod(
            this,
            [this, unwanted, thickness] {
                if (!unwanted.stop_requested())
                    emit found(thickness.has_value(), thickness.value_or(0));
            },
            Qt::QueuedConnection);
    });
}

void WallProbe::forget()
{
    m_unwanted.request_stop();
    m_unwanted = std::stop_source();
    m_thread.clear();
}

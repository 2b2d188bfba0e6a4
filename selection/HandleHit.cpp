// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/HandleHit.h"

#include "platform/view/GLView.h"

#include <cstdlib>

namespace Freecut {

bool isOnHandle(QPoint mouse, QPoint handle)
{
    constexpr int reach = 8;
    QPoint const offset = mouse - handle;
    return std::abs(offset.x()) < reach && std::abs(offset.y()) < reach;
}

std::optional<int> handleAt(Base::GLView const& view, QPoint mouse,
                            std::vector<UPoint3<float>> const& handles)
{
    for (std::size_t i = 0; i < handles.size(); ++i) {
        int x, y;
        view.getWidgetcoordFromWCS(handles[i], x, y);
        if (isOnHandle(mouse, {x, y}))
            return int(i);
    }
    return {};
}

}  // namespace Freecut

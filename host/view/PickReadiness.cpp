// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PickReadiness.h"

#include "host/view/MeshViewProvider.h"
#include "host/view/ViewScene.h"

bool arePicksQuick(ViewScene const& scene)
{
    for (Base::ViewProvider const* const provider : scene.providers()) {
        auto const* const shown = dynamic_cast<Mesh::ViewProvider const*>(provider);
        if (!shown || !shown->isShow() || shown->isPickReady())
            continue;
        shown->makePickReady();
        return false;
    }
    return true;
}

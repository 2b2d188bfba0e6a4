// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GraphicViewProvider.h"

namespace Freecut {

/// Shows a cut tool.
class GraphicViewProvider : public Base::GraphicViewProvider
{
public:
    /// Derives what is drawn, outlines included, from the tool's record. Called after every edit.
    virtual void updateGeometry() = 0;
};

}  // namespace Freecut

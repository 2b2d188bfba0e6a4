// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/GLGraphicsItem.h"
#include "platform/geometry/UPoint3.h"

namespace Freecut {

/// A line through world points: an edge under the mouse, a contour that is being drawn.
class RubberLine : public GLGraphicsItem
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    /// Not called by the module, as for all items.
    static void init();
    /// Null.
    static void* create();

    using GLGraphicsItem::GLGraphicsItem;
    Base::Type getTypeId() const override;

    /// One point draws nothing.
    void setParameter(std::vector<UPoint3<float>> line) { points = std::move(line); }

    void updateVBO() override;

private:
    std::vector<UPoint3<float>> points;
};

}  // namespace Freecut

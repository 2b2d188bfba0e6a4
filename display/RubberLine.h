// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/GLGraphicsItem.h"
#include "platform/document/TypeEntry.h"
#include "platform/geometry/UPoint3.h"

namespace Freecut {

/// A line through world points: an edge under the mouse, a contour that is being drawn.
class RubberLine : public Base::TypeEntry<RubberLine, GLGraphicsItem>
{
public:
    /// Not entered by the module, as for all items.
    static constexpr char const* typeName = "Freecut::RubberLine";
    /// Null.
    static void* create() { return nullptr; }

    using TypeEntry::TypeEntry;
    /// That of its base.
    std::string getClassName() const override { return GLGraphicsItem::typeName; }

    /// One point draws nothing.
    void setParameter(std::vector<UPoint3<float>> line) { points = std::move(line); }

    void updateVBO() override;

private:
    std::vector<UPoint3<float>> points;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/GLGraphicsItem.h"
#include "platform/document/TypeEntry.h"
#include "platform/geometry/UPoint3.h"

namespace Freecut {

/// A small square at a picked world point. It faces the viewer and is 12 pixels wide at any zoom.
/// Its inside is blended by the colour's alpha, its outline is not.
class RubberRect : public Base::TypeEntry<RubberRect, GLGraphicsItem>
{
public:
    /// Not entered by the module, as for all items.
    static constexpr char const* typeName = "Freecut::RubberRect";
    /// Null.
    static void* create() { return nullptr; }

    using TypeEntry::TypeEntry;

    void setParameter(UPoint3<float> const& point) { center = point; }
    UPoint3<float> const& getParameter() const { return center; }

    void updateVBO() override;
    void renderItem_GL_3_3() override;
    void renderItem_GL_2_1() override;

private:
    UPoint3<float> center;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/RubberLine.h"

namespace Freecut {

Base::Type RubberLine::classTypeId = Base::Type::badType();

void RubberLine::init()
{
    initSubclass(classTypeId, "Freecut::RubberLine", "Freecut::GLGraphicsItem", create);
}

void* RubberLine::create()
{
    return nullptr;
}

Base::Type RubberLine::getTypeId() const
{
    return classTypeId;
}

void RubberLine::updateVBO()
{
    vertexData.clear();
    for (UPoint3<float> const& point : points)
        vertexData.insert(vertexData.end(), {point.X(), point.Y(), point.Z()});
}

}  // namespace Freecut

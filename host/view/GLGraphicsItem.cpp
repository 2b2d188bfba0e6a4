// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/GLGraphicsItem.h"

namespace Base {

constinit Type GLGraphicsItem::classTypeId;

void GLGraphicsItem::init()
{
    initSubclass(classTypeId, "Base::GLGraphicsItem", "Base::BaseClass", nullptr);
}

Type GLGraphicsItem::getTypeId() const
{
    return classTypeId;
}

std::string GLGraphicsItem::getClassName() const
{
    return "Base::GLGraphicsItem";
}

void GLGraphicsItem::updateVBO() {}

void GLGraphicsItem::renderItem_GL_3_3() {}

void GLGraphicsItem::renderItem_GL_2_1() {}

}  // namespace Base

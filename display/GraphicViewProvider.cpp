// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/GraphicViewProvider.h"

namespace Freecut {

Base::Type GraphicViewProvider::classTypeId = Base::Type::badType();

void GraphicViewProvider::init()
{
    initSubclass(classTypeId, "Freecut::GraphicViewProvider", "Base::GraphicViewProvider", create);
}

void* GraphicViewProvider::create()
{
    return nullptr;
}

Base::Type GraphicViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string GraphicViewProvider::getClassName() const
{
    return "Freecut::GraphicViewProvider";
}

}  // namespace Freecut

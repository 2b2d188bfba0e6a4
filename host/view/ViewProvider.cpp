// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/view/ViewProvider.h"

#include "platform/view/GraphicViewProvider.h"

namespace Base {

constinit Type ViewProvider::classTypeId;

void ViewProvider::init()
{
    initSubclass(classTypeId, "Base::ViewProvider", "Base::BaseClass", nullptr);
}

Type ViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string ViewProvider::getClassName() const
{
    return "Base::ViewProvider";
}

constinit Type GraphicViewProvider::classTypeId;

void GraphicViewProvider::init()
{
    initSubclass(classTypeId, "Base::GraphicViewProvider", "Base::ViewProvider", nullptr);
}

Type GraphicViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string GraphicViewProvider::getClassName() const
{
    return "Base::GraphicViewProvider";
}

}  // namespace Base

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Property.h"

#include "platform/document/DocumentObject.h"

namespace Freecut {

bool Property::isContainedIn(char const* className) const
{
    Base::DocumentObject const* const tool = getContainer();
    return tool && tool->getClassName() == className;
}

}  // namespace Freecut

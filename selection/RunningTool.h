// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"

namespace Freecut {

/// The running mouse tool of a view if it is a T, else null. Nobody keeps the pointer beyond the
/// event that asked for it.
///
/// T     a concrete mouse tool, whose toolName is its class name
/// view  may be null
template <typename T>
T* runningTool(Base::GLView const* view)
{
    Base::AbstractMouseSelection* const tool =
        view ? view->navigationStyle()->mouseModel() : nullptr;
    return tool && tool->getClassName() == T::toolName ? static_cast<T*>(tool) : nullptr;
}

}  // namespace Freecut

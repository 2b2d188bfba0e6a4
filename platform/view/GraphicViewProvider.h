// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/ViewProvider.h"

namespace Base {

/// The view provider of a GraphicObject.
class GraphicViewProvider : public ViewProvider
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    Type getTypeId() const override;
    std::string getClassName() const override;
};

}  // namespace Base

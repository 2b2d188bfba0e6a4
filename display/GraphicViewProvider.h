// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GraphicViewProvider.h"

namespace Freecut {

/// Shows a cut tool.
class GraphicViewProvider : public Base::GraphicViewProvider
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    /// Null: only the classes below are made.
    static void* create();

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    /// Derives what is drawn, outlines included, from the tool's record. Called after every edit.
    virtual void updateGeometry() = 0;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/PropertyData.h"
#include "platform/document/TypeEntry.h"

namespace Freecut {

/// The type system's entry of a tool object, with the table of its properties below that of its
/// parent.
template <typename Own, typename Parent>
class ToolTypeEntry : public Base::TypeEntry<Own, Parent>
{
public:
    using Base::TypeEntry<Own, Parent>::TypeEntry;

    static Base::PropertyData* getPropertyDataPtr() { return &propertyData; }
    static void init()
    {
        Base::TypeEntry<Own, Parent>::init();
        propertyData.parent = Parent::getPropertyDataPtr();
    }

    Base::PropertyData const& getPropertyData() const override { return propertyData; }

protected:
    static inline Base::PropertyData propertyData;
};

}  // namespace Freecut

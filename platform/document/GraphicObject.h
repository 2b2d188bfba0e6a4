// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObject.h"

namespace Base {

/// A scene object without a mesh of its own, such as a tool that is being drawn.
class GraphicObject : public DocumentObject
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();
    static PropertyData* getPropertyDataPtr() { return &propertyData; }

    Type getTypeId() const override;
    std::string getClassName() const override;
    PropertyData const& getPropertyData() const override;

protected:
    static PropertyData propertyData;
};

}  // namespace Base

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"
#include "tools/GraphicObject.h"
#include "tools/PlaneProperty.h"

namespace Freecut {

/// The cut plane of a section cut.
class PlaneGraphicObject : public GraphicObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();
    static Base::PropertyData* getPropertyDataPtr() { return &propertyData; }

    PlaneGraphicObject();
    ~PlaneGraphicObject() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    Base::PropertyData const& getPropertyData() const override;
    std::string getViewProviderName() const override;

    PlaneProperty& getProperty() { return property; }
    PlaneProperty const& getProperty() const { return property; }

    /// The plane was changed, by whoever edits it.
    sigslot::signal0<sigslot::single_threaded> signalChanged;

protected:
    static Base::PropertyData propertyData;

private:
    PlaneProperty property;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"
#include "tools/GraphicObject.h"

namespace Freecut {

class VolumeProperty;

/// A solid cut tool. Only the classes below are used.
class VolumeGraphicObject : public GraphicObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();
    static Base::PropertyData* getPropertyDataPtr() { return &propertyData; }

    VolumeGraphicObject();
    ~VolumeGraphicObject() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    Base::PropertyData const& getPropertyData() const override;
    std::string getViewProviderName() const override;

    /// The tool's parameters. There are none in this class itself, of which no tool is made.
    virtual VolumeProperty& getVolumeProperty();

    /// The tool was changed, by whoever edits it.
    sigslot::signal0<sigslot::single_threaded> signalChanged;
    /// The record has been put back as a whole: any of its values may be another one. signalChanged
    /// follows.
    sigslot::signal0<sigslot::single_threaded> signalRestored;

protected:
    static Base::PropertyData propertyData;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"
#include "tools/GraphicObject.h"
#include "tools/ToolTypeEntry.h"

#include <vector>

template <typename T>
class UMesh;

namespace Freecut {

class VolumeProperty;

/// A solid cut tool. Only the classes below are used.
class VolumeGraphicObject : public ToolTypeEntry<VolumeGraphicObject, GraphicObject>
{
public:
    static constexpr char const* typeName = "Freecut::VolumeGraphicObject";

    VolumeGraphicObject();
    ~VolumeGraphicObject() override;

    std::string getViewProviderName() const override;

    /// The tool's parameters. There are none in this class itself, of which no tool is made.
    virtual VolumeProperty& getVolumeProperty();

    /// The nominal solid, closed and outward-facing; the caller owns it. Null if no view shows the
    /// tool.
    UMesh<float>* createMesh();
    /// The solids on both sides of the clearance, the outer one last; an inner one without
    /// vertices is left out. The caller owns them. None if no view shows the tool. Call it once
    /// after the outlines were derived.
    std::vector<UMesh<float>*> createInandOutMesh();

    /// The tool was changed, by whoever edits it.
    sigslot::signal0<sigslot::single_threaded> signalChanged;
    /// The record has been put back as a whole: any of its values may be another one. signalChanged
    /// follows.
    sigslot::signal0<sigslot::single_threaded> signalRestored;
};

}  // namespace Freecut

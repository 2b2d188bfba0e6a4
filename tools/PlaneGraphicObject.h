// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"
#include "tools/GraphicObject.h"
#include "tools/PlaneProperty.h"
#include "tools/ToolTypeEntry.h"

namespace Freecut {

/// The cut plane of a section cut.
class PlaneGraphicObject : public ToolTypeEntry<PlaneGraphicObject, GraphicObject>
{
public:
    static constexpr char const* typeName = "Freecut::PlaneGraphicObject";

    PlaneGraphicObject();
    ~PlaneGraphicObject() override;

    std::string getViewProviderName() const override;

    PlaneProperty& getProperty() { return property; }
    PlaneProperty const& getProperty() const { return property; }

    /// The plane was changed, by whoever edits it.
    sigslot::signal0<sigslot::single_threaded> signalChanged;

private:
    PlaneProperty property;
};

}  // namespace Freecut

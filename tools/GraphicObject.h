// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/GraphicObject.h"
#include "tools/ToolTypeEntry.h"

namespace Freecut {

class GraphicViewProvider;

/// A cut tool: a scene object that lives while its dialog is open. It cannot be copied, loaded or
/// saved; its parameters are a plain member, no registered property.
class GraphicObject : public ToolTypeEntry<GraphicObject, Base::GraphicObject>
{
public:
    static constexpr char const* typeName = "Freecut::GraphicObject";
    /// Null: only the classes below are made.
    static void* create() { return nullptr; }

    std::string getViewProviderName() const override;
    /// Null.
    Base::DocumentObject* deepCopy() const override;
    /// Does nothing.
    void copyFrom(Base::DocumentObject* source) override;
    /// False.
    bool load(char const* file) override;
    void freeMemory() override;

    /// What shows the tool in its document's view; null without a document or a view.
    GraphicViewProvider* getViewProvider() const;
};

}  // namespace Freecut

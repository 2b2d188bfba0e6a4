// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/CommandTexts.h"
#include "platform/ui/Command.h"

namespace Mesh {
class Document;
}

/// A command of the plug-in, with the texts that the table holds for its class.
class CutCommand : public Base::Command
{
public:
    explicit CutCommand(CommandTexts const& texts);

    char const* className() const override { return m_className; }

private:
    char const* m_className;
};

/// The active document if it is a mesh document, else null.
Mesh::Document* activeMeshDocument();

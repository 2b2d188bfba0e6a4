// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/DialogCommands.h"

#include "platform/document/MeshDocument.h"

bool DialogCommand::isActive()
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getMeshObjects().empty();
}

void CmdPlanecut::activated(int) {}

void CmdPolygoncut::activated(int) {}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/ToolScene.h"
#include "tools/StoredTool.h"

#include <string>

/// Reads the file of a drawn tool.
///
/// command  the sub-command, which must be that of the tool
/// throws   UsageError that names the file
Freecut::StoredTool readStoredShape(std::string const& file, std::string const& command);

/// Makes the tool in a scene whose view is at the tool's place.
///
/// file    where it comes from
/// throws  UsageError if its teeth do not fit
Freecut::VolumeGraphicObject* drawStoredShape(ToolScene& scene, Freecut::StoredTool stored,
                                              std::string const& file);

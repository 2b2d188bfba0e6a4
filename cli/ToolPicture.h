// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/ToolScene.h"

/// Writes the tool's outlines and the silhouettes of the parts, as they are seen in the view, to a
/// picture in millimetres. A file that exists is replaced.
///
/// throws  Formats::FileError
void writeToolPicture(std::string const& file, ToolScene const& scene,
                      Freecut::VolumeGraphicObject& tool, std::vector<CutPart> const& parts);

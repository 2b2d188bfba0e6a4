// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Report.h"
#include "cli/ToolScene.h"

/// The tool: its outlines in the free coordinates of the view, each point once, and how far it
/// reaches along the view.
Report toolReport(ToolScene const& scene, Freecut::VolumeGraphicObject& tool);

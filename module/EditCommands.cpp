// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/EditCommands.h"

void CmdPolygonCutDeletePoint::activated(int) {}

void CmdPolygonCutDeleteSelectedTeeth::activated(int) {}

void CmdPolygonCutDeleteAllTeeth::activated(int) {}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class CommandManager;
}
class SectionAreaNote;

/// Enters Std_CopyMeasure, which copies what the measuring tool shows, or else the area of the cut.
void registerCopyMeasureCommand(Base::CommandManager& manager, SectionAreaNote& area);

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class ViewAppearance;

namespace Base {
class CommandManager;
}

/// The standard views Std_View0 to Std_View6 (the numbers of GLView::OnViewType), Std_FitAll and
/// Std_FitSelection of the view in front, Std_Screenshot, and Std_Perspective, Std_Parallel,
/// Std_ShowEdges and Std_ShowPlate. A job that runs does not forbid them.
///
/// appearance  outlives the commands' use
void registerViewCommands(Base::CommandManager& manager, ViewAppearance& appearance);

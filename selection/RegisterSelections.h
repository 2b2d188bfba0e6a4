// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

/// Enters the mouse tools into the type system, each parent before its children, so that views
/// start them by name.
void registerSelections();

}  // namespace Freecut

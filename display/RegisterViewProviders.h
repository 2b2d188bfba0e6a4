// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

/// Enters the view providers of all tools by class name, each parent before its children, so that a
/// document with a view makes them for its tools. Entering them once more changes nothing.
void registerViewProviders();

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace Base {
class ViewProvider;
}

/// Says where parts are drawn that stand apart from each other: away from the middle of all that are
/// shown, by a share of their distance from it, and none lower than the lowest was. Parts that are
/// hidden, and all with a share of 0, are drawn where they are.
void spreadParts(std::vector<Base::ViewProvider*> const& providers, double share);

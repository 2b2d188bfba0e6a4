// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace Base {
class ViewProvider;
}

/// Says where parts are drawn that stand apart from each other: away from the middle of all that are
/// shown, by a share of their distance from it. The pieces of one part count as one there, and go
/// apart from each other along the normals of the cuts and the edges of drawn shapes, by the same share. None is drawn lower than
/// the lowest was. Parts that are hidden, and all with a share of 0, are drawn where they are.
void spreadParts(std::vector<Base::ViewProvider*> const& providers, double share);
